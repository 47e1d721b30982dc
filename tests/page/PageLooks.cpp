#include "page/PageLooks.h"

namespace PageLooks
{

namespace
{

/// What a page has put off for less than this many milliseconds belongs to its opening; what it
/// does each second doesn't.
const char* const countTimers =
    "if (!window.timersUnderWay) {"
    "  window.timersUnderWay = new Set();"
    "  const set = window.setTimeout, clear = window.clearTimeout;"
    "  window.setTimeout = function (action, delay) {"
    "    const id = set(function () { timersUnderWay.delete(id); action(); }, delay);"
    "    if (!(delay >= 500)) { timersUnderWay.add(id); }"
    "    return id;"
    "  };"
    "  window.clearTimeout = function (id) { timersUnderWay.delete(id); clear(id); };"
    "}";

void load(const Console& console, const char* regions, const QString& script)
{
    console.value(QStringLiteral("%1 $('%2').append('<i class=\"was_before\">'); %3; null")
                      .arg(countTimers, QString::fromLatin1(regions).replace(' ', ','), script));
}

} // namespace

bool isAdministration(const PageRow& page)
{
    return page.open[0] == '#';
}

void open(const Console& console, const PageRow& page)
{
    if (!isAdministration(page)) {
        load(console, page.regions, page.open);
        return;
    }
    load(console, "#top_menu #side_menu", "loadTopMenu('admin/index'); loadSideMenu('admin')");
    console.waitFor("$('#side_menu .was_before').length === 0");
    load(console, "#main #bot_menu #modal", QStringLiteral("$('%1').click()").arg(page.open));
}

bool hasSettled(const Console& console)
{
    return console.waitFor(
        "$.active === 0 && $('.was_before').length === 0 && timersUnderWay.size === 0");
}

QStringList looks(const Console& console, const PageRow& page, const char* except)
{
    const QString script = QStringLiteral(
        "(function (names) {"
        "  var lines = [];"
        "  names.forEach(function (name) {"
        "    $(name).find('*').not('script, %2').each(function () {"
        "      lines.push([name, this.tagName, this.id, this.className.split(' ').sort().join(' '),"
        "                  this.title, this.value, this.checked, this.disabled,"
        "                  this.style.cssText, $(this).is(':visible'),"
        "                  this.children.length ? '' : this.textContent.trim()].join());"
        "    });"
        "  });"
        "  var declared = regions.declared();"
        "  Object.keys(declared).sort().forEach(function (name) {"
        "    names.forEach(function (region) {"
        "      if (region in declared[name]) {"
        "        lines.push(region + ' ' + name + '/' + declared[name][region]);"
        "      }"
        "    });"
        "  });"
        "  lines.push($('head style').text());"
        "  return lines.join('\\n').replace(/select2-\\w+-(\\w{2}|\\w{4})\\b/g, 'select2');"
        "})('%1'.split(' '))");
    return console.text(script.arg(QLatin1String(page.regions), QLatin1String(except))).split('\n');
}

} // namespace PageLooks
