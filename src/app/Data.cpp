#include "app/Data.h"

#include "model/Device.h"
#include "model/DeviceMemory.h"
#include "model/Firmware.h"
#include "model/ModelList.h"
#include "model/Playback.h"
#include "model/Playlist.h"
#include "model/PlaylistWords.h"
#include "model/Preset.h"
#include "model/Role.h"
#include "model/ServerSettings.h"
#include "model/Task.h"
#include "model/Track.h"
#include "model/User.h"
#include "model/Zone.h"
#include "model/ZoneType.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"
#include "page/ScriptCall.h"

#include <QDate>
#include <QLocale>

#include <algorithm>

namespace
{

QString makeClientVersion()
{
    const QString built = QString::fromLatin1(__DATE__).simplified();
    const QDate date = QLocale::c().toDate(built, QStringLiteral("MMM d yyyy"));
    return QStringLiteral("2.1.0.29 (%1 %2)")
        .arg(date.toString(QStringLiteral("dd.MM.yyyy")), QLatin1String(__TIME__));
}

} // namespace

QApplication* Data::app = nullptr;
const QString Data::clientVersion = makeClientVersion();
bool Data::debugMode = false;
QSettings* Data::settings = nullptr;
LogSettings* Data::logSettings = nullptr;
WebView* Data::webView = nullptr;
TcpClient Data::tcpClient;
ModelList<Device> Data::deviceList;
NetworkParser Data::parser;
ModelList<Role> Data::roleList;
ModelList<Playback> Data::playbackList;
ModelList<Playlist> Data::playlistList;
ModelList<Preset> Data::presetList;
ServerList* Data::serverList = nullptr;
AudioManager* Data::audioManager = nullptr;
ServerSettings Data::serverSettings;
bool Data::deviceSave = true;
ModelList<Task> Data::tasks;
ModelList<Track> Data::trackList;
ModelList<User> Data::userList;
QVector<ZoneType> Data::zoneTypeList;
ModelList<Zone> Data::zoneList;
QVector<Scenario> Data::scenarioList;
QVector<Message> Data::messageList;
QString Data::ip;
int Data::port = 0;
int Data::localPort = 0;
bool Data::blockStatus = false;
bool Data::userRoleChanged = false;
bool Data::waitForExit = false;
int Data::waitForAlarm = 0;
quint8 Data::serverLogLevel = 0;
int Data::gongPlaybackId = 0;
int Data::shownDeviceId = 0;
int Data::shownPlaybackId = 0;
int Data::playbackForLoad = 0;
QVector<Firmware> Data::firmwareList;
QStringList Data::serverLogDates;
QString Data::currentMessagePath;
QString Data::currentFirmwarePath;
QString Data::currentLogPath;
QString Data::currentTrackPath;
QString Data::currentMessageDrive;
QString Data::currentFirmwareDrive;
QString Data::currentLogDrive;
QString Data::currentTrackDrive;

Device* Data::getDeviceById(int id)
{
    return deviceList.find(id);
}

Zone* Data::getZoneById(int id)
{
    return zoneList.find(id);
}

Playlist* Data::getPlaylistById(int id)
{
    return playlistList.find(id);
}

Playback* Data::getPlaybackById(int id)
{
    return playbackList.find(id);
}

Track* Data::getTrackById(int id)
{
    return trackList.find(id);
}

Preset* Data::getPresetById(int id)
{
    return presetList.find(id);
}

Task* Data::getTaskById(int id)
{
    return tasks.find(id);
}

Role* Data::getRoleById(int id)
{
    return roleList.find(id);
}

Role* Data::getRoleByName(const QString& name)
{
    return roleList.findIf([&](const Role& role) { return role.getName() == name; });
}

User* Data::getUserByName(const QString& name)
{
    return userList.findIf([&](const User& user) { return user.getName() == name; });
}

User* Data::getCurrentUser()
{
    return userList.findIf([](const User& user) { return user.getCurrent(); });
}

Role* Data::getCurrentRole()
{
    return roleList.findIf([](const Role& role) { return role.getCurrent(); });
}

Track* Data::getFirstTrackInPlaylist(int playlistId)
{
    return trackList.findIf([=](const Track& track) { return track.parentId == playlistId; });
}

QString Data::getPlaybackClass(int playbackId)
{
    return QStringLiteral("playback_%1").arg(playbackId);
}

int Data::getPlaybackType(int playlistId)
{
    int id = playlistId;
    // A way up that is longer than the list goes in a circle.
    for (int step = 0; step <= playlistList.size(); ++step) {
        if (id >= Playlist::firstRoot && id <= Playlist::lastRoot) {
            return id;
        }
        const Playlist* const playlist = id > 0 ? getPlaylistById(id) : nullptr;
        if (!playlist) {
            break;
        }
        id = playlist->getParent();
    }
    return 0;
}

QString Data::getPlaylistName(int index)
{
    constexpr int firstDeepParent = 9; // what hangs below it is shown without the steps above
    if (index < 0 || index >= playlistList.size()) {
        return {};
    }
    const Playlist& playlist = *playlistList.at(index);
    if (playlist.getId() <= Playlist::lastRoot) {
        return playlist.getTitle();
    }
    const QString separator = QStringLiteral(" / ");
    const Playlist* const parent = getPlaylistById(playlist.getParent());
    const QString path =
        (parent ? parent->getTitle() : PlaylistWords::categoryTitle(playlist.getGroup())) +
        separator + playlist.getTitle();
    return playlist.getParent() < firstDeepParent ? path : QStringLiteral("..") + separator + path;
}

int Data::getPlaylistNewPositionId(int parentId)
{
    int position = 0;
    for (const Playlist& playlist : playlistList) {
        if (playlist.getParent() == parentId) {
            position = playlist.getPosition() + 1;
        }
    }
    return position;
}

int Data::getTrackNewPositionId(int playlistId)
{
    int position = 0;
    for (const Track& track : trackList) {
        if (track.parentId == playlistId) {
            position = track.position + 1;
        }
    }
    return position;
}

namespace
{

template <class Entry> QVector<Entry> entriesOfDevice(const QVector<Entry>& list, int deviceId)
{
    QVector<Entry> result;
    std::copy_if(list.begin(), list.end(), std::back_inserter(result),
                 [=](const Entry& entry) { return entry.deviceId == deviceId; });
    return result;
}

template <class Entry>
void deleteEntry(QVector<Entry>& list, int deviceId, int position, const char* renumberScript)
{
    list.erase(std::remove_if(list.begin(), list.end(),
                              [=](const Entry& entry) {
                                  return entry.deviceId == deviceId && entry.position == position;
                              }),
               list.end());
    for (Entry& entry : list) {
        if (entry.deviceId == deviceId && entry.position >= position) {
            Page::call(renumberScript, deviceId, entry.position, entry.position - 1);
            --entry.position;
        }
    }
}

template <class Entry>
void deleteEntries(QVector<Entry>& list, int deviceId, const char* deleteScript,
                   const char* renumberScript)
{
    const auto ofDevice = [=](const Entry& entry) { return entry.deviceId == deviceId; };
    auto entry = std::find_if(list.begin(), list.end(), ofDevice);
    while (entry != list.end()) {
        const int position = entry->position;
        Page::call(deleteScript, deviceId, position);
        deleteEntry(list, deviceId, position, renumberScript);
        entry = std::find_if(list.begin(), list.end(), ofDevice);
    }
}

} // namespace

QVector<Message> Data::getDeviceMessages(int deviceId)
{
    return entriesOfDevice(messageList, deviceId);
}

QVector<Scenario> Data::getDeviceScenarios(int deviceId)
{
    return entriesOfDevice(scenarioList, deviceId);
}

void Data::deleteDeviceMessage(int deviceId, int position)
{
    deleteEntry(messageList, deviceId, position, "wrapperInput_device_setMessageId");
}

void Data::deleteDeviceScenario(int deviceId, int position)
{
    deleteEntry(scenarioList, deviceId, position, "wrapperInput_device_setScenarioId");
}

void Data::deleteDeviceMessages(int deviceId)
{
    deleteEntries(messageList, deviceId, "wrapperInput_device_deleteMessage",
                  "wrapperInput_device_setMessageId");
}

void Data::deleteDeviceScenarios(int deviceId)
{
    deleteEntries(scenarioList, deviceId, "wrapperInput_device_deleteScenario",
                  "wrapperInput_device_setScenarioId");
}

QVector<int> Data::getDeviceListFromTasks()
{
    QVector<int> result;
    const auto add = [&result](int deviceId) {
        if (!result.contains(deviceId)) {
            result.append(deviceId);
        }
    };
    for (const Task& task : tasks) {
        if (!task.getState()) {
            continue;
        }
        if (task.getDeviceList().isEmpty() && task.getZoneList().isEmpty()) {
            for (const Device& device : deviceList) {
                result.append(device.getId());
            }
            break;
        }
        for (const int zoneId : task.getZoneList()) {
            if (const Zone* const zone = getZoneById(zoneId)) {
                std::for_each(zone->getDeviceList().begin(), zone->getDeviceList().end(), add);
            }
        }
        std::for_each(task.getDeviceList().begin(), task.getDeviceList().end(), add);
    }
    return result;
}

void Data::clearSession()
{
    waitForAlarm = 0;
    waitForExit = false;
    userList.clear();
    roleList.clear();
    zoneList.clear();
    deviceList.clear();
    scenarioList.clear();
    messageList.clear();
    firmwareList.clear();
    playbackList.clear();
    playlistList.clear();
    trackList.clear();
    presetList.clear();
    tasks.clear();
    serverLogLevel = 0;
    serverLogDates.clear();
    ip.clear();
    port = 0;
    localPort = 0;
    blockStatus = false;
    gongPlaybackId = 0;
    playbackForLoad = 0;
    shownDeviceId = 0;
    shownPlaybackId = 0;
    for (QString* const path :
         {&currentTrackPath, &currentLogPath, &currentFirmwarePath, &currentMessagePath,
          &currentTrackDrive, &currentLogDrive, &currentFirmwareDrive, &currentMessageDrive}) {
        path->clear();
    }
}
