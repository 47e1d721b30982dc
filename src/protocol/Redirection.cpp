#include "protocol/Redirection.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "model/Words.h"
#include "network/Fields.h"
#include "page/ScriptCall.h"
#include "protocol/Reply.h"

namespace
{

/// The kinds of a broadcast, and how the units in it are marked.
constexpr std::array<Word<int>, 2> kinds{{
    {PlaybackCategory::Microphone, "microphone"},
    {PlaybackCategory::Alarm, "alarm"},
}};

constexpr Refusal startRefusals[] = {
    {"lowPriority", "modalAudioTranslationHide"},
    {"lowPriority", "modalLowPriorityShow"},
};

void mark(Device& device, int category)
{
    device.setPlayback(0);
    device.setPlaybackCategory(category);
}

/// Marks the units of `devices` after the kind `type`, and no others.
void markRedirection(const QJsonObject& redirection)
{
    unmarkRedirection();
    const auto category = valueOfWord(kinds, redirection.value(QLatin1String("type")).toString());
    if (!category) {
        return;
    }
    const QJsonArray devices = redirection.value(QLatin1String("devices")).toArray();
    for (const QJsonValue& element : devices) {
        const auto id = Fields::integer(element);
        if (!id) {
            Log::dropped(QStringLiteral("Ignored unit of a redirection: no id"));
        } else if (Device* const device = Data::getDeviceById(*id)) {
            mark(*device, *category);
        }
    }
}

} // namespace

RedirectionHooks& redirectionHooks()
{
    static RedirectionHooks hooks;
    return hooks;
}

void unmarkRedirection()
{
    for (Device& device : Data::deviceList) {
        const int category = device.getPlaybackCategory();
        if (category == PlaybackCategory::Microphone || category == PlaybackCategory::Alarm) {
            mark(device, PlaybackCategory::None);
        }
    }
}

void protocolPlaybackCommandStartRedirection(const QJsonObject& reply)
{
    showRefusal(reply, startRefusals);
    if (!succeeded(reply)) {
        return;
    }
    markRedirection(request(reply));
    if (redirectionHooks().started) {
        redirectionHooks().started(reply);
    }
}

void protocolPlaybackCommandGetRedirection(const QJsonObject& reply)
{
    if (succeeded(reply)) {
        markRedirection(reply);
    }
}

void protocolPlaybackCommandStopRedirection(const QJsonObject& reply)
{
    // Nobody speaks on because the server didn't take it in: the microphone closes, and the
    // operator hears that the units may still wait for it.
    if (redirectionHooks().stopped) {
        redirectionHooks().stopped();
    }
    if (succeeded(reply)) {
        unmarkRedirection();
    } else {
        Page::call("modalAudioTranslationStopError");
    }
}
