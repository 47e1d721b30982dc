#include "simulator/commands/CommandTable.h"
#include "simulator/commands/Definitions.h"
#include "simulator/commands/PlayFields.h"
#include "simulator/commands/PlaybackPushes.h"
#include "simulator/state/Transport.h"

namespace simulator
{

namespace
{

QJsonObject describe(const Preset& preset)
{
    QJsonObject fields{{"id", preset.id},        {"title", preset.title},
                       {"type", preset.type},    {"playlistId", preset.playlist},
                       {"target", preset.track}, {"position", preset.position}};
    insert(fields, preset.targets);
    insert(fields, preset.repetition);
    return fields;
}

QJsonObject list(Context& context, const QJsonObject&)
{
    QJsonArray presets;
    for (const Preset& preset : context.installation().presets) {
        if (context.access().sees(preset)) {
            presets.append(describe(preset));
        }
    }
    return success({{"presets", presets}});
}

/// The preset that a request names, null when there is none that the asker sees.
Preset* presetOf(Context& context, const QJsonObject& request)
{
    Preset* preset = context.installation().preset(request.value("id").toInt());
    return preset && context.access().sees(*preset) ? preset : nullptr;
}

/// What a request says of a preset; its id is the caller's.
Preset presetIn(const QJsonObject& request)
{
    Preset preset;
    preset.title = request.value("title").toString();
    preset.type = request.value("type").toString();
    preset.playlist = request.value("playlistId").toInt();
    preset.track = request.value("target").toInt();
    preset.position = request.value("position").toInt();
    preset.repetition = repetitionIn(request);
    preset.targets = targetsIn(request);
    return preset;
}

/// Whether what it plays is there: the first of a folder, or one that lies in it.
bool isAimed(const Installation& installation, const Preset& preset)
{
    const Track* track = installation.track(preset.track);
    return installation.playlist(preset.playlist) &&
           (preset.track == -1 || (track && track->playlist == preset.playlist));
}

QString objectionTo(const Installation& installation, const Preset& preset)
{
    if (!isTitle(preset.title) || preset.type != "playlist" || !isAimed(installation, preset)) {
        return "error";
    }
    return isTitleTaken(installation.presets, preset)
               ? "titleExists"
               : administratorsLack(installation, presetDefinitions, preset.playlist,
                                    preset.targets);
}

QJsonObject add(Context& context, const QJsonObject& request)
{
    Installation& installation = context.installation();
    Preset preset = presetIn(request);
    const QString objection = objectionTo(installation, preset);
    if (!objection.isEmpty()) {
        return {{"response", objection}};
    }
    preset.id = nextId(installation.presets);
    installation.presets.append(preset);
    grant(installation, presetDefinitions, preset.id);
    context.pushToOthers(reloadPush("preset"));
    return success({{"newId", preset.id}});
}

QJsonObject edit(Context& context, const QJsonObject& request)
{
    Preset* known = presetOf(context, request);
    Preset preset = presetIn(request);
    preset.id = request.value("id").toInt();
    const QString objection = known ? objectionTo(context.installation(), preset) : "error";
    if (!objection.isEmpty()) {
        return {{"response", objection}};
    }
    *known = preset;
    context.pushToOthers(reloadPush("preset"));
    return success();
}

/// What it has started goes on: a playback knows nothing of its preset.
QJsonObject remove(Context& context, const QJsonObject& request)
{
    const Preset* known = presetOf(context, request);
    if (!known) {
        return refusal("error");
    }
    QVector<Preset>& presets = context.installation().presets;
    withdraw(context.installation(), presetDefinitions, known->id);
    presets.remove(static_cast<int>(known - presets.constData()));
    context.pushToOthers(reloadPush("preset"));
    return success();
}

QJsonObject play(Context& context, const QJsonObject& request)
{
    const Preset* preset = presetOf(context, request);
    if (!preset) {
        return refusal("error");
    }
    StartOrder order;
    order.playlist = preset->playlist;
    order.track = preset->track;
    order.units = context.installation().unitsOf(preset->targets);
    order.strategy = request.value("strategy").toString();
    order.repetition = preset->repetition;
    order.by = context.who();
    const StartResult started = startPlayback(context.installation(), order);
    if (!started.refusal.isEmpty()) {
        return {{"response", started.refusal}};
    }
    pushStarted(context, started, makePush("preset", "start"));
    return success({{"result", started.playback}});
}

} // namespace

Commands presetCommands()
{
    const QLatin1String preset("preset");
    const Need administration{Right::Presets, Level::Administration};
    return {
        {preset, QLatin1String("list"), {Right::Session}, list},
        {preset, QLatin1String("play"), {Right::Presets, Level::Read}, play},
        {preset, QLatin1String("add"), administration, add},
        {preset, QLatin1String("edit"), administration, edit},
        {preset, QLatin1String("remove"), administration, remove},
    };
}

} // namespace simulator
