#include "view/WebView.h"

#include "app/Data.h"
#include "log/LogSettings.h"
#include "page/ScriptCall.h"
#include "view/SlotLog.h"

#include <QSettings>

namespace
{

/// Sets a switch of the log at once, and stores it. Its own line is filtered by what the switch of
/// the client's settings is at that moment.
void saveSwitch(const char* name, int level, bool value)
{
    const SlotLog log(name, QStringLiteral(" %1").arg(value), LogLevel::ClientSettings);
    Data::logSettings->set(level, value);
    const auto index = static_cast<std::size_t>(level - LogLevel::Connect);
    Data::settings->setValue(QLatin1String(LogSettings::keys[index]), value);
}

} // namespace

void WebView::settings_log_init()
{
    const SlotLog log("settings_log_init", {}, LogLevel::ClientSettings);
    const LogSettings& switches = *Data::logSettings;
    Page::call("wrapperInput_settings_log_connect", switches.isConnect());
    Page::call("wrapperInput_settings_log_access_error", switches.isAccessError());
    Page::call("wrapperInput_settings_log_client_settings", switches.isClientSettings());
    Page::call("wrapperInput_settings_log_playback", switches.isPlayback());
    Page::call("wrapperInput_settings_log_microphone_broadcasting",
               switches.isMicrophoneBroadcasting());
    Page::call("wrapperInput_settings_log_alarm_broadcasting", switches.isAlarmBroadcasting());
    Page::call("wrapperInput_settings_log_preset_start", switches.isPresetStart());
    Page::call("wrapperInput_settings_log_device_control", switches.isDeviceControl());
    Page::call("wrapperInput_settings_log_memory_play", switches.isMemoryPlay());
    Page::call("wrapperInput_settings_log_user_settings", switches.isUserSettings());
    Page::call("wrapperInput_settings_log_role_settings", switches.isRoleSettings());
    Page::call("wrapperInput_settings_log_zone_settings", switches.isZoneSettings());
    Page::call("wrapperInput_settings_log_device_settings", switches.isDeviceSettings());
    Page::call("wrapperInput_settings_log_playlist_settings", switches.isPlaylistSettings());
    Page::call("wrapperInput_settings_log_preset_settings", switches.isPresetSettings());
    Page::call("wrapperInput_settings_log_task_settings", switches.isTaskSettings());
    Page::call("wrapperInput_settings_log_server_settings", switches.isServerSettings());
    Page::call("wrapperInput_settings_log_server_log_settings", switches.isServerLogSettings());
}

#define VANTORDESK_SAVE_SLOT(Name, key)                                                            \
    void WebView::settings_saveLog##Name(bool value)                                               \
    {                                                                                              \
        saveSwitch("settings_saveLog" #Name, LogLevel::Name, value);                               \
    }
VANTORDESK_LOG_SWITCHES(VANTORDESK_SAVE_SLOT)
#undef VANTORDESK_SAVE_SLOT
