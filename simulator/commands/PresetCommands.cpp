#include "simulator/commands/CommandTable.h"
#include "simulator/commands/PlayFields.h"

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

} // namespace

Commands presetCommands()
{
    return {{QLatin1String("preset"), QLatin1String("list"), {Right::Session}, list}};
}

} // namespace simulator
