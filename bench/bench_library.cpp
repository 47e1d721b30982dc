// A folder of the library and a folder of this computer, both with very many files: how long until
// all rows are there and painted, against the engine making rows of the same mark-up by itself, and
// how long a click waits meanwhile.

#include "Measure.h"
#include "StallWatch.h"
#include "app/Data.h"
#include "model/ModelList.h"
#include "model/Playlist.h"
#include "model/Track.h"
#include "page/Console.h"
#include "view/WebView.h"

#include <QApplication>
#include <QDir>
#include <QWebView>

namespace
{

constexpr int folderId = 50;

[[noreturn]] void fail(const char* text)
{
    std::fprintf(stderr, "%s\n", text);
    std::exit(1);
}

void fill(int tracks)
{
    Data::playlistList.append(std::make_unique<Playlist>(2, QString(), 0, 0, 0, 0, 2));
    Data::playlistList.append(
        std::make_unique<Playlist>(folderId, QStringLiteral("Музыка"), 2, 1, 0, 0, 2));
    for (int index = 0; index < tracks; ++index) {
        Data::trackList.append(std::make_unique<Track>(
            1000 + index, folderId, QStringLiteral("Фрагмент %1").arg(index), index, 60 + index));
    }
}

/// From the script until the condition holds and the page has been painted, in seconds.
double until(Console& console, const QString& script, const QString& condition, double& stall)
{
    const StallWatch watch;
    const double time = Measure::seconds([&] {
        console.value(script);
        if (!console.waitFor(condition, 120000)) {
            fail("the rows didn't come");
        }
        console.view().getView()->grab();
    });
    stall = std::max(stall, watch.longest());
    return time;
}

void waitForEmpty(Console& console, const char* list)
{
    if (!console.waitFor(QStringLiteral("$('%1 .item_spacer:last').height() === 0").arg(list))) {
        fail("the rows didn't go");
    }
}

/// Whether elements and the space for the others make up so many rows.
QString isWhole(const char* list, const char* row, int rows)
{
    return QStringLiteral("$('%1 .item_spacer:last').height() / $('%1 %2').outerHeight() + "
                          "$('%1 %2').length > %3 - 0.5")
        .arg(list, row)
        .arg(rows);
}

/// As many rows as plainly as the engine can make them, in the place of the page's.
double bare(Console& console, const QString& place, int rows)
{
    const double time = Measure::seconds([&] {
        console.value(QStringLiteral("var box = document.querySelector('%1');"
                                     "var rows = [];"
                                     "for (var row = 0; row < %2; ++row) {"
                                     "  rows.push(\"<div class='library_row track'><i class='fa "
                                     "fa-file-audio-o row_icon'></i><span class='tick_title "
                                     "ellipsis'>Фрагмент \" + row + \"</span><span "
                                     "class='item_duration'>\" + row + \" сек.</span></div>\");"
                                     "}"
                                     "box.innerHTML = \"<div id='bare_rows'>\" + rows.join('') + "
                                     "\"</div>\"; box.offsetHeight")
                          .arg(place)
                          .arg(rows));
        console.view().getView()->grab();
    });
    console.value("$('#bare_rows').remove()");
    return time;
}

void compare(Measure::Report& report, const QString& heading, std::vector<Measure::Way>& ways,
             int repetitions, int rows, const double& stall)
{
    Measure::interleave(ways, repetitions);
    report.table(qPrintable(heading), ways, rows, "row");
    report.line("  longest wait of a click %.0f ms\n", 1000 * stall);
}

void measureLibrary(Measure::Report& report, Console& console, int tracks, int repetitions)
{
    double stall = 0;
    console.value("loadMainBody('admin/playback'); loadModal('admin/playback')");
    if (!console.waitFor("$('#categories').children().length > 0 && $('#modalAddItem').length")) {
        fail("no page of the library");
    }
    console.value("$('<div id=bare>').appendTo('#main')");
    std::vector<Measure::Way> ways{
        {"the engine's own rows", [&] { return bare(console, "#bare", tracks); }},
        {"the folder of the library", [&] {
             console.value("selectPlaylist(3)");
             waitForEmpty(console, "#track_rows");
             return until(console,
                          QStringLiteral("wrapper_AdminPlayback_selectPlaylist(%1)").arg(folderId),
                          isWhole("#track_rows", ".library_row", tracks), stall);
         }}};
    compare(report, QStringLiteral("A folder of the library, %1 tracks").arg(tracks), ways,
            repetitions, tracks, stall);
}

void measureDisk(Measure::Report& report, Console& console, int files, int repetitions)
{
    const QString folder = report.path() + QStringLiteral("/music");
    QDir().mkpath(folder);
    for (int index = 0; index < files; ++index) {
        QFile(folder + QStringLiteral("/Фрагмент %1.mp3").arg(index)).open(QIODevice::WriteOnly);
    }
    console.value("selectPlaylist(3); modalAdminAddItemShow();"
                  "$('#addPlaylistChoice input').eq(1).prop('checked', true).trigger('change')");
    if (!console.waitFor("$('#modalAddItem').hasClass('in') && $('#modalAddItem "
                         ".folder_browser').is(':visible')")) {
        fail("no dialog");
    }
    double stall = 0;
    std::vector<Measure::Way> ways{
        {"the engine's own rows", [&] { return bare(console, "#bare", files); }},
        {"the folder of this computer", [&] {
             console.value("wrapperInput_filesystem_clearDriveItems()");
             waitForEmpty(console, "#dirContent");
             return until(
                 console,
                 QStringLiteral("wrapper_AdminPlayback_loadPath('%1', '/', 'track')").arg(folder),
                 isWhole("#dirContent", ".tick_row", files), stall);
         }}};
    compare(report, QStringLiteral("A folder of this computer, %1 files").arg(files), ways,
            repetitions, files, stall);
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const int scale = Measure::option(argc, argv, "--scale", 1); // divides the numbers of files
    const int repetitions = Measure::option(argc, argv, "--repetitions", 5);
    Measure::Report report;
    Console console;
    Data::debugMode = false;
    const int tracks = 20000 / scale;
    if (!console.showLogin() || !console.showSession([=] { fill(tracks); })) {
        fail("no session");
    }
    measureLibrary(report, console, tracks, repetitions);
    measureDisk(report, console, 10000 / scale, repetitions);
    return 0;
}
