// The zones in the side menu, and the filter of the cards by them. Other regions have elements of
// the same ids, so this one looks for its own in itself.

(function () {
    const activeZones = ".zone_active, .zone_hard_active, .zone_logic_active";

    function own(name, id) {
        return $("#side_menu #" + name + "_" + id);
    }

    // How many units each zone has, those of the zones below it included.
    const zones = new Map(); // per zone: {parent, count, label}
    const counted = new Map(); // per unit, the zones that it counts in
    let recount = null; // the timer of counting all anew

    function zonesAbove(unit) {
        const above = new Set([0]);
        unit.zones.forEach((zone) => {
            for (let id = zone; zones.has(id) && !above.has(id); id = zones.get(id).parent) {
                above.add(id);
            }
        });
        return above;
    }

    function addToCount(id, step) {
        const zone = zones.get(id);
        if (zone) {
            zone.count += step;
            paintCount(zone);
        }
    }

    function paintCount(zone) {
        if (recount === null) {
            zone.label.textContent = zone.count;
        }
    }

    function countUnit(id) {
        const unit = cards && cards.list ? cards.list.get(id) : undefined;
        const before = counted.get(id) || new Set();
        const now = unit ? zonesAbove(unit) : new Set();
        before.forEach((zone) => now.has(zone) || addToCount(zone, -1));
        now.forEach((zone) => before.has(zone) || addToCount(zone, 1));
        counted.delete(id);
        if (unit) {
            counted.set(id, now);
        }
    }

    // Begins anew: another page's units, or another tree of zones. A tree that changes zone by zone
    // is counted once, behind the last.
    function countAll() {
        counted.clear();
        zones.forEach((zone) => (zone.count = 0));
        if (cards && cards.list) {
            cards.list.items.forEach((unit) => countUnit(unit.id));
        }
        clearTimeout(recount);
        recount = null;
        zones.forEach(paintCount);
    }

    function countSoon() {
        if (recount === null) {
            recount = setTimeout(countAll, 0);
        }
    }

    function forgetZone(id) {
        zones.forEach((zone) => (zone.parent = zone.parent === id ? 0 : zone.parent));
        zones.delete(id);
        countSoon();
    }

    // The label of a zone's count.
    function zoneCount(id) {
        const label = $("<span class='zone_count digits'>").attr("title", "Устройств, со вложенными зонами").text("0");
        zones.set(id, {parent: 0, count: 0, label: label[0]});
        return label;
    }

    // A zone without zones below has nothing to expand.
    function showExpander(id) {
        var isLeaf = own("sub_zone", id).children().length === 0;
        own("zone_expand", id)
            .toggleClass("fa-volume-up", isLeaf)
            .toggleClass("fa-minus-square-o", !isLeaf && !own("zone_expand", id).hasClass("fa-plus-square-o"));
    }

    function parentOf(id) {
        return Number((own("zone", id).parent().attr("id") || "").substr("sub_zone_".length));
    }

    function zoneRow(id, name) {
        return $("<div class='zone'>")
            .attr({id: "zone_" + id, title: name})
            .append(
                $("<i class='fa fa-volume-up zone_expand'>")
                    .attr("id", "zone_expand_" + id)
                    .on("click", (event) => menu_ZoneExpand(id, event)),
                $("<span class='zone_name ellipsis'>").attr("id", "zone_name_" + id).text(name),
                zoneCount(id)
            )
            .on("click", () => menu_ZoneSelect(id))
            .add($("<div class='sub_zone'>").attr("id", "sub_zone_" + id));
    }

    function colour(id, type) {
        const zone = own("zone", id);
        const wasActive = zone.is(".zone_hard_active, .zone_logic_active");
        const name = type === 0 ? "zone_hard" : "zone_logic";
        zone.removeClass("zone_hard zone_logic zone_hard_active zone_logic_active").addClass(name);
        zone.toggleClass(name + "_active", wasActive);
    }

    // Below its parent, or at the top where that isn't known, or is below the zone itself.
    function moveTo(id, parentId) {
        const below = own("sub_zone", parentId);
        const isSound = below.length > 0 && below.closest(own("sub_zone", id)).length === 0;
        const place = isSound ? below : own("sub_zone", 0);
        const formerParent = parentOf(id);
        if (!own("zone", id).parent().is(place)) {
            place.append(own("zone", id), own("sub_zone", id));
            showExpander(formerParent);
            showExpander(parentId);
            zones.get(id).parent = Number(place.attr("id").substr("sub_zone_".length));
            countSoon();
        }
    }

    page({
        menu_countUnit: countUnit,
        menu_countAll: countSoon,
        menu_unitsOfZone: function (id) {
            if (recount !== null) {
                countAll();
            }
            return zones.has(id) ? zones.get(id).count : 0;
        },
        menu_chosenZone: () => Number(($("#zone_menu").find(activeZones).attr("id") || "zone_0").substr("zone_".length)),
        menu_ZoneAdd: function (id, name) {
            $("#zone_menu").append(
                $("<div class='zone zone_active'>")
                    .attr("id", "zone_" + id)
                    .append($("<i class='fa fa-volume-up'>"), $("<span class='zone_name ellipsis'>").text(name), zoneCount(id))
                    .on("click", () => menu_ZoneSelectAll()),
                $("<div>").attr("id", "sub_zone_" + id)
            );
            showCardsOfZone(0);
        },
        // A known one moves or changes its colour where its parent or its type has changed.
        wrapperInput_zone_add: function (id, parentId, name, parentName, type) {
            if (own("zone", id).length === 0) {
                zoneRow(id, name).appendTo("#zone_menu");
            }
            colour(id, type);
            moveTo(id, parentId);
        },
        wrapperInput_zone_setName: function (id, name) {
            own("zone", id).attr("title", name);
            own("zone_name", id).text(name);
        },
        // A zone that goes takes the choice of it along, and leaves the zones below it.
        wrapperInput_zone_delete: function (id) {
            const wasActive = own("zone", id).is(".zone_hard_active, .zone_logic_active");
            const parentId = parentOf(id);
            own("sub_zone", id).children().appendTo(own("sub_zone", 0));
            own("zone", id).add(own("sub_zone", id)).remove();
            showExpander(parentId);
            forgetZone(id);
            if (wasActive) {
                menu_ZoneSelectAll();
            }
        },
        menu_ZoneSelect: function (id) {
            var zone = own("zone", id);
            $("#zone_menu .zone").removeClass("zone_active zone_hard_active zone_logic_active");
            if (id === 0) {
                zone.addClass("zone_active");
            } else {
                zone.addClass(zone.hasClass("zone_hard") ? "zone_hard_active" : "zone_logic_active");
            }
            showCardsOfZone(id);
        },
        menu_ZoneSelectAll: function () {
            menu_ZoneSelect(0);
        },
        menu_ZoneExpand: function (id, event) {
            if (own("zone_expand", id).hasClass("fa-volume-up")) {
                return;
            }
            event.stopPropagation();
            own("zone_expand", id).toggleClass("fa-plus-square-o fa-minus-square-o");
            own("sub_zone", id).toggle();
        },
    });

    $("#side_menu").on("leave", () => clearTimeout(recount));
    menu_ZoneAdd(0, "Все зоны");
    countSoon();
    wrapperLoadZoneList();
})();
