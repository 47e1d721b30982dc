// What each management right of the operator's role shows of the administration.

(function () {
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

    page({
        wrapperInput_roleGlobal_editServerManagement: function (id, name, value) {
            showAdminEntries(["admin_server", "admin_log"], value);
        },
        wrapperInput_roleGlobal_editUserManagement: function (id, name, value) {
            showAdminEntries(["admin_users"], value);
        },
        wrapperInput_roleGlobal_editRoleManagement: function (id, name, value) {
            showAdminEntries(["admin_roles"], value);
        },
        wrapperInput_roleGlobal_editZoneManagement: function (id, name, value) {
            showAdminEntries(["admin_zones"], value);
            // The form of a unit goes by this right, too.
            if (typeof wrapperInput_roleGlobal_deviceZoneManagement === "function") {
                wrapperInput_roleGlobal_deviceZoneManagement(Number(value));
            }
        },
        wrapperInput_roleGlobal_editDeviceManagement: function (id, name, value) {
            showAdminEntries(
                ["admin_devices", "admin_devices_memory", "admin_devices_firmware", "admin_devices_line_control"],
                value
            );
        },
        wrapperInput_roleGlobal_editPlaybackManagement: function (id, name, value) {
            showAdminEntries(["admin_playback"], value);
        },
        wrapperInput_roleGlobal_editScheduleManagement: function (id, name, value) {
            showAdminEntries(["admin_tasks"], value);
        },
        wrapperInput_roleGlobal_editPresetManagement: function (id, name, value) {
            showAdminEntries(["admin_presets"], value);
        },
    });
})();
