// The home page: one tile a unit, with its health.

(function () {
    function health(field) {
        return (id, value) => cards.set(id, field, value);
    }

    page(
        unitCards(
            {
                wrapperInput_device_setLinesStatus: health("lines"),
                wrapperInput_device_setBattery: health("battery"),
                wrapperInput_device_setBatteryLevel: health("batteryLevel"),
                wrapperInput_device_setPower: health("power"),
                wrapperInput_device_setHull: health("hull"),
            },
            {
                icons: ["playing", "task", "lines", "battery", "power", "hull", "button"],
                hasVolumeBelow: true,
                withoutPlaybacks: true,
                open: (id) => wrapperLoadDeviceInfo(id),
            }
        )
    );
    wrapperLoadZoneList();
    wrapperLoadKelpaList();
})();
