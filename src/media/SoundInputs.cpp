#include "media/SoundInputs.h"

#include <algorithm>

namespace
{

bool isOfServer(const SoundInput& input)
{
    return input.realm == QLatin1String("pulseaudio");
}

bool isMonitor(const SoundInput& input)
{
    return isOfServer(input) && input.name.endsWith(QLatin1String(".monitor"));
}

/// Leaves those that match, unless none does.
void prefer(QVector<SoundInput>& inputs, bool (*matches)(const SoundInput&))
{
    const auto rest = std::stable_partition(inputs.begin(), inputs.end(), matches);
    if (rest != inputs.begin()) {
        inputs.erase(rest, inputs.end());
    }
}

} // namespace

QStringList microphonesAmong(QVector<SoundInput> inputs)
{
    prefer(inputs, isOfServer);
    prefer(inputs, [](const SoundInput& input) { return !isMonitor(input); });
    QStringList names;
    for (const SoundInput& input : inputs) {
        names.append(input.name);
    }
    names.removeAll(QString());
    names.removeDuplicates();
    return names;
}
