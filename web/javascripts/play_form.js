// What the pages of presets and of tasks share: how a playback goes on, where it plays, and, in the
// dialog of a new one, what plays.

// The lists of zones and units, and the rows of repetition.
//
// Options:
//   place    the element that gets the rows
//   prefix   begins the ids of its fields and rows: "" in the form, "add_" in the dialog
//   region   the region whose "leave" ends the lists
class PlayForm {
    constructor(options) {
        const prefix = options.prefix;
        this.prefix = prefix;
        $(options.place).append(
            replayRows("type_track", "action_stop", prefix),
            this.listRow("Зоны", "zones", prefix),
            this.listRow("Устройства", "units", prefix)
        );
        this.zones = this.list("zones", "zone_", "Нет зон", options);
        this.devices = this.list("units", "device_", "Нет устройств", options);
        this.target = switchField("#" + prefix + "type_track", "#" + prefix + "type_playlist");
        this.action = switchField("#" + prefix + "action_stop", "#" + prefix + "action_pause");
        this.count = "#" + prefix + "playback_repeat_count";
    }

    listRow(label, name, prefix) {
        return $("<div class='panel_row target_row'>").append(
            $("<span class='panel_label'>").text(label),
            $("<div class='target_list'>").append($("<div>").attr("id", prefix + name + "_list"))
        );
    }

    list(name, prefix, empty, options) {
        return tickList({
            list: "#" + options.prefix + name + "_list",
            prefix: options.prefix + prefix,
            title: "name",
            region: options.region,
            empty: empty,
        });
    }

    // For a `formPage`.
    get parts() {
        return [this.zones, this.devices, this.target, this.action];
    }

    get isTicked() {
        return this.zones.ticks().length + this.devices.ticks().length > 0;
    }

    get targetPlaying() {
        return this.target.value() ? "track" : "list";
    }

    get actionIfEnd() {
        return this.action.value() ? "stop" : "pause";
    }

    get repeatCount() {
        return Number($(this.count).val());
    }

    countError() {
        return rangeError($(this.count).val(), 1, 255);
    }

    // Empty, as a new dialog opens; what there is comes again.
    begin() {
        [this.zones, this.devices].forEach((list) => {
            list.empty();
            list.begin();
        });
        $(this.count).val("1").each((index, field) => markField(field, ""));
        setSwitch("#" + this.prefix + "type_track", "#" + this.prefix + "type_playlist", true);
        setSwitch("#" + this.prefix + "action_stop", "#" + this.prefix + "action_pause", true);
    }

    // What native code tells of zones and units.
    functions() {
        const zones = this.zones;
        const devices = this.devices;
        const title = (name, parentName) => (parentName && parentName !== "Все зоны" ? zonePath(name, parentName) : name);
        return Object.assign(zoneBoxFunctions(zones, title), {
            wrapperInput_device_add: (id, name) => devices.add(id, {title: name}),
            wrapperInput_device_setName: (id, name) => devices.set(id, {title: name}),
            wrapperInput_device_delete: (id) => devices.remove(id),
        });
    }
}

function playForm(options) {
    return new PlayForm(options);
}

// The pickers of folder and track in a dialog: select boxes by their ids.
class SourcePicker {
    constructor(playlistBox, trackBox) {
        this.playlistBox = playlistBox;
        this.trackBox = trackBox;
        $(playlistBox).on("change", () => this.loadTracks());
    }

    begin() {
        $(this.playlistBox).empty();
        $(this.trackBox).empty();
        buildSelect(this.playlistBox, "Выберите плейлист");
        buildSelect(this.trackBox, "Выберите фрагмент");
        wrapper_AdminPlaylist_loadList(false);
    }

    loadTracks() {
        $(this.trackBox).empty().trigger("change.select2");
        if (this.playlist) {
            wrapper_AdminPlaylist_loadTracks(this.playlist);
        }
    }

    get playlist() {
        return Number($(this.playlistBox).val()) || 0;
    }

    get track() {
        return Number($(this.trackBox).val()) || 0;
    }

    option(box, id) {
        return $(box).children().filter((index, option) => option.value === String(id));
    }

    // What native code tells of folders and tracks. The first folder is the one chosen, and its tracks
    // are asked for.
    functions() {
        const add = (box, id, name) => {
            if (this.option(box, id).length === 0) {
                $("<option>").val(id).text(name).appendTo(box);
                $(box).trigger("change.select2");
                return $(box).children().length === 1;
            }
            return false;
        };
        const remove = (box, id) => {
            const wasChosen = $(box).val() === String(id);
            this.option(box, id).remove();
            $(box).trigger(wasChosen ? "change" : "change.select2");
        };
        return {
            wrapperInput_playback_addItem: (id, parentId, name, type) => {
                if (type === 1) {
                    if (add(this.playlistBox, id, name)) {
                        this.loadTracks();
                    }
                } else if (this.playlist === parentId) {
                    add(this.trackBox, id, name);
                }
            },
            wrapperInput_playback_deletePlaylist: (id) => remove(this.playlistBox, id),
            wrapperInput_playback_deleteTrack: (id) => remove(this.trackBox, id),
            wrapperInput_playback_setPlaylistName: (id, name) => renameOption(this.option(this.playlistBox, id), name),
            wrapperInput_playback_setTrackName: (id, name) => renameOption(this.option(this.trackBox, id), name),
        };
    }
}

function sourcePicker(playlistBox, trackBox) {
    return new SourcePicker(playlistBox, trackBox);
}

const playbackGroups = {
    "-4": "трансляция",
    "-3": "сообщение",
    "-2": "фрагмент",
    1: "радио",
    2: "плейлист",
    3: "реклама",
    4: "служебное",
    5: "запись микрофона",
    6: "тревога",
    7: "гонг",
};

// The dialog that asks for the title of a copy. `copy` gets the id and the title.
function copyDialog(id, title, request, copy) {
    const dialog = $(
        "<div class='modal fade' tabindex='-1' data-backdrop='static' data-keyboard='false'><div class='modal-dialog'><div class='modal-content'>" +
            "<div class='modal-header'><h4 class='modal-title'></h4></div><div class='modal-body'>" +
            "<div class='dialog_row form_field'><label>Название</label><input class='form-control' autocomplete='off'></div></div>" +
            "<div class='modal-footer'><button type='button' class='btn btn-default cancel' data-dismiss='modal'>Отмена</button>" +
            "<button type='button' class='btn btn-primary accept'>Применить</button></div></div></div></div>"
    )
        .attr("id", id)
        .appendTo("#modal");
    const field = dialog.find("input").attr("id", id + "Title");
    let subject = 0;
    dialog.find(".modal-title").text(title);
    limitName("#" + id + "Title");
    field.on("input", () => markField(field, ""));
    dialog.find(".accept").on("click", function () {
        if (markField(field, nameError(field.val()))) {
            answers.wait(request, this);
            copy(subject, field.val());
        }
    });
    return {
        open: function (of, text) {
            subject = of;
            field.val(text).each((index, one) => markField(one, ""));
            dialog.modal("show");
        },
        close: () => dialog.modal("hide"),
    };
}

// What keeps a preset or a task from being taken.
function titleExistsNotice() {
    notice("modalAdminTitleExists", {
        id: "modalTitleExists",
        title: "Ошибка",
        text: "Введенное название совпадает с уже существующим. Выберите другое название",
    });
}

function roleErrorNotice(text) {
    notice("modalAdminRoleError", {title: "Ошибка", text: text});
}

// The notices of what is missing in a form or a dialog, under the names of the page.
function missingNotices(prefix) {
    notice(prefix + "NoSelectedDevices", {title: "Ошибка", text: "Выберите хотя бы одну зону или устройство."});
    notice(prefix + "NoSelectedTrack", {title: "Ошибка", text: "Выберите или добавьте фрагмент."});
    notice(prefix + "NoSelectedPlaylist", {title: "Ошибка", text: "Выберите или добавьте плейлист."});
}
