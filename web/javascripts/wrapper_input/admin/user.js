// The page of user accounts: their list, and the form of the one that is active. The users come before
// the roles do, and the form shows the role once its entry is there.

(function () {
    const administrator = "admin"; // the account that every server has

    function stateClass(isConnected) {
        return isConnected ? "state_online" : "state_offline";
    }

    function stateText(isConnected) {
        return isConnected ? "Подключен" : "Отключен";
    }

    function showStatus(id, isConnected) {
        users.set(id, {isConnected: isConnected});
        if (users.isActive(id)) {
            setOneClass("#user_status", [stateClass(true), stateClass(false)], stateClass(isConnected));
            $("#user_status").text(stateText(isConnected));
        }
    }

    function showRole(id, role) {
        if (users.isActive(id)) {
            form.show(id, {role: role});
        }
    }

    function roleEntries(id) {
        return $("#user_role, #addRole").children("#role_" + id);
    }

    const users = listPage({
        table: "#userList",
        prefix: "",
        active: "user_active",
        empty: "Нет пользователей",
        cells: (user) => [
            {name: "title", text: user.title},
            {name: "status", text: stateText(user.isConnected), class: "user_state " + stateClass(user.isConnected)},
        ],
        buttons: [
            {
                icon: "fa-trash",
                title: "Удалить",
                shown: (user) => !user.isCurrent && user.name !== administrator,
                action: (id, user) => modalAdminDeleteUser(user.name),
            },
        ],
        select: (id) => wrapper_AdminUser_LoadUser(id),
    });

    const form = formPage({
        fields: {title: "#user_title", role: "#user_role"},
        secrets: ["#user_password", "#user_alarm_password"],
        rules: {title: nameError},
        request: "user/edit",
        save: (values) =>
            saveUser($("#user_name").text(), values.title, $("#user_password").val(), $("#user_alarm_password").val(), values.role),
    });

    page({
        wrapperInput_user_add: (id, name, title, status, isCurrent) =>
            users.add(id, {name: name, title: title, isConnected: Boolean(status), isCurrent: Boolean(isCurrent)}),
        wrapperInput_user_delete: (id) => users.remove(id),
        wrapperInput_user_edit: function (id, name, title) {
            users.set(id, {name: name, title: title});
            if (users.isActive(id)) {
                $("#user_name").text(name);
                form.show(id, {title: title});
                $("#user_title, #user_role").prop("disabled", name === administrator);
            }
        },
        wrapperInput_user_login: (id) => showStatus(id, true),
        wrapperInput_user_logout: (id) => showStatus(id, false),
        // A new user's role is to be chosen: the first entry is none.
        wrapperInput_role_clear: () => $("#user_role, #addRole").empty().filter("#addRole").append(new Option("", "")),
        wrapperInput_role_add: function (id, name) {
            if (roleEntries(id).length === 0) {
                $("#user_role, #addRole").append(() => $("<option>").attr("id", "role_" + id).val(name).text(name));
                form.refresh("role");
            }
        },
        wrapperInput_role_delete: function (id) {
            const wasPicked = roleEntries(id).val() === form.picked.role;
            roleEntries(id).remove();
            form[wasPicked ? "put" : "refresh"]("role");
        },
        wrapperInput_role_edit: function (id, name) {
            roleEntries(id).val(name).text(name);
            form.refresh("role");
        },
        wrapperInput_role_include: showRole,
        wrapperInput_role_exclude: (id) => showRole(id, ""),
        // Answers false where nothing could change.
        saveUser: function (name, title, password, alarmPassword, roleName) {
            if (name === administrator && password === "" && alarmPassword === "") {
                modalAdminEditUser();
                return false;
            }
            return markField("#user_title", nameError(title)) && wrapper_AdminUser_Edit(name, title, password, alarmPassword, roleName);
        },
    });

    limitName("#user_title");
    buildSelect("#user_role");
    $("#add_user").on("click", () => modalAdminAddUser());
    wrapper_AdminUser_LoadList();
    wrapper_AdminUser_LoadRoleList();
})();
