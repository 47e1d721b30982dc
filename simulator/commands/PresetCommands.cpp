#include "simulator/commands/CommandTable.h"
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

QJsonObject play(Context& context, const QJsonObject& request)
{
    const Preset* preset = context.installation().preset(request.value("id").toInt());
    if (!preset || !context.access().sees(*preset)) {
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
    return {
        {preset, QLatin1String("list"), {Right::Session}, list},
        {preset, QLatin1String("play"), {Right::Presets, Level::Read}, play},
    };
}

} // namespace simulator
