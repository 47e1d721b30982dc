// The zones as a select box: a filter of the cards.

// The box with its "Все зоны"; `choose` gets the id of the zone that the operator picks.
function zoneSelect(choose) {
    return $("<select id='zone_select'>")
        .append($("<option>").val(0).text("Все зоны"))
        .on("change", function () {
            choose(Number(this.value));
        });
}

function dressZoneSelect(isDisabled) {
    $("#zone_select").prop("disabled", isDisabled).select2({language: "ru", width: "220px", minimumResultsForSearch: 8});
}

function chosenZone() {
    return Number($("#zone_select").val()) || 0;
}

function zoneOption(id) {
    return $("#zone_select option[value='" + id + "']");
}

function zoneOptionText(name, parentName) {
    return parentName && parentName !== "Все зоны" ? parentName + " / " + name : name;
}

// The box shows its chosen option's text anew.
function refreshZoneSelect() {
    $("#zone_select").trigger("change.select2");
}

function wrapperInput_zone_add(id, parentId, name, parentName) {
    if (id !== 1 && zoneOption(id).length === 0) {
        $("<option>").val(id).text(zoneOptionText(name, parentName)).appendTo("#zone_select");
    }
}

function wrapperInput_zone_setName(id, name, parentName) {
    renameOption(zoneOption(id), zoneOptionText(name, parentName));
}

function wrapperInput_zone_delete(id) {
    var wasChosen = chosenZone() === id;
    zoneOption(id).remove();
    if (wasChosen) {
        $("#zone_select").val(0).trigger("change");
    }
}
