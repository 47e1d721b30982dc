// The regions of the frame: what is loaded into them, and the functions that a fragment answers to
// while it is on show.

const regions = (function () {
    // A name that several regions answer to is called in this order.
    const order = [
        "frame",
        "#top_menu",
        "#side_menu",
        "#main",
        "#bot_menu",
        "#modal",
        "#block",
        "#microphoneBlock",
        "#warningBlock",
        "#add_server",
    ];
    const listeners = {}; // per name, its functions by region
    const replaced = {}; // the session's own functions, which a fragment may have in another way
    const loads = {}; // per region, the number of the load that counts
    let current = "frame"; // the region whose fragment is being put in

    // One that fails doesn't keep the others from being called.
    function callAll(functions) {
        return function () {
            let result;
            functions.forEach((one) => {
                try {
                    result = one.apply(null, arguments);
                } catch (error) {
                    console.error(error);
                }
            });
            return result;
        };
    }

    // Makes the name a function of the window, as long as some region answers to it.
    function install(name) {
        const functions = order.filter((region) => listeners[name][region]).map((region) => listeners[name][region]);
        if (functions.length === 0) {
            delete listeners[name];
            delete window[name];
            if (replaced[name]) {
                window[name] = replaced[name];
            }
        } else {
            window[name] = functions.length === 1 ? functions[0] : callAll(functions);
        }
    }

    function declare(functions) {
        Object.keys(functions).forEach((name) => {
            if (!listeners[name] && typeof window[name] === "function") {
                replaced[name] = window[name];
            }
            const known = (listeners[name] = listeners[name] || {});
            if (known[current]) {
                throw new Error("Declared twice in " + current + ": " + name);
            }
            known[current] = functions[name];
            install(name);
        });
    }

    function forget(region) {
        Object.keys(listeners).forEach((name) => {
            if (listeners[name][region]) {
                delete listeners[name][region];
                install(name);
            }
        });
    }

    // Takes away what a region holds. Its fragment hears "leave" first, to end what it has under way.
    function empty(region) {
        $(region).find(".modal").each(endDialog);
        $(region).triggerHandler("leave");
        $(region).off("leave");
        forget(region);
        undressSelects(region);
        $(region).empty();
        forgetUndressed();
    }

    function put(region, text) {
        empty(region);
        current = region;
        try {
            $(region).html(text);
        } finally {
            current = "frame";
        }
    }

    // Fills a region with a fragment, or empties it where there is none. Of two loads under way the
    // later one counts.
    function load(region, path) {
        const number = (loads[region] || 0) + 1;
        loads[region] = number;
        $.ajax({url: path, dataType: "html"}).always((first, status) => {
            const text = status === "success" ? first : first.responseText;
            if (loads[region] === number) {
                put(region, text || "");
            }
        });
    }

    return {
        load: load,
        declare: declare,
        // Where the fragment that is being loaded stands; the frame's own dialogs hang on the body.
        place: () => (current === "frame" ? "body" : current),
        // For tests: {name: {region: number of arguments}}
        declared: function () {
            const result = {};
            Object.keys(listeners).forEach((name) => {
                result[name] = {};
                Object.keys(listeners[name]).forEach((region) => {
                    result[name][region] = listeners[name][region].length;
                });
            });
            return result;
        },
    };
})();

// Declares what native code and other fragments may call while the fragment that is being loaded is
// on show: {name: function, …}. The names go with it.
function page(functions) {
    regions.declare(functions);
}

// The select library keeps the chosen option of each box in a store of its own, where it would hold
// the box, and with it all that the box stood in, for good.

function undressSelects(region) {
    $(region)
        .find("select.select2-hidden-accessible")
        .each(function () {
            $(this).select2("close").select2("destroy");
        });
}

function forgetUndressed() {
    if (!$.fn.select2) {
        return;
    }
    const store = $.fn.select2.amd.require("select2/utils").__cache;
    Object.keys(store).forEach((id) => {
        if (!document.querySelector("[data-select2-id='" + id + "']")) {
            delete store[id];
        }
    });
}

function loadTopMenu(name) {
    regions.load("#top_menu", "menu/top/" + name + ".html");
}

function loadSideMenu(name) {
    regions.load("#side_menu", "menu/side/" + name + ".html");
}

function loadMainBody(name) {
    regions.load("#main", name + ".html");
}

function loadBotMenu(name) {
    regions.load("#bot_menu", "menu/bot/" + name + ".html");
}

function loadModal(name) {
    regions.load("#modal", "modal/" + name + ".html");
}

function loadBlock() {
    regions.load("#block", "modal/block.html");
    regions.load("#microphoneBlock", "modal/microphone_access.html");
    regions.load("#warningBlock", "modal/warning_access.html");
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
    setTimeout(() => showTab(id), 500);
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
        .on("click", () => action());
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
        setTimeout(() => whenWrapperIsThere(action), 100);
    } else {
        action();
    }
}
