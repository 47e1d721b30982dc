// Thin functions in front of the slots of the device page.

function wrapper_Device_LoadSideList() {
    console.log("wrapper_Device_LoadSideList");
    wrapper.menu_loadDeviceInfoList();
}

function wrapperLoadCurrentDeviceInfo(id) {
    console.log("wrapperLoadCurrentDeviceInfo " + id);
    wrapper.menu_loadDeviceInfo(id);
}

function wrapperLoadDeviceInfoZoneList() {
    console.log("wrapperLoadDeviceInfoZoneList");
    wrapper.deviceInfo_loadZoneList();
}

function wrapper_device_setEqualizer(id, levels) {
    console.log("wrapper_device_setEqualizer " + id + " " + levels.join());
    wrapper.deviceInfo_setDeviceEqualizer(id, levels);
}

function wrapperDeviceInfoPlay(id, audioId, type) {
    console.log("wrapperDeviceInfoPlay " + id + " " + audioId + " " + type);
    wrapper.deviceList_playAudio(id, audioId, type);
}

function wrapperDeviceInfoStop(deviceId) {
    console.log("wrapperDeviceInfoStop " + deviceId);
    wrapper.deviceList_stopAudio(deviceId);
}
