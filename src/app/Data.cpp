#include "app/Data.h"

#include "model/Device.h"
#include "model/DeviceMemory.h"
#include "model/Firmware.h"
#include "model/ModelList.h"
#include "model/Playback.h"
#include "model/Playlist.h"
#include "model/Preset.h"
#include "model/Role.h"
#include "model/ServerSettings.h"
#include "model/Task.h"
#include "model/Track.h"
#include "model/User.h"
#include "model/Zone.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"

QApplication* Data::app = nullptr;
QString Data::clientVersion = QStringLiteral("2.1.0.29");
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
ModelList<Zone> Data::zoneList;
QVector<Scenario> Data::scenarioList;
QVector<Message> Data::messageList;
QString Data::ip;
int Data::port = 0;
int Data::localPort = 0;
bool Data::blockStatus = false;
bool Data::userRoleChanged = false;
QString Data::loginMessage;
bool Data::leaving = false;
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

void Data::clearSession()
{
    waitForAlarm = 0;
    leaving = false;
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
