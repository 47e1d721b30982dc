// Thin functions in front of the slots of the home page.

function wrapperLoadZoneList() {
    console.log("wrapperLoadZoneList");
    wrapper.menu_zoneLoadList();
}

function wrapperLoadKelpaList() {
    console.log("wrapperLoadKelpaList");
    wrapper.deviceList_listLoad();
}

function wrapperLoadSelectKelpaList() {
    console.log("wrapperLoadSelectKelpaList");
    wrapper.deviceList_listSelectLoad();
}

function wrapperSetDeviceVolume(device, volume) {
    console.log("wrapperSetDeviceVolume " + device + " " + volume);
    wrapper.deviceList_setDeviceVolume(device, volume);
}

function wrapperLoadDeviceInfo(id) {
    deviceForLoad = id;
    loadMainBody("device_info");
    loadSideMenu("device_list");
    loadTopMenu("device_info");
    loadBotMenu("device_info");
    loadModal("device_info");
}
