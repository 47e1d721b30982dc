#include "simulator/commands/Arrays.h"
#include "simulator/commands/CommandTable.h"

namespace simulator
{

namespace
{

QJsonObject describe(const Preset& preset)
{
    return {{"id", preset.id},
            {"title", preset.title},
            {"type", preset.type},
            {"playlistId", preset.playlist},
            {"target", preset.track},
            {"position", preset.position},
            {"targetPlaying", preset.targetPlaying},
            {"repeats", preset.repeats},
            {"actionIfEnd", preset.actionIfEnd},
            {"zones", toArray(preset.zones)},
            {"devices", toArray(preset.units)}};
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

} // namespace

Commands presetCommands()
{
    return {{QLatin1String("preset"), QLatin1String("list"), {Right::Session}, list}};
}

} // namespace simulator
