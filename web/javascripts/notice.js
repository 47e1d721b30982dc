// Dialogs that are a title, a text and up to three buttons.

function dialogButton(button, kind) {
    return $("<button type='button' class='btn'>")
        .addClass("btn-" + (button.kind || "default"))
        .addClass(kind)
        .text(button.text)
        .on("click", function () {
            $(this).closest(".modal").modal("hide");
            if (button.action) {
                button.action();
            }
        });
}

// Declares a dialog of the fragment that is being loaded, and the global function `name` that opens
// it. The dialog and the function go with the fragment.
//   id        of the dialog, if it isn't the name of the function
//   title     the bar's text
//   text      one line, or an array of lines
//   argument  id of an element behind the text that shows the function's argument
//   subject   id of an element that keeps, out of sight, whom the dialog is about: the function's
//             first argument then, in front of the one on show
//   hidden    id of an element that keeps the function's only argument, out of sight
//   warning   a line behind that
//   accept    {text: "Ок", kind: "primary", action: function}, all of it optional
//   cancel    the second button, if there is one: {text: "Отмена", action: function}
//   opened    called whenever the dialog opens
//   other     the third, between the two: {text: ..., action: function}
//   lock      whether it belongs to the screen lock, above all other dialogs
function notice(name, options) {
    var body = $("<div class='modal-body'>");
    [].concat(options.text || []).forEach(function (line) {
        body.append($("<p>").text(line));
    });
    if (options.argument) {
        body.append($("<p>").attr("id", options.argument));
    }
    const kept = options.subject || options.hidden;
    if (kept) {
        body.append($("<span style='display: none'>").attr("id", kept));
    }
    if (options.warning) {
        body.append($("<p class='notice_warning'>").text(options.warning));
    }
    var accept = $.extend({text: "Ок", kind: "primary"}, options.accept);
    var footer = $("<div class='modal-footer'>");
    if (options.cancel) {
        footer.append(dialogButton($.extend({text: "Отмена"}, options.cancel), "cancel"));
    }
    if (options.other) {
        footer.append(dialogButton(options.other, "other"));
    }
    footer.append(dialogButton(accept, options.cancel ? "accept" : "accept cancel"));
    var dialog = $("<div class='modal fade' tabindex='-1' data-backdrop='static' data-keyboard='false'>")
        .attr("id", options.id || name)
        .toggleClass("lock_dialog", Boolean(options.lock))
        .append(
            $("<div class='modal-dialog'>").append(
                $("<div class='modal-content'>").append(
                    $("<div class='modal-header'>").append($("<h4 class='modal-title'>").text(options.title)),
                    body,
                    footer
                )
            )
        );
    $(regions.place()).append(dialog);
    function open(argument) {
        if (options.argument) {
            $("#" + options.argument).text(argument);
        }
        dialog.modal("show");
        if (options.opened) {
            options.opened();
        }
    }
    function openAbout(subject, argument) {
        $("#" + options.subject).text(subject);
        open(argument);
    }
    function openBare() {
        open();
    }
    function openKeeping(argument) {
        $("#" + options.hidden).text(argument);
        open();
    }
    const way = options.subject ? openAbout : options.hidden ? openKeeping : options.argument ? open : openBare;
    page({[name]: way});
}
