// The thin functions in front of the slots of `wrapper`, by their names: {name: slot}. They pass
// their arguments on as they are, and live as long as the page.

const forwarders = {
    wrapper_Global_exit: "global_exit",
    wrapper_Global_logout: "global_logout",
    wrapper_Global_about: "global_about",
    wrapper_Global_loadFrame: "global_loadFrame",
    wrapper_Global_loadPermissions: "load_permissions",

    // Lists of units and zones, and one unit
    wrapperLoadZoneList: "menu_zoneLoadList",
    wrapperLoadKelpaList: "deviceList_listLoad",
    wrapperLoadSelectKelpaList: "deviceList_listSelectLoad",
    wrapperSetDeviceVolume: "deviceList_setDeviceVolume",
    wrapper_Device_LoadSideList: "menu_loadDeviceInfoList",
    wrapperLoadCurrentDeviceInfo: "menu_loadDeviceInfo",
    wrapperLoadDeviceInfoZoneList: "deviceInfo_loadZoneList",
    wrapper_device_setEqualizer: "deviceInfo_setDeviceEqualizer",
    wrapperDeviceInfoPlay: "deviceList_playAudio",
    wrapperDeviceInfoStop: "deviceList_stopAudio",

    // Playback and broadcasting
    wrapperLoadPlaybackList: "playback_loadList",
    wrapperLoadPlaybackZoneList: "playback_loadZoneList",
    wrapperPlayPlaylistAndTrack: "playback_play",
    wrapperStopPlay: "playback_stop",
    wrapperPausePlay: "playback_pause",
    wrapperStartPlay: "playback_pause",
    wrapperPlayNext: "playback_next",
    wrapperPlayPrev: "playback_prev",
    wrapperPlayNextById: "playback_nextById",
    wrapper_Playback_SetVolume: "playback_setVolume",
    wrapper_Playback_StartRedirection: "playback_startRedirection",
    wrapper_Playback_StopRedirection: "playback_stopRedirection",

    // Administration
    wrapper_Admin_LoadPermissions: "admin_loadPermissions",
    wrapper_AdminUser_LoadList: "admin_loadUserList",
    wrapper_AdminUser_LoadRoleList: "admin_loadRoleList",
    wrapper_AdminUser_LoadUser: "admin_selectUser",
    wrapper_AdminUser_Add: "admin_addUser",
    wrapper_AdminUser_Edit: "admin_editUser",
    wrapper_AdminUser_Delete: "admin_deleteUser",
    wrapper_AdminZone_loadList: "admin_loadZoneList",
    wrapper_AdminZone_loadListForModal: "admin_loadZoneListForModal",
    wrapper_AdminZone_loadZone: "admin_selectZone",
    wrapper_AdminZone_addZone: "admin_addZone",
    wrapper_AdminZone_editZone: "admin_editZone",
    wrapper_AdminZone_deleteZone: "admin_deleteZone",

    // Settings of the client
    wrapper_settings_mediaInit: "settings_media_init",
    wrapper_settings_volumeInit: "settings_volume_init",
};

Object.keys(forwarders).forEach((name) => {
    window[name] = function () {
        // A text may be a password, so the log gets numbers only.
        const shown = [].filter.call(arguments, (argument) => typeof argument !== "string");
        console.log(name + " " + shown.join(" "));
        wrapper[forwarders[name]].apply(wrapper, arguments);
    };
});
