// The session frame: its start, its menu, its alarm icons.

function loadAll() {
    whenWrapperIsThere(function () {
        loadHomePage();
        loadBlock();
        wrapper_Global_loadFrame();
    });
}

function openMenuEntry(id, action) {
    $("#" + id).on("click", function () {
        $("#menu").hide();
        action();
    });
}

$(document).ready(function () {
    $("#global_user_name").on("click", function () {
        $("#menu").toggle();
    });
    $("#menu").on("mouseleave", function () {
        $("#menu").hide();
    });
    openMenuEntry("menu_settings", function () {
        loadSideMenu("settings");
        loadMainBody("settings/files");
        loadBotMenu("settings/files");
        loadTopMenu("settings");
        loadModal("settings");
    });
    openMenuEntry("menu_admin", function () {
        loadSideMenu("admin");
        loadTopMenu("admin/index");
    });
    openMenuEntry("menu_about", function () {
        modalShowVersion();
    });
    openMenuEntry("menu_change_user", wrapper_Global_logout);
    openMenuEntry("menu_exit", wrapper_Global_exit);
    $("#translation").on("click", function () {
        warningBlock();
    });
    $("#microphone_alarm").on("click", function () {
        microphoneBlock();
    });
    $("#loadingModal").modal("show");
    setTimeout(loadAll, 100);
});
