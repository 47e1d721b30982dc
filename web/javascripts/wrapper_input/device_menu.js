// The list of all units at the side of the page of one of them.

(function () {
    const states = ["offline", "incoming", "online"];

    function paintState(parts, item) {
        const state = states[item.status];
        parts.root.className = "device_menu " + state + (item.active ? " " + state + "_active" : "");
        parts.root.title = item.name + ": " + linkStates[item.status].word;
    }

    const units = itemList({
        list: "#deviceList",
        scroller: "#side_menu",
        region: "#side_menu",
        template:
            "<div data-part='menu'><span data-part='playing'></span><span class='device_menu_text'>" +
            "<span class='ellipsis' data-part='name'></span>" +
            "<span class='tile_volume'><div data-part='volume'></div></span></span></div>",
        prefix: "device_",
        paint: {
            name: [paintState, (parts, item) => (parts.name.textContent = item.name)],
            status: [paintState],
            active: [paintState],
            volume: [(parts, item) => (parts.volume.style.width = item.volume + "%")],
            category: [paintPlaying],
        },
        actions: {open: (id) => wrapperLoadCurrentDeviceInfo(id)},
        changed: () => $("#side_menu .empty_list").toggleClass("hidden", units.counts.all > 0),
    });

    function activate(id) {
        deviceForLoad = id;
        units.activate(id);
        units.reveal(id);
    }

    let told = 0; // the unit of which native code has told last

    function openFirst() {
        const first = units.first();
        if (first) {
            activate(first.id);
            wrapperLoadCurrentDeviceInfo(first.id);
        }
    }

    page({
        wrapperInput_device_add: function (id, name, status, volume, playback) {
            const isNew = !units.has(id);
            units.add(id, {name: name, status: status, volume: volume, category: playback});
            if (isNew && id === deviceForLoad) {
                activate(id);
                wrapperLoadCurrentDeviceInfo(id);
            }
        },
        wrapperInput_device_setId: function (id) {
            told = id;
            activate(id);
        },
        wrapperInput_device_linkOn: (id) => units.set(id, "status", 2),
        wrapperInput_device_linkIncoming: (id) => units.set(id, "status", 1),
        wrapperInput_device_linkOff: (id) => units.set(id, "status", 0),
        wrapperInput_device_setName: (id, name) => units.set(id, "name", name),
        wrapperInput_device_setVolume: (id, volume) => units.set(id, "volume", volume),
        // The next one is active at once: the mirror may be ahead, and it may have gone there, too.
        // Then nothing answers, and its own deletion leads on from it.
        wrapperInput_device_delete: function (id) {
            const wasActive = units.active !== null && units.active.id === id;
            units.remove(id);
            if (wasActive) {
                openFirst();
            }
        },
        menu_hasUnits: () => units.counts.all > 0,
    });
    wrapper_Device_LoadSideList();
    // Beyond the first portion of the list, or gone since it was chosen.
    if (!units.has(deviceForLoad)) {
        wrapperLoadCurrentDeviceInfo(deviceForLoad);
        if (told !== deviceForLoad) {
            openFirst();
        }
    }
})();
