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

    // Tasks
    wrapper_Task_LoadList: "task_loadList",
    wrapper_Task_Load: "task_loadTask",
    wrapper_AdminTask_loadList: "admin_loadTaskList",
    wrapper_AdminTask_loadTask: "admin_selectTask",
    wrapper_AdminTask_loadWeekDays: "admin_loadTaskWeekDays",
    wrapper_AdminTask_addTask: "admin_addTask",
    wrapper_AdminTask_editTask: "admin_editTask",
    wrapper_AdminTask_copyTask: "admin_copyTask",
    wrapper_AdminTask_deleteTask: "admin_deleteTask",
    wrapper_AdminTask_enableTask: "admin_enableTask",

    // Presets
    wrapper_Preset_LoadList: "preset_loadList",
    wrapper_Preset_LoadDevices: "preset_loadDevices",
    wrapper_Preset_StartPreset: "preset_startPlay",

    // Administration
    wrapper_AdminPreset_loadList: "admin_loadPresetList",
    wrapper_AdminPreset_loadPreset: "admin_selectPreset",
    wrapper_AdminPreset_addPreset: "admin_addPreset",
    wrapper_AdminPreset_editPreset: "admin_editPreset",
    wrapper_AdminPreset_copyPreset: "admin_copyPreset",
    wrapper_AdminPreset_deletePreset: "admin_deletePreset",
    wrapper_Admin_LoadPermissions: "admin_loadPermissions",
    wrapper_AdminUser_LoadList: "admin_loadUserList",
    wrapper_AdminUser_LoadRoleList: "admin_loadRoleList",
    wrapper_AdminUser_LoadUser: "admin_selectUser",
    wrapper_AdminUser_Add: "admin_addUser",
    wrapper_AdminUser_Edit: "admin_editUser",
    wrapper_AdminUser_Delete: "admin_deleteUser",
    wrapper_AdminPlayback_addPlaylist: "admin_addPlaylist",
    wrapper_AdminPlayback_addTrack: "admin_addTrack",
    wrapper_AdminPlayback_editTrackOrPlaylist: "admin_editTrackOrPlaylist",
    wrapper_AdminPlayback_deleteTrack: "admin_deleteTrack",
    wrapper_AdminPlayback_deletePlaylist: "admin_deletePlaylist",
    wrapper_AdminPlayback_uploadList: "admin_uploadList",
    wrapper_AdminPlaylist_loadList: "admin_loadPlaylistList",
    wrapper_AdminPlaylist_loadTracks: "admin_loadPlaylistTracks",
    wrapper_AdminPlayback_loadDrives: "admin_loadDrives",
    wrapper_AdminPlayback_loadPath: "admin_loadPath",
    wrapper_AdminDevice_loadDrives: "admin_loadDrives",
    wrapper_AdminDevice_loadPath: "admin_loadPath",
    wrapper_settings_loadDrives: "admin_loadDrives",
    wrapper_settings_loadPath: "admin_loadPath",
    wrapper_AdminZone_loadList: "admin_loadZoneList",
    wrapper_AdminZone_loadListForModal: "admin_loadZoneListForModal",
    wrapper_AdminZone_loadZone: "admin_selectZone",
    wrapper_AdminZone_addZone: "admin_addZone",
    wrapper_AdminZone_editZone: "admin_editZone",
    wrapper_AdminZone_deleteZone: "admin_deleteZone",
    wrapper_AdminDevice_selectDevice: "admin_selectDevice",
    wrapper_AdminDevice_findLost: "admin_findLostDevices",
    wrapper_AdminDevice_deleteDevice: "admin_deleteDevice",
    wrapper_AdminDevice_replaceDevice: "admin_replaceDevice",
    wrapper_AdminDevice_setName: "admin_editDeviceName",
    wrapper_AdminDevice_setEqualizer: "admin_setDeviceEqualizer",
    wrapper_AdminDevice_setVolume: "deviceList_setDeviceVolume",
    wrapper_AdminDevice_changeDeviceDHCPMode: "admin_changeDeviceDHCPMode",
    wrapper_AdminDevice_reboot: "admin_rebootDevice",
    wrapper_AdminDevice_measureLine: "admin_measureDeviceLine",
    wrapper_AdminDevice_getDebugInfo: "admin_getDebugInfo",
    wrapper_AdminDevice_selectLineControlDevice: "admin_selectLineControlDevice",
    wrapper_AdminDevice_getLineControl: "admin_getLineControlForDevice",
    wrapper_device_getLineControl: "admin_getLineControlForDevice",
    wrapper_AdminDevice_addLineControl: "admin_addLineControlForDevice",
    wrapper_AdminDevice_addLineControls: "admin_addLineControlForDevices",
    wrapper_AdminDevice_deleteLineControl: "admin_deleteLineControlForDevice",
    wrapper_AdminDevice_deleteLineControls: "admin_deleteLineControlForDevices",
    wrapper_AdminDevice_editLineControl: "admin_editLineControlForDevice",

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
