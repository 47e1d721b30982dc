// The page of zones: their list, the form of the one that is active, the zones below it and the units
// in it.

(function () {
    const types = [
        {long: "Физическая зона", short: "Физ."},
        {long: "Логическая зона", short: "Лог."},
    ];
    const top = "Все зоны"; // what a zone without a parent hangs below
    let active = 0; // the zone whose content is on show, 0 without one

    const zones = listPage({
        table: "#zoneList",
        prefix: "zone_",
        active: "zone_active",
        empty: "Нет зон",
        cells: (zone) => [
            {name: "zone_name", text: zone.name},
            {name: "zone_type", text: types[zone.type].short, class: "column_type quiet"},
        ],
        buttons: [
            {
                icon: "fa-trash",
                title: "Удалить",
                action: (id, zone) =>
                    forms.leave(() => {
                        zones.open(id);
                        modalAdminDeleteZoneShow(id, zone.name);
                    }),
            },
        ],
        select: (id) => wrapper_AdminZone_loadZone(id),
        emptied: () => {
            form.id = null;
            showContent(0);
        },
    });

    // A list of what the active zone holds.
    function contentList(list, prefix, second, paint, empty) {
        const content = itemList({
            list: list,
            scroller: list,
            region: "#main",
            template:
                "<div class='content_row'><span class='tick_title ellipsis' data-part='name'></span>" +
                "<span class='tick_note' data-part='" + second + "'></span></div>",
            prefix: prefix,
            paint: Object.assign(
                {
                    name: [
                        (parts, item) => {
                            parts.name.textContent = item.name;
                            parts.name.title = item.name;
                        },
                    ],
                },
                paint
            ),
            changed: () => content && hint.toggle(content.counts.shown === 0),
        });
        const hint = $("<div class='empty_list'>").text(empty).insertAfter(list);
        content.setFilter(() => false);
        return content;
    }

    function marks(common, name, ids, item) {
        return [common].concat(ids.map((id) => name + id), item.passes ? [] : "hidden", "content_row").join(" ");
    }

    const subZones = contentList(
        "#subZoneList",
        "sub_zone_",
        "type",
        {
            parent: [(parts, item) => (parts.root.className = marks("sub_zone", "zone_parent_", [item.parent], item))],
            type: [(parts, item) => (parts.type.textContent = types[item.type].short)],
        },
        "Нет вложенных зон"
    );

    const units = contentList(
        "#deviceList",
        "sub_device_",
        "status",
        {
            zones: [(parts, item) => (parts.root.className = marks("sub_device", "device_parent_", item.zones, item))],
            status: [paintLinkWord],
        },
        "Нет устройств"
    );

    const form = formPage({
        fields: {name: "#zone_name"},
        rules: {name: nameError},
        request: "zone/edit",
        save: (values, id) => saveZone(id, values.name),
    });

    function showContent(id) {
        active = id;
        subZones.setFilter((zone) => zone.parent === id && id !== 0);
        units.setFilter((unit) => unit.zones.indexOf(id) >= 0);
    }

    function showHead(zone) {
        $("#zone_parent_name").text(zone.parentName);
        $("#zone_type").text(types[zone.type].long);
    }

    // What a zone shows of itself, wherever it stands.
    function change(id, fields) {
        zones.set(id, fields);
        Object.keys(fields).forEach((name) => subZones.set(id, name, fields[name]));
        if (zones.isActive(id)) {
            showHead(zones.get(id));
        }
    }

    // The zones below another show its name.
    function renameParent(parent, name) {
        zones.rows.forEach((row, id) => {
            if (row.fields.parent === parent) {
                change(id, {parentName: name});
            }
        });
    }

    function setMembership(zone, id, isIncluded) {
        const unit = units.get(id);
        if (unit && unit.zones.indexOf(zone) >= 0 !== isIncluded) {
            const others = unit.zones.filter((other) => other !== zone);
            units.set(id, "zones", isIncluded ? others.concat(zone) : others);
        }
    }

    page({
        wrapper_AdminDevice_loadList: () => wrapper.admin_loadDeviceForZonesList(),
        clearAdminZoneList: function () {
            zones.clear();
            subZones.clear();
        },
        wrapperInput_zone_add: function (id, parentId, name, parentName, type) {
            if (id === 1) {
                return;
            }
            const fields = {name: name, parent: parentId, parentName: parentName, type: type};
            zones.add(id, fields);
            subZones.add(id, Object.assign({}, fields));
            change(id, {parent: parentId, parentName: parentName, type: type});
        },
        wrapperInput_zone_select: function (id, name, parentName, type) {
            zones.activate(id);
            showContent(id);
            if (zones.has(id)) {
                $("#zone_id").text(id);
                showHead({parentName: parentName, type: type});
                form.show(id, {name: name});
            }
        },
        wrapperInput_zone_setName: function (id, name, parentName) {
            change(id, {name: name, parentName: parentName});
            renameParent(id, name);
            if (zones.isActive(id)) {
                form.show(id, {name: name});
            }
        },
        wrapperInput_zone_delete: function (id) {
            subZones.remove(id);
            zones.remove(id);
            renameParent(id, top);
        },
        wrapperInput_zone_includeDevice: (zone, id) => setMembership(zone, id, true),
        wrapperInput_zone_excludeDevice: (zone, id) => setMembership(zone, id, false),
        wrapperInput_device_add: (id, name, status) => units.add(id, {name: name, status: status, zones: []}),
        wrapperInput_device_delete: (id) => units.remove(id),
        wrapperInput_device_setName: (id, name) => units.set(id, "name", name),
        wrapperInput_device_linkOff: (id) => units.set(id, "status", 0),
        wrapperInput_device_linkIncoming: (id) => units.set(id, "status", 1),
        wrapperInput_device_linkOn: (id) => units.set(id, "status", 2),
        // Answers false where nothing could be sent.
        saveZone: function (id, name) {
            const isRight = markField("#zone_name", nameError(name)) && Boolean(id);
            return isRight && (wrapper_AdminZone_editZone(Number(id), name), true);
        },
    });

    limitName("#zone_name");
    $("#add_zone").on("click", () => modalAdminAddZoneShow());
    showContent(active);
    wrapper_AdminDevice_loadList();
    wrapper_AdminZone_loadList(false);
})();
