// The page of presets to be started: a card each, with the units that it plays on.

(function () {
    const icons = {1: "fa-podcast", 2: "fa-play-circle-o", 3: "fa-bullhorn", 4: "fa-exclamation-circle", 6: "fa-exclamation-triangle", 7: "fa-bell-o"};
    const cardsByPreset = new Map(); // per preset: {group, element, units}
    let group = callPage("preset_shownGroup") || 0;
    let reload = null;

    function paintClasses(parts, item) {
        const classes = {root: "device", border: "device_border", header: "device_header", playing: "device_playing", task: "device_task", volume: "device_volume"};
        Object.keys(classes).forEach((part) => parts[part] && parts[part].classList.add(classes[part] + "_" + item.id));
    }

    // The units of a preset: the same unit may stand on several cards.
    function unitsOf(id, place) {
        const names = ["playing", "task"];
        const paint = paintersOf(names, true);
        // Behind whatever has painted: painting writes the classes of a part anew.
        Object.keys(paint).forEach(function (field) {
            const painters = paint[field];
            paint[field] = [(parts, item) => painters.concat(paintClasses).forEach((painter) => painter(parts, item))];
        });
        return itemList({
            list: place,
            scroller: place,
            region: "#main",
            template: cardTemplate(names, true),
            prefix: "preset_" + id + "_device_",
            paint: paint,
        });
    }

    function showFilter() {
        cardsByPreset.forEach((card) => card.element.toggleClass("hidden", group !== 0 && card.group !== group));
        $("#no_presets").toggleClass("hidden", $("#presetList .preset:not(.hidden)").length > 0);
    }

    function start(id, button) {
        answers.wait("preset/play", button);
        wrapper_Preset_StartPreset(id, "none");
    }

    function buildCard(id) {
        const place = $("<div class='preset_devices'>").attr("id", "preset_devices_" + id);
        const element = $("<div class='panel_box'>")
            .attr("id", "preset_" + id)
            .append(
                $("<div class='preset_head'>").append(
                    $("<i class='fa preset_icon'>"),
                    $("<div class='preset_texts'>").append("<div class='preset_name ellipsis'>", "<div class='preset_source quiet ellipsis'>"),
                    $("<button type='button' class='btn btn-primary'>")
                        .append($("<i class='fa fa-play'>"), document.createTextNode(" Пуск"))
                        .on("click", (event) => start(id, event.currentTarget))
                ),
                place
            )
            .appendTo("#presetList");
        const card = {element: element, group: 0, units: null};
        cardsByPreset.set(id, card);
        card.units = unitsOf(id, place);
        return card;
    }

    function eachUnit(id, action) {
        cardsByPreset.forEach((card) => card.units.has(id) && action(card.units));
    }

    function setUnit(id, field, value) {
        eachUnit(id, (units) => units.set(id, field, value));
    }

    // There are other units than before, or in other zones: once for all that one read tells.
    function reloadSoon() {
        clearTimeout(reload);
        reload = setTimeout(() => cardsByPreset.forEach((card, id) => wrapper_Preset_LoadDevices(id)), 0);
    }

    page({
        preset_showGroup: function (chosen) {
            group = chosen;
            showFilter();
        },
        wrapperInput_preset_add: function (id, title, playlist, track, kind) {
            const card = cardsByPreset.get(id) || buildCard(id);
            card.group = kind;
            card.element.attr("class", "panel_box preset preset_type_" + kind);
            card.element.find(".preset_icon").attr("class", "fa preset_icon " + (icons[kind] || "fa-music"));
            card.element.find(".preset_name").text(title).attr("title", title);
            card.element.find(".preset_source").text(playlist + " / " + track);
            showFilter();
            wrapper_Preset_LoadDevices(id);
        },
        wrapperInput_preset_setTitle: (id, title) => $("#presetList #preset_" + id + " .preset_name").text(title).attr("title", title),
        wrapperInput_preset_delete: function (id) {
            if (cardsByPreset.has(id)) {
                cardsByPreset.get(id).units.destroy();
                cardsByPreset.get(id).element.remove();
                cardsByPreset.delete(id);
                showFilter();
            }
        },
        wrapperInput_preset_clearDevices: function (id) {
            if (cardsByPreset.has(id)) {
                const units = cardsByPreset.get(id).units;
                units.clear();
            }
        },
        wrapperInput_preset_addDevice: function (presetId, id, name, category, volume, status) {
            if (cardsByPreset.has(presetId)) {
                cardsByPreset.get(presetId).units.add(id, {name: name, status: status, volume: volume, category: category, zones: [], task: "", read: true});
            }
        },
        wrapperInput_device_add: () => reloadSoon(),
        wrapperInput_device_setName: (id, name) => setUnit(id, "name", name),
        wrapperInput_device_setVolume: (id, volume) => setUnit(id, "volume", volume),
        wrapperInput_device_setPlaybackCategory: (id, category) => setUnit(id, "category", category),
        wrapperInput_device_setTask: (id, taskId, title) => setUnit(id, "task", taskId > 0 ? title : ""),
        wrapperInput_device_linkOn: (id) => setUnit(id, "status", 2),
        wrapperInput_device_linkIncoming: (id) => setUnit(id, "status", 1),
        wrapperInput_device_linkOff: (id) => setUnit(id, "status", 0),
        wrapperInput_device_delete: (id) => eachUnit(id, (units) => units.remove(id)),
        wrapperInput_zone_includeDevice: (zone, id) => reloadSoon(),
        wrapperInput_zone_excludeDevice: (zone, id) => reloadSoon(),
    });

    $("#main").on("leave", () => clearTimeout(reload));
    wrapper_Preset_LoadList();
})();
