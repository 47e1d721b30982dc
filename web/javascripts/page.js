// The loaders of the frame's regions.

var regionLoads = {}; // per region, the number of the load that counts
var regionNotices = {}; // per region, the functions of the notices that its fragment declared
var loadingRegion = null; // the region whose fragment is being put in

// Puts a fragment in. The one that goes hears "leave" at its region, to end what it has under way.
function openRegionFragment(region, text) {
    $(region).find(".modal").each(endDialog);
    (regionNotices[region] || []).forEach(function (name) {
        delete window[name];
    });
    regionNotices[region] = [];
    $(region).triggerHandler("leave");
    $(region).off("leave");
    loadingRegion = region;
    $(region).html(text);
    loadingRegion = null;
}

// Fills a region with a fragment, or empties it where there is none. Of two loads under way the
// later one counts.
function loadRegion(region, path) {
    var load = (regionLoads[region] || 0) + 1;
    regionLoads[region] = load;
    $.ajax({url: path, dataType: "html"}).always(function (first, status) {
        var text = status === "success" ? first : first.responseText;
        if (regionLoads[region] === load) {
            openRegionFragment(region, text || "");
        }
    });
}

function loadTopMenu(name) {
    loadRegion("#top_menu", "menu/top/" + name + ".html");
}

function loadSideMenu(name) {
    loadRegion("#side_menu", "menu/side/" + name + ".html");
}

function loadMainBody(name) {
    loadRegion("#main", name + ".html");
}

function loadBotMenu(name) {
    loadRegion("#bot_menu", "menu/bot/" + name + ".html");
}

function loadModal(name) {
    loadRegion("#modal", "modal/" + name + ".html");
}

function loadBlock() {
    loadRegion("#block", "modal/block.html");
    loadRegion("#microphoneBlock", "modal/microphone_access.html");
    loadRegion("#warningBlock", "modal/warning_access.html");
}

function loadHomePage() {
    loadSideMenu("zone_list");
    loadMainBody("device_list");
    loadBotMenu("device_list");
    loadTopMenu("device_list");
}

// Marks a tab as the one on show.
function showTab(id) {
    $(".top_menu div").hide();
    $(".top_tab").removeClass("active");
    $("#" + id).addClass("active");
    $("#" + id + "_label").show();
}

// Native code switches a page by itself: the tab follows once the page's top menu is there.
function changeMenu(id) {
    setTimeout(function () {
        showTab(id);
    }, 500);
}

// Leaves a section that the operator may no longer use. The screen lock stays as it is.
function leaveForHomePage() {
    loadModal("device_list");
    loadHomePage();
    $(".modal").not("#blockModal, #blockModalWrongPassword").modal("hide");
    modalAdminRolePermissionLost();
}

function barButton(id, kind, icon, text, action) {
    return $("<button type='button' class='btn'>")
        .attr("id", id)
        .addClass(kind)
        .append($("<i class='fa'>").addClass(icon), document.createTextNode(" " + text))
        .on("click", function () {
            action();
        });
}

// Puts "Назад" into the bottom bar, which leads to the home page or where `back` says, and
// "Сохранить" where there is something to `save`.
function buildBackBar(save, back) {
    if (save) {
        barButton("save", "btn-primary push_right", "fa-check", "Сохранить", save).prependTo("#bot_menu");
    }
    barButton("back", "btn-default", "fa-chevron-left", "Назад", back || loadHomePage).prependTo("#bot_menu");
}

// Waits until native code has published its object.
function whenWrapperIsThere(action) {
    if (typeof wrapper === "undefined") {
        setTimeout(function () {
            whenWrapperIsThere(action);
        }, 100);
    } else {
        action();
    }
}
