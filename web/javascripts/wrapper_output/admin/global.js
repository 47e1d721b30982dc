function wrapper_Admin_LoadPermissions() {
    console.log("wrapper_Admin_LoadPermissions");
    wrapper.admin_loadPermissions();
}
