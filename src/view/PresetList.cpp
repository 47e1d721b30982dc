#include "view/WebView.h"

#include "app/Data.h"
#include "log/Log.h"
#include "model/Device.h"
#include "model/Library.h"
#include "model/ModelList.h"
#include "model/Playlist.h"
#include "model/Preset.h"
#include "model/Task.h"
#include "model/Track.h"
#include "page/ScriptCall.h"
#include "protocol/PlayFields.h"
#include "protocol/Request.h"
#include "view/ScriptPipe.h"
#include "view/SlotLog.h"

namespace
{

void logPreset(const Preset& preset)
{
    Log::message(QStringLiteral("Load preset: %1 - ").arg(preset.getId()) + preset.getTitle(),
                 LogLevel::PresetSettings);
}

QVector<int> presetIds()
{
    QVector<int> ids;
    for (const Preset& preset : Data::presetList) {
        ids.append(preset.getId());
    }
    return ids;
}

/// The position of a new one: behind the last, by its id.
int newPosition()
{
    return Data::presetList.isEmpty()
               ? 0
               : Data::presetList.at(Data::presetList.size() - 1)->getId() + 1;
}

void sendPreset(PresetCommand command, QJsonObject fields, const QString& title, int playlist,
                int target, int position)
{
    fields.insert(QStringLiteral("title"), title);
    fields.insert(QStringLiteral("playlistId"), playlist);
    fields.insert(QStringLiteral("target"), target);
    fields.insert(QStringLiteral("position"), position);
    send(command, fields);
}

QJsonObject playFields(const QString& type, const QVector<int>& zones, const QVector<int>& devices,
                       const QString& targetPlaying, int repeats, const QString& action)
{
    return {{QStringLiteral("type"), type},
            {QStringLiteral("zones"), PlayFields::idArray(zones)},
            {QStringLiteral("devices"), PlayFields::idArray(devices)},
            {QStringLiteral("targetPlaying"), targetPlaying},
            {QStringLiteral("repeats"), repeats},
            {QStringLiteral("actionIfEnd"), action}};
}

const QString madeType = QStringLiteral("playlist");

void showForm(const Preset& preset)
{
    const int id = preset.getId();
    const Playlist* const folder = Data::getPlaylistById(preset.getPlaylist());
    const Track* const known = preset.track();
    const Track* const track = known ? known : Data::getFirstTrackInPlaylist(preset.getPlaylist());
    Page::call("wrapperInput_preset_select", id);
    Page::call("wrapperInput_preset_setId", id);
    Page::call("wrapperInput_preset_setTitle", id, preset.getTitle());
    Page::call("wrapperInput_preset_setType", id, Library::getPlaybackType(preset.getPlaylist()));
    Page::call("wrapperInput_preset_setPlaylist", id, folder ? folder->getTitle() : QString());
    Page::call("wrapperInput_preset_setTrack", id, track ? track->getTitle() : QString());
    Page::call("wrapperInput_preset_setTargetPlaying", id, preset.getTargetPlaying());
    Page::call("wrapperInput_preset_setRepeats", id, preset.getRepeats());
    Page::call("wrapperInput_preset_setActionIfEnd", id, preset.getActionIfEnd());
    Page::call("wrapperInput_preset_clearDevices", id);
    Page::call("wrapperInput_preset_clearZones", id);
    for (const int zone : preset.getZoneList()) {
        Page::call("wrapperInput_preset_selectZone", id, zone);
    }
    for (const int device : preset.getDeviceList()) {
        Page::call("wrapperInput_preset_selectDevice", id, device);
    }
}

} // namespace

void WebView::preset_loadList()
{
    const SlotLog log("preset_loadList", {}, LogLevel::PresetSettings);
    scripts.replay("presets", presetIds(), [](int id) {
        if (const Preset* const preset = Data::getPresetById(id)) {
            logPreset(*preset);
            preset->addToPage();
        }
    });
}

void WebView::preset_loadDevices(int id)
{
    const SlotLog log("preset_loadDevices", QStringLiteral(": %1").arg(id));
    Page::call("wrapperInput_preset_clearDevices", id);
    const Preset* const preset = Data::getPresetById(id);
    const QVector<int> units = preset ? preset->targetUnits() : QVector<int>();
    const ScriptPipe::Gathering cards(scripts);
    for (const int unit : units) {
        const Device* const device = Data::getDeviceById(unit);
        if (!device) {
            continue;
        }
        Page::call("wrapperInput_preset_addDevice", id, unit, device->getName(),
                   device->getPlaybackCategory(), device->getVolume(),
                   static_cast<int>(device->getStatus()));
        const Task* const task = Data::getTaskById(device->getTaskId());
        if (device->getPlayback() > 0 && task) {
            Page::call("wrapperInput_device_setTask", unit, task->getId(), task->getTitle());
        }
    }
}

void WebView::preset_startPlay(int id, const QString& strategy)
{
    const SlotLog log("preset_startPlay", QStringLiteral(": %1, ").arg(id) + strategy);
    const Preset* const preset = Data::getPresetById(id);
    if (preset && preset->isForAll()) {
        Page::call("modalNoDevicesShow");
    } else if (preset) {
        send(PresetCommand::Play,
             {{QStringLiteral("id"), id}, {QStringLiteral("strategy"), strategy}});
    }
}

void WebView::admin_loadPresetList()
{
    const SlotLog log("admin_loadPresetList", {}, LogLevel::PresetSettings);
    {
        const ScriptPipe::Gathering list(scripts);
        for (const Preset& preset : Data::presetList) {
            logPreset(preset);
            preset.addToPage(Library::getPlaybackType(preset.getPlaylist()));
        }
    }
    scripts.flush(); // the page goes on to the last one
}

void WebView::admin_selectPreset(int id)
{
    const SlotLog log("admin_selectPreset", QStringLiteral(": %1").arg(id),
                      LogLevel::PresetSettings);
    {
        const ScriptPipe::Gathering form(scripts);
        if (const Preset* const preset = Data::getPresetById(id)) {
            showForm(*preset);
        }
    }
    scripts.flush();
}

void WebView::admin_addPreset(const QString& name, const QString& type, int playlist, int track,
                              const QList<int>& zones, const QList<int>& devices,
                              const QString& replayType, int replyCount, const QString& action)
{
    const SlotLog log("admin_addPreset", QStringLiteral(": ") + name, LogLevel::PresetSettings);
    sendPreset(
        PresetCommand::Add,
        playFields(type, zones.toVector(), devices.toVector(), replayType, replyCount - 1, action),
        name, playlist, track, newPosition());
}

void WebView::admin_editPreset(int id, const QString& title, const QList<int>& zones,
                               const QList<int>& devices, const QString& replayType, int replyCount,
                               const QString& action)
{
    const SlotLog log("admin_editPreset", QStringLiteral(": %1, ").arg(id) + title,
                      LogLevel::PresetSettings);
    if (const Preset* const preset = Data::getPresetById(id)) {
        QJsonObject fields = playFields(madeType, zones.toVector(), devices.toVector(), replayType,
                                        replyCount - 1, action);
        fields.insert(QStringLiteral("id"), id);
        sendPreset(PresetCommand::Edit, fields, title, preset->getPlaylist(), preset->getTarget(),
                   preset->getPosition());
    }
}

void WebView::admin_copyPreset(int id, const QString& title)
{
    const SlotLog log("admin_copyPreset", QStringLiteral(": %1, ").arg(id) + title,
                      LogLevel::PresetSettings);
    if (const Preset* const preset = Data::getPresetById(id)) {
        sendPreset(PresetCommand::Add,
                   playFields(madeType, preset->getZoneList(), preset->getDeviceList(),
                              preset->getTargetPlaying(), preset->getRepeats(),
                              preset->getActionIfEnd()),
                   title, preset->getPlaylist(), preset->getTarget(), newPosition());
    }
}

void WebView::admin_deletePreset(int id)
{
    const SlotLog log("admin_deletePreset", QStringLiteral(": %1").arg(id),
                      LogLevel::PresetSettings);
    send(PresetCommand::Remove, {{QStringLiteral("id"), id}});
}
