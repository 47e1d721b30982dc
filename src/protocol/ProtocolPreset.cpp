#include "protocol/ProtocolPreset.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "model/Playback.h"
#include "model/Playlist.h"
#include "model/Preset.h"
#include "model/Role.h"
#include "model/Track.h"
#include "page/ScriptCall.h"
#include "protocol/Commands.h"
#include "protocol/PlayFields.h"
#include "protocol/PlaybackState.h"
#include "protocol/Protocols.h"
#include "protocol/Reply.h"

#include <QSet>

#include <tuple>

namespace
{

constexpr CommandRow commands[] = {
    {"add", protocolPresetCommandAdd},
    {"edit", protocolPresetCommandEdit},
    {"setPosition", ignoreReply},
    {"setTitle", ignoreReply},
    {"remove", protocolPresetCommandRemove},
    {"list", protocolPresetCommandList},
    {"play", protocolPresetCommandPlay},
    {"stop", ignoreReply},
};

constexpr Refusal playRefusals[] = {
    {"busyPorts", "modalBusyShow"},      {"lowPriority", "modalLowPriorityShow"},
    {"noDevices", "modalNoDevicesShow"}, {"required", "modalRequiredUpdateShow"},
    {"playbackError", "modalPlayError"},
};

void readFields(Preset& preset, const QJsonObject& message)
{
    FieldSetter set(preset, message, "preset");
    set.word("type", Preset::types, &Preset::setType);
    set.integer("playlistId", &Preset::setPlaylist);
    set.integer("target", &Preset::setTarget);
    set.integer("position", &Preset::setPosition);
    PlayFields::read(set);
}

void addPreset(int id, const QJsonObject& message)
{
    auto made = std::make_unique<Preset>();
    made->setId(id);
    readFields(*made, message);
    Data::presetList.append(std::move(made))->addToPage();
}

/// The page knows neither folder nor targets by scripts of their own.
void refresh(Preset& preset, const QJsonObject& element)
{
    const auto shown = [&preset] {
        return std::make_tuple(preset.getPlaylist(), preset.getTarget(), preset.getZoneList(),
                               preset.getDeviceList());
    };
    const auto before = shown();
    readFields(preset, element);
    if (shown() != before) {
        preset.addToPage();
    }
}

void removePreset(const Preset& preset)
{
    Page::call("wrapperInput_preset_delete", preset.getId());
    Data::presetList.remove(&preset);
}

/// The preset that a request named; null, with a log line, if it has gone.
Preset* requested(const QJsonObject& reply)
{
    const auto id = Fields::integer(request(reply), "id");
    Preset* const preset = id ? Data::getPresetById(*id) : nullptr;
    if (!preset) {
        Log::dropped(QStringLiteral("Ignored reply: unknown preset %1").arg(id.value_or(0)));
    }
    return preset;
}

void openPlaybacks(int playbackId)
{
    Page::call("wrapperInput_playback_selectPlayback", playbackId);
    Page::call("loadSideMenu", QStringLiteral("playback"));
    Page::call("changeMenu", QStringLiteral("playlist"));
    Page::call("loadMainBody", QStringLiteral("playback_list"));
    Page::call("loadBotMenu", QStringLiteral("playback_list"));
}

bool isCarried(int playbackId)
{
    return Data::deviceList.findIf(
               [=](const Device& device) { return device.getPlayback() == playbackId; }) != nullptr;
}

/// A unit leaves what it has played; a playback that no unit carries any more has ended.
void take(Device& device, const Playback& playback)
{
    const int former = device.getPlayback();
    PlaybackState::setPlayback(device, playback.getId(), playback.getCategory());
    const Playback* const left = former > 0 ? Data::getPlaybackById(former) : nullptr;
    if (left && left != &playback && !isCarried(former)) {
        Data::playbackList.remove(left);
    }
}

void startPlayback(int playbackId, const Preset& preset)
{
    if (Data::getPlaybackById(playbackId)) {
        return; // the push has been faster
    }
    Playback& playback = PlaybackState::append(playbackId);
    const Playlist* const folder = Data::getPlaylistById(preset.getPlaylist());
    const Track* const track = preset.track();
    playback.setTimeShift(0.0);
    playback.setPlaylistId(preset.getPlaylist());
    playback.setPlaying(true);
    playback.setTrackId(track ? track->getId() : 0);
    playback.setPlaybackType(folder ? folder->getGroup() : 0);
    QVector<int> targets = preset.targetUnits();
    for (const Device& device : Data::deviceList) {
        if (preset.isForAll()) {
            targets.append(device.getId());
        }
    }
    for (const int id : qAsConst(targets)) {
        Device* const device = Data::getDeviceById(id);
        if (device && device->getStatus() == DeviceOnline) {
            take(*device, playback);
        }
    }
}

} // namespace

void initProtocolPreset(NetworkParser* parser)
{
    registerProtocol<PresetCommand>(parser, "preset", commands);
}

void protocolPresetCommandPlay(const QJsonObject& reply)
{
    const auto id = Fields::integer(request(reply), "id");
    showRefusal(reply, playRefusals);
    if (response(reply) == QLatin1String("overlap") && id) {
        Page::call("modalOverlapShow", *id);
    }
    const auto playbackId = succeeded(reply) ? Fields::integer(reply, "result") : std::nullopt;
    if (!playbackId) {
        return;
    }
    openPlaybacks(*playbackId);
    const Preset* const preset = requested(reply);
    if (preset && preset->getType() == 0) {
        startPlayback(*playbackId, *preset);
    }
}

void protocolPresetCommandList(const QJsonObject& reply)
{
    const auto elements = Fields::array(reply, "presets");
    if (!succeeded(reply) || !elements) {
        Log::dropped(QStringLiteral("Ignored presets: no list"));
        return;
    }
    QSet<int> named;
    for (const QJsonValue& element : *elements) {
        named.insert(element.toObject().value(QLatin1String("id")).toInt(-1));
    }
    const auto isGone = [&](const Preset& preset) { return !named.contains(preset.getId()); };
    while (const Preset* const gone = Data::presetList.findIf(isGone)) {
        removePreset(*gone);
    }
    for (const QJsonValue& value : *elements) {
        const QJsonObject element = value.toObject();
        const auto id = Fields::integer(element, "id");
        Preset* const known = id ? Data::getPresetById(*id) : nullptr;
        if (known) {
            refresh(*known, element);
        } else if (id) {
            addPreset(*id, element);
        } else {
            Log::dropped(QStringLiteral("Dropped preset of the list: no id"));
        }
    }
}

void protocolPresetCommandAdd(const QJsonObject& reply)
{
    showRefusal(reply, PlayFields::addRefusals);
    const auto id = succeeded(reply) ? Fields::integer(reply, "newId") : std::nullopt;
    if (id) {
        if (!Data::getPresetById(*id)) {
            addPreset(*id, request(reply));
        }
        Page::call("modalAdminAddPresetHide");
        Page::call("modalAdminCopyPresetCancel");
    }
}

void protocolPresetCommandEdit(const QJsonObject& reply)
{
    showRefusal(reply, PlayFields::editRefusals);
    Preset* const preset = succeeded(reply) ? requested(reply) : nullptr;
    if (preset) {
        const QJsonObject asked = request(reply);
        FieldSetter set(*preset, asked, "preset edit");
        PlayFields::read(set);
        Page::call("modalAdminPresetSavedShow");
    }
}

void protocolPresetCommandRemove(const QJsonObject& reply)
{
    const Preset* const preset = succeeded(reply) ? requested(reply) : nullptr;
    if (preset) {
        const int id = preset->getId();
        removePreset(*preset);
        for (Role& role : Data::roleList) {
            role.presets.removeAll(id);
        }
    }
}
