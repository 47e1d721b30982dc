#include "protocol/PlaybackState.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "model/Playback.h"
#include "model/Playlist.h"
#include "network/Fields.h"
#include "page/ScriptCall.h"

namespace PlaybackState
{

Playback* named(const QJsonObject& message, const char* field)
{
    const auto id = Fields::integer(message, field);
    Playback* const playback = id ? Data::getPlaybackById(*id) : nullptr;
    if (!playback) {
        Log::dropped(QStringLiteral("Ignored message: unknown playback %1").arg(id.value_or(0)));
    }
    return playback;
}

Playback& append(int id)
{
    auto made = std::make_unique<Playback>();
    made->setId(id);
    return *Data::playbackList.append(std::move(made));
}

bool mayBeShown(const Playback& playback)
{
    return Data::shownPlaybackId == 0 || Data::shownPlaybackId == playback.getId();
}

QVector<int> readActiveDevices(const QJsonObject& message)
{
    QVector<int> result;
    const QJsonArray elements = Fields::array(message, "activeDevices").value_or(QJsonArray());
    for (const QJsonValue& element : elements) {
        if (const auto id = Fields::integer(element)) {
            result.append(*id);
        } else {
            Log::dropped(QStringLiteral("Dropped unit of a playback: no id"));
        }
    }
    return result;
}

void setPlayback(Device& device, int playbackId, int category)
{
    device.setPlayback(playbackId);
    device.setPlaybackCategory(category);
}

void forgetGong(const Playback& playback)
{
    const bool isUnknownGong =
        Data::gongPlaybackId == 0 && playback.getCategory() == Playlist::gongRoot;
    if (isUnknownGong || playback.getId() == Data::gongPlaybackId) {
        Data::gongPlaybackId = 0;
        Page::call("gongStop");
    }
}

void finish(const Playback& playback)
{
    const int id = playback.getId();
    for (Device& device : Data::deviceList) {
        if (device.getPlayback() == id) {
            setPlayback(device, 0, PlaybackCategory::None);
        }
    }
    forgetGong(playback);
    Data::playbackList.remove(&playback);
    Page::call("wrapperInput_playback_clearItems");
    Page::call("wrapperInput_playback_stop", id);
}

} // namespace PlaybackState
