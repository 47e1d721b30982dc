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

// What a page with such a box answers to.
function zoneOptions() {
    return {
        wrapperInput_zone_add: function (id, parentId, name, parentName) {
            if (id !== 1 && zoneOption(id).length === 0) {
                $("<option>").val(id).text(zoneOptionText(name, parentName)).appendTo("#zone_select");
            }
        },
        wrapperInput_zone_setName: function (id, name, parentName) {
            renameOption(zoneOption(id), zoneOptionText(name, parentName));
        },
        wrapperInput_zone_delete: function (id) {
            const wasChosen = chosenZone() === id;
            zoneOption(id).remove();
            if (wasChosen) {
                $("#zone_select").val(0).trigger("change");
            }
        },
    };
}
