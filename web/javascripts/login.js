// The login page: its form, its list of servers, and what native code tells it.

(function () {
    let roleChanged = false;
    let dialogsLoaded = false;

    page({
        selectedServer: function () {
            return $("#serverSelect").val();
        },
        // Connecting blocks the page for a moment, so what goes on is painted before it begins.
        tryLogin: function () {
            if (!selectedServer()) {
                modalNoServerShow();
                return;
            }
            if ($("#login").prop("disabled")) {
                return;
            }
            $("#login").prop("disabled", true);
            $("#login_status").text("Подключение к серверу…");
            setTimeout(function () {
                wrapper.login_tryLogin($("#name").val(), $("#password").val(), selectedServer());
                $("#login").prop("disabled", false);
                $("#login_status").text("");
            }, 30);
        },
        toggleLoginForm: function () {
            var long = !$("#widget").hasClass("long");
            $("#widget").toggleClass("long", long);
            $("#serverRow").toggle(long);
            $("#settings").text(long ? "Сокращенные" : "Расширенные");
        },
        loadServerList: function () {
            whenWrapperIsThere(function () {
                wrapper.login_serverList();
            });
        },
        addServerOption: function (ip, port, isDefault) {
            var address = ip + "/" + port;
            $("<option>").val(address).text(address).appendTo("#serverSelect");
            if (isDefault === 1) {
                $("#serverSelect").val(address);
            }
            $("#serverSelect").trigger("change");
        },
        deleteServer: function () {
            var address = selectedServer();
            if (!address) {
                return;
            }
            wrapper.login_deleteServer(address);
            $("#serverSelect").empty();
            wrapper.login_serverList();
            $("#serverSelect").trigger("change");
        },
        modalLoginVersionError: function (clientVersion, serverVersion) {
            if (clientVersion > serverVersion) {
                modalServerOldShow();
            } else {
                modalClientOldShow();
            }
        },
        // The dialog may be still on its way.
        modalRoleChangedShow: function () {
            roleChanged = true;
            showRoleChanged();
        },
        showRoleChanged: function () {
            if (roleChanged && dialogsLoaded) {
                modalRoleChanged();
            }
        },
        loginDialogsLoaded: function () {
            dialogsLoaded = true;
            showRoleChanged();
        },
    });

    $(document).ready(function () {
        $("#serverSelect").select2({
            language: "ru",
            minimumResultsForSearch: 8,
            placeholder: "Сервер не выбран",
            width: "auto",
        });
        $("#login").on("click", () => tryLogin());
        $("#settings").on("click", () => toggleLoginForm());
        $("#exit").on("click", () => wrapper_Global_exit());
        $("#addServerButton").on("click", function () {
            modalAddServerShow();
        });
        $("#deleteServerButton").on("click", () => deleteServer());
        $("#widget").on("keydown", "input", function (event) {
            if (event.which === 13) {
                tryLogin();
            }
        });
        regions.load("#add_server", "modal/login.html");
        loadServerList();
        $("#name").focus();
    });
})();
