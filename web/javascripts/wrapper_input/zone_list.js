// The zones in the side menu, and the filter of the cards by them. Other regions have elements of
// the same ids, so this one looks for its own in itself.

(function () {
    function own(name, id) {
        return $("#side_menu #" + name + "_" + id);
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
                $("<span class='zone_name ellipsis'>").attr("id", "zone_name_" + id).text(name)
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
        }
    }

    page({
        menu_ZoneAdd: function (id, name) {
            $("#zone_menu").append(
                $("<div class='zone zone_active'>")
                    .attr("id", "zone_" + id)
                    .append($("<i class='fa fa-volume-up'>"), $("<span class='zone_name ellipsis'>").text(name))
                    .on("click", () => menu_ZoneSelectAll()),
                $("<div>").attr("id", "sub_zone_" + id)
            );
            showCardsOfZone(".zone_device", 0);
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
            if (wasActive) {
                menu_ZoneSelectAll();
            }
        },
        menu_ZoneSelect: function (id) {
            var zone = own("zone", id);
            $(".zone").removeClass("zone_active zone_hard_active zone_logic_active");
            if (id === 0) {
                zone.addClass("zone_active");
            } else {
                zone.addClass(zone.hasClass("zone_hard") ? "zone_hard_active" : "zone_logic_active");
            }
            showCardsOfZone(".zone_device", id);
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

    menu_ZoneAdd(0, "Все зоны");
    wrapperLoadZoneList();
})();
