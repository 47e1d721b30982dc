// The page of user accounts: their list, and the form of the one that is active. The users come before
// the roles do, so the form remembers the role that it has to show.

(function () {
    const administrator = "admin"; // the account that every server has

    function userRow(id) {
        return $("#userList tbody").children("[id='" + id + "']");
    }

    function isUserActive(id) {
        return userRow(id).hasClass("user_active");
    }

    function showUserStatus(element, connected) {
        setOneClass(element, ["state_online", "state_offline"], connected ? "state_online" : "state_offline");
        $(element).text(connected ? "Подключен" : "Отключен");
    }

    function openUser(row) {
        activateRow(row, "user_active");
        wrapper_AdminUser_LoadUser($(row).attr("id"));
    }

    function deleteUserButton(row) {
        return $("<button type='button' class='row_button' title='Удалить'>")
            .append($("<i class='fa fa-trash'>"))
            .on("click", function (event) {
                event.stopPropagation();
                modalAdminDeleteUser(row.data("name"));
            });
    }

    function changeUserStatus(id, connected) {
        showUserStatus("#status_" + id, connected);
        if (isUserActive(id)) {
            showUserStatus("#user_status", connected);
        }
    }


    function showUserRole(name) {
        $("#user_role").data("role", name).val(name).trigger("change");
    }

    function roleOptions(id) {
        return $("#user_role, #addRole").children("#role_" + id);
    }

    page({
        wrapperInput_user_add: function (id, name, title, status, isCurrent) {
            if (userRow(id).length) {
                return;
            }
            var row = $("<tr>").attr("id", id).data("name", name);
            var state = $("<td class='user_state'>").attr("id", "status_" + id);
            var buttons = $("<td class='column_button'>");
            if (!isCurrent && name !== administrator) {
                buttons.append(deleteUserButton(row));
            }
            showUserStatus(state, status);
            row.append($("<td class='ellipsis'>").attr({id: "title_" + id, title: name}).text(title), state, buttons)
                .toggleClass("user_active", $("#userList tbody tr").length === 0)
                .on("click", function () {
                    openUser(this);
                })
                .appendTo("#userList tbody");
        },
        wrapperInput_user_delete: function (id) {
            var wasActive = isUserActive(id);
            userRow(id).remove();
            if (wasActive) {
                $("#userList tbody tr").first().each(function () {
                    openUser(this);
                });
            }
        },
        clearPasswords: function () {
            $("#user_password, #user_alarm_password").val("");
        },
        wrapperInput_user_edit: function (id, name, title) {
            userRow(id).data("name", name);
            $("#title_" + id).text(title);
            if (!isUserActive(id)) {
                return;
            }
            if ($("#user_name").text() !== name) {
                clearPasswords(); // they were meant for another account
                markFields("#user_title", true);
            }
            $("#user_name").text(name);
            $("#user_title").val(title);
            $("#user_title, #user_role").prop("disabled", name === administrator);
        },
        wrapperInput_user_login: function (id) {
            changeUserStatus(id, true);
        },
        wrapperInput_user_logout: function (id) {
            changeUserStatus(id, false);
        },
        wrapperInput_role_clear: function () {
            $("#user_role, #addRole").empty();
        },
        wrapperInput_role_add: function (id, name) {
            $("#user_role, #addRole").each(function () {
                if ($(this).children("#role_" + id).length === 0) {
                    $("<option>").attr("id", "role_" + id).val(name).text(name).appendTo(this);
                }
            });
            showUserRole($("#user_role").data("role"));
        },
        wrapperInput_role_delete: function (id) {
            roleOptions(id).remove();
            showUserRole($("#user_role").data("role"));
        },
        wrapperInput_role_edit: function (id, name) {
            roleOptions(id).val(name).text(name);
            showUserRole($("#user_role").data("role"));
        },
        wrapperInput_role_include: function (id, roleName) {
            if (isUserActive(id)) {
                showUserRole(roleName);
            }
        },
        wrapperInput_role_exclude: function (id) {
            if (isUserActive(id)) {
                showUserRole("");
            }
        },
        saveUser: function (name, title, password, alarmPassword, roleName) {
            if (name === administrator && password === "" && alarmPassword === "") {
                modalAdminEditUser(); // there is nothing that could change
            } else if (markFields("#user_title", hasNameLength(title))) {
                wrapper_AdminUser_Edit(name, title, password, alarmPassword, roleName);
            }
        },
    });

    limitName("#user_title");
    buildSelect("#user_role");
    $("#user_role").on("select2:select", function () {
        $(this).data("role", this.value);
    });
    $("#add_user").on("click", () => modalAdminAddUser());
    wrapper_AdminUser_LoadList();
    wrapper_AdminUser_LoadRoleList();
})();
