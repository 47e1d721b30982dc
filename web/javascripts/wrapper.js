// Thin functions in front of the slots of `wrapper` that every session page needs.

function wrapper_Global_exit() {
    console.log("wrapper_Global_exit");
    wrapper.global_exit();
}

function wrapper_Global_logout() {
    console.log("wrapper_Global_logout");
    wrapper.global_logout();
}

function wrapper_Global_about() {
    console.log("wrapper_Global_about");
    wrapper.global_about();
}

function wrapper_Global_loadFrame() {
    console.log("wrapper_Global_loadFrame");
    wrapper.global_loadFrame();
}

function wrapper_Global_loadPermissions() {
    console.log("wrapper_Global_loadPermissions");
    wrapper.load_permissions();
}
