# shellcheck shell=bash
# What `run`, `test` and the scripts share: messages, packages, the build.
# Leaves the shell in the project's root.
# shellcheck disable=SC2034  # what is set here is used by the scripts

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

readonly SKIPPED=77 # what CTest takes as "skipped"

say() { printf '%s\n' "$*" >&2; }

die() {
    say "$(basename "$0"): $*"
    exit 1
}

has() { command -v "$1" >/dev/null; }

# skip_without TOOL PURPOSE: ends the script as skipped where TOOL is missing.
skip_without() {
    has "$1" && return
    say "skipped: no $1 here, so $2"
    exit "$SKIPPED"
}

# need_number OPTION VALUE...: ends the script unless a whole number follows the option.
need_number() { [[ ${2:-} =~ ^[0-9]+$ ]] || die "$1 wants a number; see --help"; }

# usage: the script's own head comment, which is its help text.
usage() { awk 'NR > 1 { if (!sub(/^# ?/, "")) exit; print }' "$SCRIPT"; }

readonly BUILD_PACKAGES=(build-essential cmake ninja-build ccache qtbase5-dev libqt5webkit5-dev
    qtmultimedia5-dev libqt5multimedia5-plugins libvlc-dev vlc-plugin-base pkgconf openssl
    fonts-noto-core ca-certificates)
readonly TEST_PACKAGES=(git pulseaudio pulseaudio-utils ffmpeg iproute2 clang-format clang-tidy shellcheck
    xvfb xdotool imagemagick)
readonly VIRTUAL_DISPLAY_PACKAGES=(xvfb xauth xdotool imagemagick)

# missing_packages PACKAGE...: those of them that aren't installed, one a line.
# node and npm count as commands: many machines have them from elsewhere, and
# the packages would quarrel with those.
missing_packages() {
    local installed
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null | sed -n 's/^installed //p' || true)
    comm -23 <(printf '%s\n' "$@" | sort -u) <(sort -u <<<"$installed")
    has node || echo nodejs
    has npm || echo npm
}

# need_packages PACKAGE...: installs what is missing, silently does nothing otherwise.
need_packages() {
    if ! has dpkg-query; then
        say "No Debian packages here; taking it that the counterparts of these are installed: $* nodejs npm"
        return
    fi
    local missing become_root=()
    mapfile -t missing < <(missing_packages "$@")
    ((${#missing[@]})) || return 0
    if ((EUID != 0)); then
        has sudo || die "neither root nor sudo; have these packages installed: ${missing[*]}"
        become_root=(sudo)
        [[ -t 0 ]] || become_root+=(-n)
        "${become_root[@]}" true || die "sudo refused; have these packages installed: ${missing[*]}"
    fi
    say "Installing packages: ${missing[*]}"
    become_root+=(env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=120)
    "${become_root[@]}" update >&2 </dev/null || say "The package lists couldn't be refreshed; trying with the old ones."
    "${become_root[@]}" install -y --no-install-recommends "${missing[@]}" >&2 </dev/null ||
        die "these packages couldn't be installed: ${missing[*]}"
}

# build PRESET [TARGET...]: configures where needed and builds the targets, or all.
build() {
    local preset=$1 folder=build/$1
    shift
    if [[ ! -e $folder/build.ninja || CMakePresets.json -nt $folder/build.ninja ]]; then
        cmake --preset "$preset" >&2
    fi
    cmake --build "$folder" --parallel "$(nproc)" ${1:+--target "$@"} >&2
}

# fetch_page_tools FOLDER: the tools of web/package-lock.json, into FOLDER, unless they are there.
# Two checks may want them at the same time.
fetch_page_tools() {
    mkdir -p "$1"
    (
        flock 9
        cmp -s web/package-lock.json "$1/fetched-lock.json" && exit
        cp web/package.json web/package-lock.json web/.npmrc "$1"
        cd "$1" && npm ci --no-audit --no-fund --loglevel=error
        cp package-lock.json fetched-lock.json
    ) 9>"$1/lock"
}
