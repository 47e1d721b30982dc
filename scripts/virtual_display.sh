# shellcheck shell=bash
# A display for machines that have none, and its picture. Sourced by `run`,
# which ends the programs in `started` and removes `display_folder`.

# start_virtual_display: sets DISPLAY and XAUTHORITY; only who has the cookie gets in.
start_virtual_display() {
    local number cookie
    [[ -n $screenshot_only ]] || say "No display here (DISPLAY and WAYLAND_DISPLAY are empty): taking a virtual one."
    display_folder=$(mktemp -d)
    cookie=$(mcookie)
    export XAUTHORITY=$display_folder/cookies
    touch "$XAUTHORITY"
    xauth -q add :0 . "$cookie"
    # Xvfb picks a free number itself and writes it once it takes connections.
    mkfifo "$display_folder/number"
    Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp -auth "$XAUTHORITY" \
        3<>"$display_folder/number" >"$display_folder/log" 2>&1 </dev/null &
    started+=("$!")
    if ! read -r -t 20 number <>"$display_folder/number"; then
        cat "$display_folder/log" >&2
        die "the virtual display hasn't come up"
    fi
    xauth -q add ":$number" . "$cookie"
    export DISPLAY=:$number QT_QPA_PLATFORM=xcb
    unset WAYLAND_DISPLAY
}

# type_login NAME PASSWORD: fills the login page in the console's window, once
# that shows it, and presses Enter.
type_login() {
    local window
    window=$(timeout 20 xdotool search --sync --onlyvisible --name '^Пульт управления вещанием$' | head -n 1)
    [[ -n $window ]] || die "the console shows no window"
    xdotool windowfocus --sync "$window"
    xdotool type "$1"
    xdotool key Tab
    xdotool type "$2"
    xdotool key Return
}

# take_picture FILE PID SECONDS: waits until the window of process PID shows a
# page that no longer changes, and writes it to FILE. An empty window has one
# or two colours, a page with text has dozens.
take_picture() {
    local file=$1 pid=$2 deadline=$((SECONDS + $3)) previous='' current colours
    mkdir -p "$(dirname "$file")"
    while ((SECONDS < deadline)); do
        kill -0 "$pid" 2>/dev/null || die "the console has ended before its page was up"
        import -window root "$file"
        read -r current colours < <(identify -format '%# %k\n' "$file")
        if ((colours > 16)) && [[ $current == "$previous" ]]; then
            return
        fi
        previous=$current
        sleep 0.3
    done
    die "no page in the console's window after $3 seconds; what there was is in $file"
}
