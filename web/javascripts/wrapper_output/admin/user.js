// Thin functions in front of the slots of the users page.

function wrapper_AdminUser_LoadList() {
    console.log("wrapper_AdminUser_LoadList");
    wrapper.admin_loadUserList();
}

function wrapper_AdminUser_LoadRoleList() {
    console.log("wrapper_AdminUser_LoadRoleList");
    wrapper.admin_loadRoleList();
}

function wrapper_AdminUser_LoadUser(id) {
    console.log("wrapper_AdminUser_LoadUser " + id);
    wrapper.admin_selectUser(id);
}

function wrapper_AdminUser_Add(name, title, password, alarmPassword, roleName) {
    console.log("wrapper_AdminUser_Add " + name);
    wrapper.admin_addUser(name, title, password, alarmPassword, roleName);
}

function wrapper_AdminUser_Edit(name, title, password, alarmPassword, roleName) {
    console.log("wrapper_AdminUser_Edit " + name);
    wrapper.admin_editUser(name, title, password, alarmPassword, roleName);
}

function wrapper_AdminUser_Delete(name) {
    console.log("wrapper_AdminUser_Delete " + name);
    wrapper.admin_deleteUser(name);
}
