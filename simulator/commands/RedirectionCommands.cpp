#include "simulator/AudioReceiver.h"
#include "simulator/EventLog.h"
#include "simulator/commands/CommandTable.h"
#include "simulator/commands/PlayFields.h"
#include "simulator/commands/PlaybackPushes.h"
#include "simulator/commands/UnitReport.h"
#include "simulator/state/Transport.h"

namespace simulator
{

namespace
{

bool maySpeak(Context& context, const QString& type)
{
    return (type == "microphone" && context.access().allows({Right::Microphone})) ||
           (type == "alarm" && context.access().allows({Right::Alarm}));
}

/// Sets the volume of the units that hear the speaker.
void setVolume(Context& context, const QVector<int>& units, int volume)
{
    for (int id : units) {
        context.installation().unit(id)->volume = volume;
    }
}

/// Takes the place of what the units play and of who speaks, and tells of both.
void takeOver(Context& context, const Redirection& redirection)
{
    Installation& installation = context.installation();
    if (installation.redirection) {
        for (const Push& push : silence(installation)) {
            context.pushToOthers(push);
        }
    }
    for (int unit : redirection.units) {
        for (int ended : freeUnit(installation, unit, context.who())) {
            context.push(stoppedPush(ended));
        }
    }
    installation.redirection = redirection;
    qCInfo(events).noquote() << "Redirection" << redirection.type << "started by" << context.who();
}

QJsonObject startRedirection(Context& context, const QJsonObject& request)
{
    Installation& installation = context.installation();
    Redirection redirection;
    redirection.type = request.value("type").toString();
    redirection.speaker = context.session().number();
    redirection.units = context.access().seenUnits(fromArray(request.value("devices")));
    if (!maySpeak(context, redirection.type)) {
        return refusal("forbidden");
    }
    const int rank = rankOf(redirection);
    if (installation.redirection && rankOf(*installation.redirection) > rank) {
        return refusal("lowPriority");
    }
    const QString word =
        settle(installation, rank, request.value("strategy").toString(), redirection.units);
    if (!word.isEmpty()) {
        return {{"response", word}};
    }
    const quint16 port = context.audioReceiver().open(context.session().localAddress());
    if (port == 0) {
        return refusal("error");
    }
    takeOver(context, redirection);
    const int volume = request.value("volume").toInt(-1);
    if (volume >= 0 && volume <= 100) {
        setVolume(context, redirection.units, volume);
    }
    context.pushToOthers(makePush("playback", "startRedirection"));
    pushUnits(context, redirection.units);
    return success({{"port", port}});
}

QJsonObject getRedirection(Context& context, const QJsonObject&)
{
    const std::optional<Redirection>& live = context.installation().redirection;
    QVector<int> units;
    if (live) {
        for (int id : context.access().seenUnits(live->units)) {
            if (context.installation().unit(id)->link == Link::Bidirectional) {
                units.append(id);
            }
        }
    }
    return success({{"type", live ? live->type : ""}, {"devices", toArray(units)}});
}

/// Whoever may speak may also end it, his own or another's.
QJsonObject stopRedirection(Context& context, const QJsonObject&)
{
    Installation& installation = context.installation();
    if (!installation.redirection) {
        return success();
    }
    if (!maySpeak(context, installation.redirection->type)) {
        return refusal("forbidden");
    }
    qCInfo(events).noquote() << "Redirection stopped by" << context.who();
    for (const Push& push : silence(installation)) {
        context.pushToOthers(push);
    }
    return success();
}

} // namespace

Commands redirectionCommands()
{
    const QLatin1String playback("playback");
    return {
        {playback, QLatin1String("startRedirection"), {Right::Session}, startRedirection},
        {playback, QLatin1String("getRedirection"), {Right::Session}, getRedirection},
        {playback, QLatin1String("stopRedirection"), {Right::Session}, stopRedirection},
    };
}

} // namespace simulator
