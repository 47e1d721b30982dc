// The list of all units at the side of the page of one of them.

(function () {
    const states = ["offline", "incoming", "online"];
    const activeStates = ["offline_active", "incoming_active", "online_active"];

    function isActive(id) {
        return $("#device_menu_" + id).is("." + activeStates.join(",."));
    }

    function activate(id) {
        deviceForLoad = id;
        states.forEach((state) => {
            $(".device_menu." + state).removeClass(state + "_active");
            $("#device_menu_" + id + "." + state).addClass(state + "_active");
        });
    }

    function showLink(id, status) {
        const shown = isActive(id);
        setOneClass("#device_menu_" + id, states.concat(activeStates), states[status]);
        $("#device_menu_" + id).toggleClass(activeStates[status], shown);
    }

    page({
        wrapperInput_device_add: function (id, name, status, volume, playback) {
            if ($("#device_menu_" + id).length) {
                return;
            }
            $("<div class='device_menu'>")
                .attr({id: "device_menu_" + id, title: name})
                .addClass(states[status])
                .toggleClass(activeStates[status], id === deviceForLoad)
                .append(
                    $("<span class='btn tile_icon fa'>").attr("id", "device_playing_" + id).addClass(getPlaybackIcon(playback)),
                    $("<span class='device_menu_text'>").append(
                        $("<span class='ellipsis'>").attr("id", "device_name_" + id).text(name),
                        $("<span class='tile_volume'>").append($("<div>").attr("id", "device_volume_" + id).css("width", volume + "%"))
                    )
                )
                .on("click", () => wrapperLoadCurrentDeviceInfo(id))
                .appendTo("#deviceList");
            if (id === deviceForLoad) {
                wrapperLoadCurrentDeviceInfo(id);
            }
        },
        wrapperInput_device_setId: activate,
        wrapperInput_device_linkOn: function (id) {
            showLink(id, 2);
        },
        wrapperInput_device_linkIncoming: function (id) {
            showLink(id, 1);
        },
        wrapperInput_device_linkOff: function (id) {
            showLink(id, 0);
        },
        wrapperInput_device_setName: function (id, name) {
            $("#side_menu #device_name_" + id).text(name);
            $("#device_menu_" + id).attr("title", name);
        },
        wrapperInput_device_setVolume: function (id, volume) {
            $("#side_menu #device_volume_" + id).css("width", volume + "%");
        },
        // The next one is active at once: the mirror may be ahead, and it may have gone there, too.
        wrapperInput_device_delete: function (id) {
            const wasActive = isActive(id);
            $("#device_menu_" + id).remove();
            const next = $("#deviceList .device_menu").first();
            if (wasActive && next.length) {
                activate(Number(next.attr("id").substr("device_menu_".length)));
                wrapperLoadCurrentDeviceInfo(deviceForLoad);
            }
        },
    });
    wrapper_Device_LoadSideList();
})();
