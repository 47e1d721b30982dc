// The page of the server's log: its level, and the log of a day, which may have tens of megabytes.

(function () {
    const grave = /ERROR|FATAL|CRITICAL|Ошибка/;
    const record = 0; // the form has one record alone
    const level = switchField("#log_maximum", "#log_normal");
    const portion = 40; // blocks a turn of the event loop
    let found = null; // where the search stands: {block, offset}
    let searching = null; // the search under way
    let stale = []; // blocks of the day before, which are on their way out

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

    // Where a block has the needle behind an offset, or before it; -1 if nowhere.
    function seek(element, needle, step, offset) {
        const text = element.textContent;
        const folded = text.toLowerCase();
        const searched = folded.length === text.length ? folded : text; // few letters become two
        if (step > 0) {
            return searched.indexOf(needle, offset + 1);
        }
        return offset === 0 ? -1 : searched.lastIndexOf(needle, offset - 1);
    }

    function showHit(element, offset, length) {
        found = {block: element, offset: offset};
        $("#log_found").text("");
        select(element, offset, length);
    }

    // Steps to the next hit, or the one before, round the ends of the log; some blocks a turn, so
    // that nothing waits for the last of them.
    function find(step) {
        const needle = $("#log_search").val().toLowerCase();
        const blocks = $("#log").children(".log_block").toArray();
        const turn = (searching = {});
        if (needle === "" || blocks.length === 0) {
            return;
        }
        const known = found ? blocks.indexOf(found.block) : -1;
        const edge = step > 0 ? -1 : Infinity;
        const first = known >= 0 ? known : step > 0 ? 0 : blocks.length - 1;
        let count = 0;
        function goOn() {
            const end = Math.min(count + portion, blocks.length + 1);
            for (; count < end; ++count) {
                const element = blocks[(first + step * count + blocks.length * 2) % blocks.length];
                const offset = seek(element, needle, step, count === 0 && known >= 0 ? found.offset : edge);
                if (offset >= 0) {
                    showHit(element, offset, needle.length);
                    return;
                }
            }
            if (count > blocks.length) {
                $("#log_found").text("Не найдено");
            } else {
                setTimeout(() => turn === searching && goOn(), 0);
            }
        }
        goOn();
    }

    // The engine takes long to let go of a large log, least so from its end.
    function dropStale() {
        $(stale.splice(-portion)).remove();
        if (stale.length > 0) {
            setTimeout(dropStale, 0);
        }
    }

    function clear() {
        found = null;
        searching = null;
        stale = $("#log").children().toArray();
        $("#log_found").text("");
        $("#log_refused").addClass("hidden");
        dropStale();
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
            $(stale.splice(0)).remove();
            $("#log")[0].appendChild(block(text));
            $("#log").scrollTop($("#log")[0].scrollHeight);
        },
        // Part of a log would look like the whole of it.
        giveUpLogDate: function () {
            wrapper.admin_stopLog();
            clear();
            $("#log_dates").val("").trigger("change.select2");
        },
        wrapperInput_log_refuse: () => $("#log_refused").removeClass("hidden"),
        loadLogDate: function () {
            const date = $("#log_dates").val();
            if (date === "") {
                return;
            }
            clear();
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
