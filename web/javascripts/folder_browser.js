// The disks of this computer in a dialog: its drives, the folder on show, and what is ticked there.
// A folder of ten thousand files is a list like any other: only rows near the window have elements.
//
// Options:
//   dialog   "#modalAddItem": the dialog that holds #modalDriveList, #dirPath and #dirContent
//   region   the region whose "leave" ends it
//   kinds    which kinds of rows it shows: [1] folders alone, [0, 1] files too
//   many     whether several may be ticked
//   open     function (path, drive): asks for a folder; without a drive's name, for its root
//   empty    what an empty folder says

class FolderBrowserView {
    constructor(options) {
        this.options = options;
        this.drives = $(options.dialog).find("#modalDriveList");
        this.path = $(options.dialog).find("#dirPath");
        this.count = 0; // rows so far: their ids
        const place = $(options.dialog).find("#dirContent");
        this.hint = $("<div class='empty_list'>").text(options.empty || "Папка пуста").insertAfter(place);
        this.rows = itemList({
            list: place,
            scroller: place,
            region: options.region,
            template:
                "<div class='tick_row'><input type='" + (options.many ? "checkbox" : "radio") + "' name='file' tabindex='-1' data-part='box' data-action='tick'>" +
                "<i class='fa row_icon' data-part='icon'></i><span class='tick_title ellipsis' data-part='name'></span>" +
                "<span class='tick_note digits' data-part='size'></span></div>",
            prefix: "dir_" + options.region.replace("#", "") + "_",
            paint: {
                name: [(parts, item) => this.paint(parts, item)],
                ticked: [(parts, item) => (parts.box.checked = item.ticked)],
            },
            actions: {open: (id) => this.clicked(id), tick: (id) => this.tick(id)},
            tickable: (item) => !item.isUp,
            changed: () => this.showEmpty(),
        });
        this.drives.on("change", () => options.open(this.drives.val(), this.drives.val()));
    }

    // Called for each row of what may be a very long list.
    showEmpty() {
        const isEmpty = this.rows.counts.all === 0;
        if (isEmpty !== this.saysEmpty) {
            this.saysEmpty = isEmpty;
            this.hint.toggle(isEmpty);
        }
    }

    paint(parts, item) {
        parts.name.textContent = item.name;
        parts.name.title = item.name;
        parts.box.value = item.path;
        parts.box.disabled = item.isUp;
        parts.icon.className = "fa row_icon " + (item.kind === 1 ? "fa-folder-open-o" : "fa-file-audio-o");
        parts.size.textContent = item.kind === 1 ? "" : Math.round(item.size / 1024) + " Кбайт";
    }

    // The name of a folder leads into it, that of a file ticks it.
    clicked(id) {
        const item = this.rows.get(id);
        if (item.kind === 1) {
            this.options.open(item.path, this.drives.val());
        } else {
            this.tick(id);
        }
    }

    tick(id) {
        if (!this.options.many) {
            this.rows.tickAll(this.rows.everyItem().filter((item) => item.ticked && item.id !== id), false);
        }
        this.rows.toggleTick(id);
        this.rows.view.paint(this.rows.get(id), "ticked");
    }

    // The paths of what is ticked, in the order of the rows.
    ticks() {
        return this.rows.ticks().map((id) => this.rows.get(id).path);
    }

    // Makes ready for the drives, as the dialog opens.
    begin() {
        this.drives.empty();
        this.clear();
        this.path.text("");
        buildSelect(this.drives);
    }

    clear() {
        this.rows.clear();
    }

    // What native code tells of.

    addDrive(path, haveSaved) {
        this.drives.append($("<option>").val(path).text(path));
        if (this.drives.children().length === 1 && !haveSaved) {
            this.options.open(path, path);
        }
    }

    selectDrive(path) {
        this.drives.val(path).trigger("change.select2");
    }

    addItem(name, path, size, kind) {
        if (this.options.kinds.indexOf(kind) >= 0) {
            this.rows.add(++this.count, {name: name, path: path, size: size, kind: kind, isUp: name === ".."});
        }
    }
}

// The functions of a page whose dialogs `browsers()` gives.
function folderFunctions(browsers) {
    const each = (action) => browsers().forEach(action);
    return {
        wrapperInput_filesystem_addDrive: (path, haveSaved) => each((one) => one.addDrive(path, Boolean(haveSaved))),
        wrapperInput_filesystem_clearDriveItems: () => each((one) => one.clear()),
        wrapperInput_filesystem_setPath: (path) => each((one) => one.path.text(path)),
        wrapperInput_filesystem_addDriveItem: (name, path, size, kind) => each((one) => one.addItem(name, path, size, kind)),
        wrapperInput_fileSystem_selectDrive: (path, type) => each((one) => (one.options.type || type) === type && one.selectDrive(path)),
    };
}

function folderBrowser(options) {
    return new FolderBrowserView(options);
}

// The rows of a dialog that browses.
function folderRowsMarkup() {
    return $(
        "<div class='folder_browser'>" +
            "<div class='dialog_row'><label>Носитель</label><span class='dialog_field'><select id='modalDriveList'></select></span></div>" +
            "<div class='dialog_row'><label>Путь</label><span class='dialog_field ellipsis' id='dirPath'></span></div>" +
            "<div class='folder_head'><span>Название</span><span>Размер</span></div>" +
            "<div id='dirContent' class='tick_list'></div></div>"
    );
}
