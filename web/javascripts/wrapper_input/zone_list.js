// The zones in the side menu, and the filter of the cards by them.

function menu_ZoneAdd(id, name) {
    $("#zone_menu").append(
        $("<div class='zone zone_active'>")
            .attr("id", "zone_" + id)
            .append($("<i class='fa fa-volume-up'>"), $("<span class='zone_name ellipsis'>").text(name))
            .on("click", menu_ZoneSelectAll),
        $("<div>").attr("id", "sub_zone_" + id)
    );
    showCardsOfZone(".zone_device", 0);
}

function wrapperInput_zone_add(id, parentId, name, parentName, type) {
    if ($("#zone_" + id).length) {
        return;
    }
    $("#sub_zone_" + parentId).append(
        $("<div class='zone'>")
            .attr({id: "zone_" + id, title: name})
            .addClass(type === 0 ? "zone_hard" : "zone_logic")
            .append(
                $("<i class='fa fa-volume-up zone_expand'>")
                    .attr("id", "zone_expand_" + id)
                    .on("click", function (event) {
                        menu_ZoneExpand(id, event);
                    }),
                $("<span class='zone_name ellipsis'>").attr("id", "zone_name_" + id).text(name)
            )
            .on("click", function () {
                menu_ZoneSelect(id);
            }),
        $("<div class='sub_zone'>").attr("id", "sub_zone_" + id)
    );
    showExpander(parentId);
}

// A zone without zones below has nothing to expand.
function showExpander(id) {
    var isLeaf = $("#sub_zone_" + id).children().length === 0;
    $("#zone_expand_" + id)
        .toggleClass("fa-volume-up", isLeaf)
        .toggleClass("fa-minus-square-o", !isLeaf && !$("#zone_expand_" + id).hasClass("fa-plus-square-o"));
}

function wrapperInput_zone_setName(id, name) {
    $("#zone_" + id).attr("title", name);
    $("#zone_name_" + id).text(name);
}

// A zone that goes takes the choice of it along.
function wrapperInput_zone_delete(id) {
    var wasActive = $("#zone_" + id).is(".zone_hard_active, .zone_logic_active");
    var parentId = ($("#zone_" + id).parent().attr("id") || "").substr("sub_zone_".length);
    $("#zone_" + id + ", #sub_zone_" + id).remove();
    showExpander(parentId);
    if (wasActive) {
        menu_ZoneSelectAll();
    }
}

function menu_ZoneSelect(id) {
    var zone = $("#zone_" + id);
    $(".zone").removeClass("zone_active zone_hard_active zone_logic_active");
    if (id === 0) {
        zone.addClass("zone_active");
    } else {
        zone.addClass(zone.hasClass("zone_hard") ? "zone_hard_active" : "zone_logic_active");
    }
    showCardsOfZone(".zone_device", id);
}

function menu_ZoneSelectAll() {
    menu_ZoneSelect(0);
}

function menu_ZoneExpand(id, event) {
    if ($("#zone_expand_" + id).hasClass("fa-volume-up")) {
        return;
    }
    event.stopPropagation();
    $("#zone_expand_" + id).toggleClass("fa-plus-square-o fa-minus-square-o");
    $("#sub_zone_" + id).toggle();
}

function openZoneMenu() {
    menu_ZoneAdd(0, "Все зоны");
    wrapperLoadZoneList();
}
