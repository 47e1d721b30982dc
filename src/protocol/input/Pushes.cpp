#include "protocol/input/Pushes.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "protocol/input/InputProtocolDevice.h"
#include "protocol/input/InputProtocolHelper.h"
#include "protocol/input/InputProtocolLog.h"
#include "protocol/input/InputProtocolPlayback.h"
#include "protocol/input/InputProtocolPreset.h"
#include "protocol/input/InputProtocolRole.h"
#include "protocol/input/InputProtocolServer.h"
#include "protocol/input/InputProtocolTask.h"
#include "protocol/input/InputProtocolUser.h"
#include "protocol/input/InputProtocolZone.h"

#include <QJsonObject>

#include <algorithm>
#include <iterator>

namespace
{

/// A push by its two names, and what takes it; null drops it with a log line.
struct PushRow {
    const char* request;
    const char* action;
    void (*handler)(const QJsonObject& message);
};

constexpr PushRow pushes[] = {
    {"user", "reloadChanges", inputProtocolUserCommandReloadChanges},
    {"role", "reloadChanges", inputProtocolRoleCommandReloadChanges},
    {"device", "setState", inputProtocolDeviceCommandSetState},
    {"device", "reloadChanges", inputProtocolDeviceCommandReloadChanges},
    {"device", "startTranslation", inputProtocolDeviceCommandStartTranslation},
    {"zone", "reloadChanges", inputProtocolZoneCommandReloadChanges},
    {"zone", "includeDevice", inputProtocolZoneCommandIncludeDevice},
    {"zone", "excludeDevice", inputProtocolZoneCommandExcludeDevice},
    {"task", "start", inputProtocolTaskCommandStart},
    {"task", "add", inputProtocolTaskCommandAdd},
    {"task", "enable", inputProtocolTaskCommandEnable},
    {"task", "delete", inputProtocolTaskCommandDelete},
    {"task", "edit", inputProtocolTaskCommandEdit},
    {"preset", "reloadChanges", inputProtocolPresetCommandReloadChanges},
    {"preset", "start", inputProtocolPresetCommandStart},
    {"preset", "stop", inputProtocolPresetCommandStop},
    {"playback", "addPlaylist", inputProtocolPlaybackCommandAddPlaylist},
    {"playback", "addTrack", inputProtocolPlaybackCommandAddTrack},
    {"playback", "excludeTrack", inputProtocolPlaybackCommandExcludeTrack},
    {"playback", "remove", inputProtocolPlaybackCommandRemove},
    {"playback", "setTitle", inputProtocolPlaybackCommandSetTitle},
    {"playback", "play", inputProtocolPlaybackCommandPlay},
    {"playback", "stop", inputProtocolPlaybackCommandStop},
    {"playback", "pause", inputProtocolPlaybackCommandPause},
    {"playback", "playNext", inputProtocolPlaybackCommandPlayNext},
    {"playback", "startRedirection", inputProtocolPlaybackCommandStartRedirection},
    {"playback", "stopRedirection", inputProtocolPlaybackCommandStopRedirection},
    {"helper", "notify", inputProtocolHelperCommandNotify},
    {"helper", "brokenInternet", inputProtocolHelperCommandBrokenInternet},
    {"helper", "brokenLink", inputProtocolHelperCommandBrokenLink},
    {"server", "reloadChanges", inputProtocolServerCommandReloadChanges},
    {"log", "reloadChanges", inputProtocolLogCommandReloadChanges},
};

} // namespace

void routePush(const QJsonObject& message)
{
    const QString request = message.value(QLatin1String("request")).toString();
    const QString action = message.value(QLatin1String("action")).toString();
    const auto row = std::find_if(std::begin(pushes), std::end(pushes), [&](const PushRow& push) {
        return request == QLatin1String(push.request) && action == QLatin1String(push.action);
    });
    if (row != std::end(pushes) && row->handler) {
        row->handler(message);
    } else {
        Log::dropped(QStringLiteral("Dropped push: ") + request + QLatin1Char(' ') + action);
    }
}
