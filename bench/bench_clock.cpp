#include "Measure.h"

#include "app/Data.h"
#include "media/PlaybackUpdater.h"
#include "model/ModelList.h"
#include "model/Playback.h"
#include "model/Playlist.h"
#include "model/Track.h"
#include "page/ScriptCall.h"

#include <QCoreApplication>

#include <memory>

/// What a tick of the position clock costs, against building the same script texts alone. There are
/// two ticks a second; the page's part isn't in it, and is the same for both.
///
///   bench_clock [--playbacks 200] [--tracks 20000] [--ticks 200] [--repetitions 9]

namespace
{

constexpr int trackLength = 180;

void fillMirror(int playbacks, int tracks)
{
    Data::playlistList.append(
        std::make_unique<Playlist>(2, QStringLiteral("Music"), 0, 0, 0, 0, 2));
    for (int id = 1; id <= tracks; ++id) {
        Data::trackList.append(
            std::make_unique<Track>(id, 2, QStringLiteral("Track %1").arg(id), id, trackLength));
    }
    for (int id = 1; id <= playbacks; ++id) {
        auto playback = std::make_unique<Playback>();
        playback->setId(id);
        playback->setPlaylistId(2);
        playback->setTrackId(tracks - id + 1); // the last in the list, far from its beginning
        playback->setPlaying(true);
        Data::playbackList.append(std::move(playback));
    }
}

double scriptsAlone(int playbacks, int ticks)
{
    return Measure::seconds([=] {
        double position = 0;
        for (int tick = 0; tick < ticks; ++tick) {
            position += 0.5;
            for (int id = 1; id <= playbacks; ++id) {
                Page::call("wrapperInput_playback_setTimeshift", id, position, trackLength);
            }
        }
    });
}

double clockTicks(PlaybackUpdater& clock, int ticks)
{
    for (Playback& playback : Data::playbackList) {
        playback.setTimeShift(0);
    }
    return Measure::seconds([&] {
        for (int tick = 0; tick < ticks; ++tick) {
            clock.update();
        }
    });
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const int playbacks = Measure::option(argc, argv, "--playbacks", 200);
    const int tracks = Measure::option(argc, argv, "--tracks", 20000);
    const int ticks = Measure::option(argc, argv, "--ticks", 200);
    Measure::Report report;
    qint64 length = 0;
    Page::setSink([&](const Page::Call& call) { length += call.script().size(); });
    fillMirror(playbacks, tracks);
    PlaybackUpdater clock;
    std::vector<Measure::Way> ways{
        {"script texts alone", [=] { return scriptsAlone(playbacks, ticks); }},
        {"tick of the clock", [&] { return clockTicks(clock, ticks); }},
    };
    Measure::interleave(ways, Measure::option(argc, argv, "--repetitions", 9));
    const QByteArray heading =
        QStringLiteral("%1 running playbacks, %2 tracks known").arg(playbacks).arg(tracks).toUtf8();
    report.table(heading.constData(), ways, ticks, "tick");
    Page::setSink({});
    return length > 0 ? 0 : 1;
}
