// The login page: its form, its list of servers, and what native code tells it.

(function () {
    let roleChanged = false;
    let dialogsLoaded = false;
    let paintTimer = null;

    function isWaiting() {
        return answers.isAwaited("#login");
    }

    // The button comes back with the answer, when there is something else to send, and in time.
    function wait(text) {
        answers.wait("user/login", "#login", () => $("#login_status").text(""));
        $("#login_status").text(text);
    }

    function endWait() {
        answers.forget("#login");
    }

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
            if (isWaiting()) {
                return;
            }
            if ($("#login").is(":focus")) {
                $("#password").focus(); // for what is typed after a refusal
            }
            $("#login_notice").empty();
            wait("Подключение к серверу…");
            setTimeout(() => {
                wrapper.login_tryLogin($("#name").val(), $("#password").val(), selectedServer());
                if (isWaiting()) {
                    // It is on its way, and isn't needed here any more.
                    $("#password").val("");
                    $("#login_status").text("Ожидание ответа сервера…");
                }
            }, 30);
        },
        // A line about the server or the last session, which stays until the next attempt.
        wrapperInput_login_setNotice: (text) => $("#login_notice").text(text),
        // The connection has gone; of interest to somebody who waits for it.
        wrapperInput_login_lost: function (text) {
            if (isWaiting()) {
                endWait();
                $("#login_notice").text(text);
            }
        },
        modalErrorShow: function (text) {
            endWait();
            modalLoginErrorShow(text);
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
        // Of many thousand, the box is painted once.
        addServerOption: function (ip, port, isDefault) {
            const address = ip + "/" + port;
            const option = new Option(address, address);
            $("#serverSelect")[0].appendChild(option);
            if (isDefault === 1) {
                option.selected = true;
            }
            clearTimeout(paintTimer);
            paintTimer = setTimeout(() => $("#serverSelect").trigger("change"), 0);
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
            endWait();
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
        $("#widget").on("input", "input", endWait);
        $("#serverSelect").on("select2:select", endWait);
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
