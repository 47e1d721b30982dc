// A dialog that asks for a password: the screen lock and the two accesses to alarms.

// Builds the dialog into the region that is being loaded.
//   id, group, field  ids of the dialog, of the field with its label, and of the field
//   title             the bar's text
//   accept            called with the password
//   cancel            called by "Отмена"; without it the dialog can't be left
function buildPasswordDialog(options) {
    var field = $("<input type='password' class='form-control' placeholder='Пароль' autocomplete='off'>")
        .attr("id", options.field)
        .on("keydown", function (event) {
            if (event.which === 13) {
                options.accept(field.val());
                event.stopPropagation();
            }
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
            options.accept(field.val());
        })
        .appendTo(footer);
    $("<div class='modal' tabindex='-1' data-backdrop='static' data-keyboard='false'>")
        .attr("id", options.id)
        .append(
            $("<div class='modal-dialog'>").append(
                $("<div class='modal-content'>").append(
                    $("<div class='modal-header'>").append($("<h4 class='modal-title'>").text(options.title)),
                    $("<div class='modal-body'>").append(
                        $("<div class='form-group'>")
                            .attr("id", options.group)
                            .append($("<label class='control-label'>").text("Введите пароль!"), field)
                    ),
                    footer
                )
            )
        )
        .appendTo(regions.place());
}

function openPasswordDialog(dialog, group) {
    $(group).removeClass("has-error");
    $(dialog).modal("show");
}

function closePasswordDialog(dialog, group, field) {
    $(dialog).modal("hide");
    $(group).removeClass("has-error");
    $(field).val("").blur();
}

function refusePassword(group, field) {
    $(group).addClass("has-error");
    $(field).val("");
}
