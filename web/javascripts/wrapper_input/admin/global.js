// What each management right of the operator's role shows of the administration.

// Leaves the section on show if its entry has just gone.
function leaveLostSection() {
    if ($(".admin_menu_active").hasClass("hidden")) {
        leaveForHomePage();
    }
}

function showAdminEntries(ids, value) {
    ids.forEach(function (id) {
        $("#" + id).toggleClass("hidden", Number(value) !== 1);
    });
    leaveLostSection();
}

function wrapperInput_roleGlobal_editServerManagement(id, name, value) {
    showAdminEntries(["admin_server", "admin_log"], value);
}

function wrapperInput_roleGlobal_editUserManagement(id, name, value) {
    showAdminEntries(["admin_users"], value);
}

function wrapperInput_roleGlobal_editRoleManagement(id, name, value) {
    showAdminEntries(["admin_roles"], value);
}

function wrapperInput_roleGlobal_editZoneManagement(id, name, value) {
    showAdminEntries(["admin_zones"], value);
    if (typeof wrapperInput_roleGlobal_deviceZoneManagement === "function") {
        wrapperInput_roleGlobal_deviceZoneManagement(Number(value));
    }
}

function wrapperInput_roleGlobal_editDeviceManagement(id, name, value) {
    showAdminEntries(
        ["admin_devices", "admin_devices_memory", "admin_devices_firmware", "admin_devices_line_control"],
        value
    );
}

function wrapperInput_roleGlobal_editPlaybackManagement(id, name, value) {
    showAdminEntries(["admin_playback"], value);
}

function wrapperInput_roleGlobal_editScheduleManagement(id, name, value) {
    showAdminEntries(["admin_tasks"], value);
}

function wrapperInput_roleGlobal_editPresetManagement(id, name, value) {
    showAdminEntries(["admin_presets"], value);
}
