// A dialog that asks for a password: the screen lock and the two accesses to alarms.

// Builds the dialog into the region that is being loaded.
//   id, group, field  ids of the dialog, of the field with its label, and of the field
//   title             the bar's text
//   accept            called with the password
//   cancel            called by "Отмена"; without it the dialog can't be left, and stays above others
function buildPasswordDialog(options) {
    var field = $("<input type='password' class='form-control' placeholder='Пароль' autocomplete='off'>")
        .attr("id", options.field)
        .on("input", function () {
            showPasswordError("#" + options.group, false);
        });
    var footer = $("<div class='modal-footer'>");
    if (options.cancel) {
        $("<button type='button' class='btn btn-default cancel'>")
            .text("Отмена")
            .on("click", options.cancel)
            .appendTo(footer);
    }
    $("<button type='button' class='btn btn-primary accept'>")
        .text("Применить")
        .on("click", function () {
            answers.wait("user/checkAccess", this);
            options.accept(field.val());
        })
        .appendTo(footer);
    $("<div class='modal' tabindex='-1' data-backdrop='static' data-keyboard='false'>")
        .attr("id", options.id)
        .toggleClass("lock_dialog", !options.cancel)
        .append(
            $("<div class='modal-dialog'>").append(
                $("<div class='modal-content'>").append(
                    $("<div class='modal-header'>").append($("<h4 class='modal-title'>").text(options.title)),
                    $("<div class='modal-body'>").append(
                        $("<div class='form-group'>")
                            .attr("id", options.group)
                            .append($("<label class='control-label'>").text("Введите пароль!"), field, $("<div class='help-block'>"))
                    ),
                    footer
                )
            )
        )
        .appendTo(regions.place());
}

function showPasswordError(group, isWrong) {
    $(group).toggleClass("has-error", isWrong).find(".help-block").text(isWrong ? "Неправильный пароль" : "");
}

function openPasswordDialog(dialog, group) {
    showPasswordError(group, false);
    $(dialog).modal("show");
}

function closePasswordDialog(dialog, group, field) {
    $(dialog).modal("hide");
    showPasswordError(group, false);
    $(field).val("").blur();
}

function refusePassword(group, field) {
    showPasswordError(group, true);
    $(field).val("");
    dialogs.giveFocus($(field)[0]);
}
