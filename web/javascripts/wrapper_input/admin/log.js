// The page of the server's log: its level, and the log of a day, which may have tens of megabytes.

(function () {
    const grave = /ERROR|FATAL|CRITICAL|Ошибка/;
    const record = 0; // the form has one record alone
    const level = switchField("#log_maximum", "#log_normal");
    let found = null; // where the search stands: {block, offset}

    formPage({
        fields: {},
        parts: [level],
        request: "log/setLevel",
        save: () => saveLog(),
    }).show(record, {});

    // A piece of the log, its grave lines in another colour.
    function block(text) {
        const element = document.createElement("div");
        element.className = "log_block";
        if (!grave.test(text)) {
            element.textContent = text;
            return element;
        }
        let plain = "";
        text.replace(/[^\n]*\n|[^\n]+$/g, function (line) {
            if (!grave.test(line)) {
                plain += line;
                return "";
            }
            element.appendChild(document.createTextNode(plain));
            plain = "";
            const mark = document.createElement("span");
            mark.className = "log_grave";
            mark.textContent = line;
            element.appendChild(mark);
            return "";
        });
        element.appendChild(document.createTextNode(plain));
        return element;
    }

    // The node and the offset in it of a place in a block.
    function locate(element, offset) {
        const nodes = document.createTreeWalker(element, NodeFilter.SHOW_TEXT, null, false);
        let rest = offset;
        while (nodes.nextNode()) {
            if (rest <= nodes.currentNode.length) {
                return {node: nodes.currentNode, offset: rest};
            }
            rest -= nodes.currentNode.length;
        }
        return null;
    }

    function select(element, offset, length) {
        const begin = locate(element, offset);
        const end = locate(element, offset + length);
        const range = document.createRange();
        range.setStart(begin.node, begin.offset);
        range.setEnd(end.node, end.offset);
        const selection = window.getSelection();
        selection.removeAllRanges();
        selection.addRange(range);
        const top = range.getBoundingClientRect().top - $("#log")[0].getBoundingClientRect().top;
        $("#log").scrollTop($("#log").scrollTop() + top - $("#log").height() / 3);
    }

    // Steps to the next hit, or the one before, round the ends of the log.
    function find(step) {
        const needle = $("#log_search").val().toLowerCase();
        const blocks = $("#log").children(".log_block").toArray();
        if (needle === "" || blocks.length === 0) {
            return;
        }
        const from = found && blocks.indexOf(found.block) >= 0 ? found : {block: blocks[step > 0 ? 0 : blocks.length - 1], offset: step > 0 ? -1 : Infinity};
        const start = blocks.indexOf(from.block);
        for (let count = 0; count <= blocks.length; ++count) {
            const index = (start + step * count + blocks.length * 2) % blocks.length;
            const text = blocks[index].textContent.toLowerCase();
            const isFirst = count === 0;
            const offset =
                step > 0
                    ? text.indexOf(needle, isFirst ? from.offset + 1 : 0)
                    : isFirst && from.offset === 0
                      ? -1
                      : text.lastIndexOf(needle, isFirst ? from.offset - 1 : Infinity);
            if (offset >= 0) {
                found = {block: blocks[index], offset: offset};
                $("#log_found").text("");
                select(blocks[index], offset, needle.length);
                return;
            }
        }
        $("#log_found").text("Не найдено");
    }

    page({
        wrapperInput_log_setLevel: (value) => level.store(Number(value) === 1),
        wrapperInput_log_clearDates: function () {
            $("#log_dates").data("chosen", $("#log_dates").val()).children(":not([value=''])").remove();
        },
        wrapperInput_log_addDate: function (date) {
            const dates = $("#log_dates");
            const isKnown = dates.children().filter((index, option) => option.value === date).length > 0;
            if (!isKnown) {
                dates.append($("<option>").val(date).text(date));
            }
            if (dates.data("chosen") === date) {
                dates.val(date).trigger("change.select2");
            }
        },
        wrapperInput_log_addLogString: function (text) {
            $("#log")[0].appendChild(block(text));
            $("#log").scrollTop($("#log")[0].scrollHeight);
        },
        wrapperInput_log_refuse: () => $("#log_refused").removeClass("hidden"),
        loadLogDate: function () {
            const date = $("#log_dates").val();
            if (date === "") {
                return;
            }
            found = null;
            $("#log").empty();
            $("#log_refused").addClass("hidden");
            modalAdminLogStartLoading();
            wrapper_AdminLog_loadDate(date);
        },
        saveLog: () => (wrapper_AdminLog_setLevel($("#log_maximum").prop("checked")), true),
    });

    buildSelect("#log_dates");
    $("#log_dates").on("change", () => loadLogDate());
    $("#log_maximum").on("change", function () {
        if (this.checked) {
            modalAdminLogMaxLevel();
        }
    });
    $("#log_search").on("keydown", function (event) {
        if (event.which === 13) {
            find(event.shiftKey ? -1 : 1);
        }
    });
    $("#log_next").on("click", () => find(1));
    $("#log_previous").on("click", () => find(-1));
    $("#main").on("leave", () => wrapper.admin_stopLog());
    wrapper_AdminLog_getLevel();
    wrapper_AdminLog_loadDates();
})();
