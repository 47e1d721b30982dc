// The session frame: its start, its menu, its alarm icons.

function loadAll() {
    whenWrapperIsThere(function () {
        loadHomePage();
        loadBlock();
        wrapper_Global_loadFrame();
    });
}

// The user's menu. Whoever works it by keys is taken into it, and back to where it was opened.

function closeMenu() {
    if ($("#menu").find(document.activeElement).length) {
        $("#global_user_name").focus();
    }
    $("#menu").hide();
}

function toggleMenu() {
    if ($("#menu").is(":visible")) {
        closeMenu();
        return;
    }
    $("#menu").show();
    if ($(document.activeElement).is("#global_user_name")) {
        $(".menu_entry:visible").attr("tabindex", 0).first().focus();
    }
}

function walkMenu(event) {
    var step = {38: "prevAll", 40: "nextAll"}[event.which];
    if (step) {
        $(document.activeElement)[step](".menu_entry:visible").first().focus();
    }
}

function buildMenu() {
    $("#global_user_name").on("click", toggleMenu);
    $("#menu").on("mouseleave", closeMenu).on("keydown", walkMenu);
    $(document).on("mousedown keydown", function (event) {
        if (event.which === 27 || (event.type === "mousedown" && !$(event.target).closest("#menu, #global_user_name").length)) {
            closeMenu();
        }
    });
}

function openMenuEntry(id, action) {
    $("#" + id).on("click", function () {
        closeMenu();
        action();
    });
}

$(document).ready(function () {
    buildMenu();
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
    openMenuEntry("menu_change_user", () => wrapper_Global_logout());
    openMenuEntry("menu_exit", () => wrapper_Global_exit());
    $("#translation").on("click", function () {
        warningBlock();
    });
    $("#microphone_alarm").on("click", function () {
        microphoneBlock();
    });
    $("#loadingModal").modal("show");
    setTimeout(loadAll, 100);
});
