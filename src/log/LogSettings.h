#pragma once

#include <array>

/// Every switch of what the client logs, once: its accessors' name and its key in config.ini.
/// The order is the order of the log levels from 2 on.
#define VANTORDESK_LOG_SWITCHES(SWITCH)                                                            \
    SWITCH(Connect, "log/connect")                                                                 \
    SWITCH(AccessError, "log/access_error")                                                        \
    SWITCH(ClientSettings, "log/client_settings")                                                  \
    SWITCH(Playback, "log/playback")                                                               \
    SWITCH(MicrophoneBroadcasting, "log/microphone_broadcasting")                                  \
    SWITCH(AlarmBroadcasting, "log/alarm_broadcasting")                                            \
    SWITCH(PresetStart, "log/preset_start")                                                        \
    SWITCH(DeviceControl, "log/device_control")                                                    \
    SWITCH(MemoryPlay, "log/memory_play")                                                          \
    SWITCH(UserSettings, "log/user_settings")                                                      \
    SWITCH(RoleSettings, "log/role_settings")                                                      \
    SWITCH(ZoneSettings, "log/zone_settings")                                                      \
    SWITCH(DeviceSettings, "log/device_settings")                                                  \
    SWITCH(PlaylistSettings, "log/playlist_settings")                                              \
    SWITCH(PresetSettings, "log/preset_settings")                                                  \
    SWITCH(TaskSettings, "log/task_settings")                                                      \
    SWITCH(ServerSettings, "log/server_settings")                                                  \
    SWITCH(ServerLogSettings, "log/server_log_settings")

/// Numbers of the log levels; the level only filters a line and is never printed.
namespace LogLevel
{
enum Level : int {
    Always = 0, ///< program life, traffic headers, page flow
    Debug = 1,  ///< traffic trace, written with --debug only
#define VANTORDESK_LOG_LEVEL(Name, key) Name,
    VANTORDESK_LOG_SWITCHES(VANTORDESK_LOG_LEVEL)
#undef VANTORDESK_LOG_LEVEL
        End ///< one past the last level that has a switch
};
} // namespace LogLevel

/// The eighteen switches of what the client logs. All are off until set.
class LogSettings
{
public:
    static constexpr int switchCount = LogLevel::End - LogLevel::Connect;

    /// Keys in config.ini, in the order of the levels.
    static constexpr std::array<const char*, switchCount> keys = {
#define VANTORDESK_LOG_KEY(Name, key) key,
        VANTORDESK_LOG_SWITCHES(VANTORDESK_LOG_KEY)
#undef VANTORDESK_LOG_KEY
    };

#define VANTORDESK_LOG_ACCESSORS(Name, key)                                                        \
    bool is##Name() const                                                                          \
    {                                                                                              \
        return isOn(LogLevel::Name);                                                               \
    }                                                                                              \
    void set##Name(bool on)                                                                        \
    {                                                                                              \
        set(LogLevel::Name, on);                                                                   \
    }
    VANTORDESK_LOG_SWITCHES(VANTORDESK_LOG_ACCESSORS)
#undef VANTORDESK_LOG_ACCESSORS

    /// The switch of a level from `LogLevel::Connect` to `LogLevel::End` - 1.
    bool isOn(int level) const
    {
        return switches[static_cast<std::size_t>(level - LogLevel::Connect)];
    }
    void set(int level, bool on)
    {
        switches[static_cast<std::size_t>(level - LogLevel::Connect)] = on;
    }

private:
    std::array<bool, switchCount> switches{};
};
