#pragma once

#include "network/NetworkParser.h"

#include <cstddef>

/// The protocols, in the order of registration: the numbers route the replies.
enum class ProtocolId {
    Device,
    Helper,
    Log,
    Package,
    Playback,
    Preset,
    Role,
    Server,
    Task,
    User,
    Zone
};

/// The commands of each protocol, in the order of its table; the numbers route the replies.
/// `Count` is no command.
enum class DeviceCommand {
    GetDevices,
    FindLostDevices,
    GetState,
    GetTitle,
    SetTitle,
    GetVolume,
    SetVolume,
    GetChannel,
    SetEqualizer,
    GetEqualizer,
    Reboot,
    SaveFirmware,
    DeleteFirmware,
    ListFirmware,
    UpgradeFirmware,
    GetProgressOfUpgrading,
    GetMemoryStamp,
    AddMessage,
    DeleteMessage,
    ListMessages,
    AddScenario,
    DeleteScenario,
    ListScenarios,
    RevertChanges,
    GetAvailableMemory,
    UploadImage,
    DownloadImage,
    ClearMemory,
    ApplyToDevice,
    GetProgressOfApplying,
    PlayMessage,
    PlayScenario,
    GetPlays,
    Stop,
    GetConfig,
    SetConfig,
    MeasureLine,
    ExchangeHardwareAddresses,
    AddTipDevice,
    AddTipDevices,
    RemoveTipDevice,
    RemoveTipDevices,
    SetTipDeviceTitle,
    GetDebugInfo,
    Count
};
enum class HelperCommand {
    CheckInternet,
    CheckServerUpdate,
    GetCurrentServerVersion,
    GetDateTime,
    Count
};
enum class LogCommand {
    GetLevel,
    SetLevel,
    GetServerLog,
    SaveClientLog,
    GetClientLog,
    List,
    Count
};
enum class PlaybackCommand {
    AddPlaylist,
    AddTrack,
    EndTrack,
    IncludeTrack,
    ExcludeTrack,
    SetPosition,
    SetRepetition,
    SetVolume,
    SetTitle,
    Remove,
    List,
    GetTrack,
    Play,
    PlayNext,
    Pause,
    GetPlays,
    Stop,
    StartRedirection,
    GetRedirection,
    StopRedirection,
    Count
};
enum class PresetCommand { Add, Edit, SetPosition, SetTitle, Remove, List, Play, Stop, Count };
enum class RoleCommand {
    Add,
    Edit,
    Delete,
    GetInfo,
    List,
    Include,
    Exclude,
    SetRedirection,
    GetRedirection,
    SetServer,
    GetServer,
    SetTasks,
    GetTasks,
    SetZones,
    GetZones,
    SetPlaylist,
    GetPlaylist,
    SetPreset,
    GetPreset,
    SetPermissions,
    Count
};
enum class ServerCommand {
    GetSettings,
    GetNetworkInterfaceList,
    SetNetworkInterface,
    SetMulticastIp,
    SetCommandPort,
    Restart,
    Count
};
enum class TaskCommand { Add, Edit, Enable, Delete, List, GetPlays, Count };
enum class UserCommand {
    Add,
    Login,
    Logout,
    Delete,
    CheckAccess,
    Edit,
    GetInfo,
    List,
    GetConnected,
    SaveValue,
    LoadValue,
    Count
};
enum class ZoneCommand { Add, Edit, Delete, List, IncludeDevice, ExcludeDevice, Count };

// clang-format off
constexpr ProtocolId protocolOf(DeviceCommand) { return ProtocolId::Device; }
constexpr ProtocolId protocolOf(HelperCommand) { return ProtocolId::Helper; }
constexpr ProtocolId protocolOf(LogCommand) { return ProtocolId::Log; }
constexpr ProtocolId protocolOf(PlaybackCommand) { return ProtocolId::Playback; }
constexpr ProtocolId protocolOf(PresetCommand) { return ProtocolId::Preset; }
constexpr ProtocolId protocolOf(RoleCommand) { return ProtocolId::Role; }
constexpr ProtocolId protocolOf(ServerCommand) { return ProtocolId::Server; }
constexpr ProtocolId protocolOf(TaskCommand) { return ProtocolId::Task; }
constexpr ProtocolId protocolOf(UserCommand) { return ProtocolId::User; }
constexpr ProtocolId protocolOf(ZoneCommand) { return ProtocolId::Zone; }
// clang-format on

/// A row of a protocol's table: a command's registered name, the handler of its replies (null
/// drops them with a log line), and its name on the wire where that differs.
struct CommandRow {
    const char* name;
    void (*handler)(const QJsonObject& reply) = nullptr;
    const char* wireName = nullptr;
};

/// Registers a protocol with the rows of its table. A reply to what doesn't only read runs
/// `wrapperInput_global_answered("<protocol>/<name>","<word>")` behind its handler.
void registerProtocol(NetworkParser* parser, const char* name, const CommandRow* rows,
                      std::size_t count);

/// The same for a table that must have one row a command, in the order of the commands.
template <class Command, std::size_t count>
void registerProtocol(NetworkParser* parser, const char* name, const CommandRow (&rows)[count])
{
    static_assert(count == static_cast<std::size_t>(Command::Count), "one row a command");
    registerProtocol(parser, name, rows, count);
}
