// The home page: one tile a unit, with its health.

page(
    unitCards({
        wrapperInput_device_add: function (id, name, status, volume, playback) {
            if (findCard(id)) {
                return;
            }
            var battery = $("<span class='btn tile_icon btn-danger'>")
                .attr({id: "device_battery_" + id, title: "АКБ"})
                .append($("<i class='fa fa-battery-0'>").attr("id", "device_battery_level_" + id));
            var icons = $("<div class='tile_icons'>").append(
                playingIcon(id, playback),
                taskIcon(id),
                tileIcon(id, "lines", "fa-volume-up", "Линии").addClass("btn-success"),
                battery,
                tileIcon(id, "power", "fa-bolt", "Сеть 220 В").addClass("btn-danger"),
                tileIcon(id, "hull", "fa-unlock-alt", "Крышка корпуса").addClass("btn-danger"),
                selectIcon(id)
            );
            addCard(id, name, status, [icons, volumeBar(id)], wrapperLoadDeviceInfo);
            wrapperInput_device_setVolume(id, volume);
        },
        wrapperInput_device_setLinesStatus: function (id, state) {
            setMode("#device_lines_" + id, state === 1 ? "btn-success" : "btn-danger");
        },
        wrapperInput_device_setBattery: function (id, status) {
            setMode("#device_battery_" + id, {2: "btn-success", 1: "btn-warning"}[status] || "btn-danger");
        },
        wrapperInput_device_setBatteryLevel: function (id, level) {
            var step = level >= 100 ? 4 : level > 75 ? 3 : level > 50 ? 2 : level > 25 ? 1 : 0;
            setOneClass(
                "#device_battery_level_" + id,
                ["fa-battery-0", "fa-battery-1", "fa-battery-2", "fa-battery-3", "fa-battery-4"],
                "fa-battery-" + step
            );
            $("#device_battery_" + id).attr("title", "АКБ: " + level + "%");
        },
        wrapperInput_device_setPower: function (id, status) {
            setMode("#device_power_" + id, status === 1 ? "btn-success" : "btn-danger");
        },
        wrapperInput_device_setHull: function (id, status) {
            setMode("#device_hull_" + id, status === 1 ? "btn-success" : "btn-danger");
        },
    })
);
openWall();
wrapperLoadZoneList();
wrapperLoadKelpaList();
