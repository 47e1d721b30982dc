#pragma once

#include "model/Device.h"
#include "model/Words.h"

/// What a unit reports of its battery and mains in one word.
struct BatteryReport {
    bool power; ///< mains present
    int status; ///< 2 full, 1 in between, 0 none or broken
};

/// The words of the wire for the state of a unit, each written here only.
namespace DeviceWords
{

inline constexpr std::array<Word<DeviceStatus>, 3> link{{
    {DeviceOffline, "no"},
    {DeviceIncoming, "incoming"},
    {DeviceOnline, "bidirectional"},
}};

inline constexpr std::array<Word<BatteryReport>, 6> battery{{
    {{true, 2}, "ok"},
    {{true, 1}, "charge"},
    {{false, 1}, "acPowerMissing"},
    {{true, 0}, "missing"},
    {{true, 0}, "error"},
    {{false, 0}, "unknown"},
}};

/// True for a closed case.
inline constexpr std::array<Word<bool>, 2> hull{{
    {true, "close"},
    {false, "open"},
}};

/// Categories of playback, see `PlaybackCategory`.
inline constexpr std::array<Word<int>, 16> playback{{
    {PlaybackCategory::None, "none"},
    {PlaybackCategory::Radio, "radio"},
    {PlaybackCategory::Playlist, "playlist"},
    {PlaybackCategory::Advertising, "ad"},
    {PlaybackCategory::ServiceMessage, "service_message"},
    {PlaybackCategory::Microphone, "record"},
    {PlaybackCategory::Microphone, "microphone"},
    {PlaybackCategory::AlarmMessage, "alarm_message"},
    {PlaybackCategory::Gong, "gong"},
    {PlaybackCategory::CivilDefence, "analog_input0"},
    {PlaybackCategory::CivilDefence, "analog_input1"},
    {PlaybackCategory::CivilDefence, "sine"},
    {PlaybackCategory::CivilDefence, "voice_high_repeating"},
    {PlaybackCategory::MemoryMessage, "message"},
    {PlaybackCategory::MemoryScenario, "scenario"},
    {PlaybackCategory::Alarm, "alarm"},
}};

} // namespace DeviceWords
