#pragma once

#include <QList>
#include <QObject>
#include <QVariantList>

#include <functional>
#include <memory>

class Device;
class Discovery;
class FileWork;
class FolderBrowser;
class IdleLock;
class LogFeed;
class QWebFrame;
class QWebView;
class ScriptPipe;
class Upload;

/// The window, and the single door between pages and native code: published to the pages as
/// `wrapper`, it receives every action of the operator through its slots, which send a request or
/// replay the mirror into the page. The slots of a page stand in a file named after it.
class WebView : public QObject
{
    Q_OBJECT
public:
    /// Begins to load the login page; the parts have to outlive the window.
    struct Parts {
        ScriptPipe& scripts;
        Discovery& discovery;
        IdleLock& lock;
        FolderBrowser& folders;
        Upload& upload;
        FileWork& fileWork;
        LogFeed& logFeed;
    };
    explicit WebView(const Parts& parts);
    ~WebView() override;

    /// The top-level window.
    QWebView* getView() const { return view.get(); }
    /// The frame of the page on show, on which all scripts run.
    QWebFrame* frame() const;
    /// Ends the program, as the operator's closing of the window does.
    void closeWindow();
    /// Has the login page say that the connection has gone: the next one, or the one on show if it
    /// waits for an answer.
    void tellConnectionLost();
    /// The login's last reply has come: what the engine has piled up over the login is given back
    /// once the page has come, too.
    void loginCompleted();
    /// Keeps the image of a unit's memory in the client's folder, and says how that went.
    void saveMemoryImage(const QString& name, const QByteArray& base64);

public Q_SLOTS:
    // Frame: WebView.cpp
    /// After every page load: publishes `wrapper` again, shows the window after the first one.
    void loaded(bool succeeded);
    /// Runs one script in the page on show, behind the calls that wait.
    void runJavascript(const QString& text);
    /// The calls that wait for the page, as data; see calls.js.
    QString frame_takeCalls();
    /// Ends what the session has under way in the view: the lock's timer, lists still filling.
    void stopTimers();
    void global_about();
    /// Replays what the frame may have missed while it loaded: user, clock, administration entry,
    /// alarm icons, and the end of the login.
    void global_loadFrame();

    // Servers and discovery: ServerSlots.cpp
    void login_serverList();
    void login_addServer(const QString& ip, int port);
    /// `address` is the text ip, "/", port.
    void login_deleteServer(const QString& address);
    void login_findServer();
    void login_serverFound();
    void login_stopFindingServer();

    // Session: Login.cpp
    /// Connects, blocking for 3 seconds at most, and asks for the login; `address` is the text ip,
    /// "/", port.
    void login_tryLogin(const QString& name, const QString& password, const QString& address);
    void login_loginSuccess();
    void login_loginError();
    void global_logout();
    void global_exit();
    void loadLoginPage();

    // Screen lock: Block.cpp
    void resetBlockTimer();
    void modal_blockShow();
    /// These three ask the server whether the password is right; the answer opens what is behind.
    void modal_tryUnblock(const QString& password);
    void modal_tryUnblockAlarm(const QString& password);
    void modal_tryUnblockTranslation(const QString& password);
    void settings_block_init();
    /// `minutes` of 0 or less are stored as one minute.
    void settings_block_save(bool enabled, int minutes);

    // Home page and lists of units: DeviceList.cpp
    void deviceList_listLoad();
    /// The same for the pages on which the operator picks units to play on.
    void deviceList_listSelectLoad();
    /// 0 to 100.
    void deviceList_setDeviceVolume(int id, int volume);
    /// Plays a fragment (type 0) or a message (type 1) of the unit's own memory.
    void deviceList_playAudio(int id, int position, int type);
    /// Stops the whole group that the unit plays in.
    void deviceList_stopAudio(int id);
    /// Ten bands, or bass and treble, whichever the unit has. One slot for whole and half steps:
    /// of two overloads the bridge would always take the first, and cut the halves off.
    void deviceInfo_setDeviceEqualizer(int id, const QVariantList& levels);

    // One unit: DeviceInfo.cpp
    void menu_loadDeviceInfoList();
    void menu_loadDeviceInfo(int id);
    void deviceInfo_includeToZone(int deviceId, int zoneId);
    void deviceInfo_excludeFromZone(int deviceId, int zoneId);

    // Zones: ZoneList.cpp
    void menu_zoneLoadList();
    /// Adds everything below that zone, parents before their children.
    void menu_subZoneLoad(int parentId);
    void deviceInfo_loadZoneList();
    void zone_includeDevice(int zoneId, int deviceId);
    void zone_excludeDevice(int zoneId, int deviceId);

    // Playbacks and the library: Playback.cpp
    void playback_loadList();
    /// The tracks of a playback's folder, and the mean volume of its units.
    void playback_loadPlayback(int id);
    /// A folder, with the way up in front.
    void playback_loadPlaybackWithPlaylist(int id);
    /// All tracks of a category, from all its folders.
    void playback_loadPlaybackType(int type);
    void playback_loadZoneList();
    /// `devices` are ids with commas between. `strategy` for units in use: "none", "overlap",
    /// "partial"; `replayType` "list" or "track"; `replyCount` counts all passes, the first too;
    /// `action` after the last: "pause" or "stop".
    void playback_play(int playlistId, int trackId, const QString& devices, const QString& strategy,
                       const QString& replayType, int replyCount, const QString& action);
    void playback_stop(int id);
    /// `value` true pauses, false goes on.
    void playback_pause(int id, bool value);
    /// Behind the last track of the folder the server decides.
    void playback_next(int id);
    /// Before the first track of the folder the current one starts again.
    void playback_prev(int id);
    void playback_nextById(int id, int trackId);
    /// 0 to 100; `target` is "playback", or "redirection" for the microphone, whose volume is
    /// remembered. An id of -1 does nothing.
    void playback_setVolume(int id, int volume, const QString& target = QStringLiteral("playback"));

    // Speaking to units: Redirection.cpp
    /// Asks for a live broadcast of the kind "microphone" or "alarm"; `devices` and `strategy` as
    /// for `playback_play`. The reply opens the microphone.
    void playback_startRedirection(const QString& devices, const QString& type,
                                   const QString& strategy = QStringLiteral("none"));
    void playback_stopRedirection();

    // Sound settings: settings/Media.cpp
    /// Inputs and outputs by name, and the stored ones of them.
    void settings_media_init();
    /// Lets the operator hear an input, stored or not.
    void settings_media_start(QString device);
    void settings_media_stop();
    void settings_media_save(const QString& device);
    void settings_volume_init();
    /// Both 0 to 100.
    void settings_volume_save(int microphone, int warning);

    // Folders of the client: settings/Files.cpp
    void settings_files_init();
    /// Of these folders, those that can't keep files.
    QStringList settings_files_unusable(const QStringList& paths);
    /// These three store nothing for a folder that can't keep files.
    void settings_file_selectFirmwareDir(const QString& path);
    void settings_file_selectLogDir(const QString& path);
    void settings_file_selectMessageDir(const QString& path);
    void settings_loadDrives(const QString& type);
    void settings_loadPath(const QString& path, const QString& drive, const QString& type = {});

    // What the client logs: settings/LogSwitches.cpp
    void settings_log_init();
    // Each sets its switch at once, and stores it.
    void settings_saveLogConnect(bool value);
    void settings_saveLogAccessError(bool value);
    void settings_saveLogClientSettings(bool value);
    void settings_saveLogPlayback(bool value);
    void settings_saveLogMicrophoneBroadcasting(bool value);
    void settings_saveLogAlarmBroadcasting(bool value);
    void settings_saveLogPresetStart(bool value);
    void settings_saveLogDeviceControl(bool value);
    void settings_saveLogMemoryPlay(bool value);
    void settings_saveLogUserSettings(bool value);
    void settings_saveLogRoleSettings(bool value);
    void settings_saveLogZoneSettings(bool value);
    void settings_saveLogDeviceSettings(bool value);
    void settings_saveLogPlaylistSettings(bool value);
    void settings_saveLogPresetSettings(bool value);
    void settings_saveLogTaskSettings(bool value);
    void settings_saveLogServerSettings(bool value);
    void settings_saveLogServerLogSettings(bool value);

    // The server and its log: admin/Server.cpp
    void admin_loadServerSettings();
    /// Versions and the Internet; asks the server for both anew.
    void admin_loadServerInfo();
    /// An empty `ip` is the server's own choice of an interface; port 1 to 65535.
    void admin_saveServerSettings(const QString& ip, const QString& multicastIp, int port);
    void admin_serverRestart();
    void admin_loadLogLevel();
    void admin_loadLogDates();
    /// The day as the server names it; the log comes in pieces.
    void admin_loadLogDate(const QString& date);
    /// The log that was asked for isn't wanted any more.
    void admin_stopLog();
    void admin_setLogLevel(bool value);

    // Rights: admin/Role.cpp
    /// Replays the operator's rights into the bars of the device list, and the alarm icon.
    void load_permissions();
    /// Replays the operator's rights into the side menu of the administration.
    void admin_loadPermissions();
    void admin_loadRoleList();
    void admin_selectRole(int id);
    void admin_addRole(const QString& name, const QString& title);
    /// The name says which; the id isn't used.
    void admin_editRole(int id, const QString& name, const QString& title);
    void admin_deleteRole(int id);
    void admin_editRoleSettings(const QString& name, bool server, bool user, bool role, bool zone,
                                bool device, bool playback, bool task, bool preset);
    void admin_editRoleTranslation(const QString& name, bool microphone, bool alarm);
    void admin_saveZones(const QString& name, const QList<int>& list);
    void admin_savePlaylists(const QString& name, const QList<int>& list);
    void admin_savePresets(const QString& name, const QList<int>& list);
    void admin_saveTasks(const QString& name, const QList<int>& list);
    /// All lists and rights of a role at once; `rights` by their names on the wire.
    void admin_savePermissions(const QString& name, const QList<int>& zones,
                               const QList<int>& playlists, const QList<int>& presets,
                               const QList<int>& tasks, const QVariantMap& rights);
    /// Ticks and locks the zones and playlists that these presets and tasks need; all of a kind for
    /// its administrator.
    void admin_reloadBlocksForRole(const QString& name, bool isPresetAdmin,
                                   const QList<int>& presetList, bool isTaskAdmin,
                                   const QList<int>& taskList);

    // Users: admin/User.cpp
    void admin_loadUserList();
    void admin_selectUser(int id);
    void admin_addUser(const QString& name, const QString& title, const QString& password,
                       const QString& alarmPassword, const QString& roleName);
    /// An empty password stays as it is, and so does the title of "admin".
    void admin_editUser(const QString& name, const QString& title, const QString& password,
                        const QString& alarmPassword, const QString& roleName);
    void admin_deleteUser(const QString& name);

    // Zones: admin/Zone.cpp
    /// Fills the list of zones of the page of administration on show, and selects the first.
    void admin_loadZoneList(bool withParentZone);
    /// What a new zone of the type "physical" or "logic" may hang below.
    void admin_loadZoneListForModal(const QString& type);
    void admin_selectZone(int id);
    /// `type` "physical" or "logic".
    void admin_addZone(const QString& title, int parentId, const QString& type);
    void admin_editZone(int id, const QString& name);
    void admin_deleteZone(int id);
    /// All units with the zones that they are in.
    void admin_loadDeviceForZonesList();

    // The library, disks and uploads: admin/Playback.cpp
    /// A folder's content, with the way up in front.
    void admin_loadPlaybackWithPlaylist(int id);
    /// All folders by category; alarms and gongs only if `isFull`.
    void admin_loadPlaylistList(bool isFull);
    void admin_loadPlaylistTracks(int id);
    void admin_addPlaylist(int parentId, const QString& name);
    /// A radio link.
    void admin_addTrack(int parentId, const QString& name, const QString& url);
    void admin_editTrackOrPlaylist(int id, const QString& name);
    void admin_deleteTrack(int id, int parentId);
    /// With all that it holds, depth first; a branch that plays stays.
    void admin_deletePlaylist(int id);
    /// `type` "log", "firmware", "message" or "track" remembers the folder; see `FolderBrowser`.
    void admin_loadDrives(const QString& type);
    void admin_loadPath(const QString& path, const QString& drive, const QString& type = {});
    void admin_uploadList(int parent, const QStringList& paths);
    /// The file in work is the last one.
    void admin_finishUpload();

    // Tasks: TaskList.cpp
    /// All tasks that are switched on, into the calendar.
    void task_loadList();
    /// Those of one unit.
    void task_loadTask(int deviceId);
    /// The units that tasks play on.
    void task_loadDeviceList();
    /// The name of this computer's time zone, "Europe/Moscow".
    QString task_zoneName();
    void admin_loadTaskList();
    void admin_selectTask(int id);
    /// The days of a weekly task; all of them for another.
    void admin_loadTaskWeekDays(int id);
    /// `type` is the frequency; `startDateTime` "YYYY-MM-DD HH:mm" and all other times in UTC;
    /// `reply` holds `endTime`, `replayType`, `replyCount` and `action`.
    void admin_addTask(const QString& name, const QString& type, const QString& weeklyDays,
                       const QString& startDateTime, const QString& endDate, int playlist,
                       int track, const QList<int>& zones, const QList<int>& devices,
                       const QVariantMap& reply);
    void admin_editTask(int id, const QString& name, const QString& type, bool state,
                        const QString& weeklyDays, const QString& startDateTime,
                        const QString& endDate, const QList<int>& zones, const QList<int>& devices,
                        const QVariantMap& reply);
    void admin_copyTask(int id, const QString& title);
    void admin_deleteTask(int id);
    void admin_enableTask(int id, bool state);

    // Presets: PresetList.cpp
    void preset_loadList();
    /// The units of a preset's card; none for one that means all units.
    void preset_loadDevices(int id);
    /// `strategy` for units in use: "none" or "overlap".
    void preset_startPlay(int id, const QString& strategy);
    void admin_loadPresetList();
    void admin_selectPreset(int id);
    /// `type` by its word on the wire; `replayType` "list" or "track"; `replyCount` counts all
    /// passes; `action` "pause" or "stop".
    void admin_addPreset(const QString& name, const QString& type, int playlist, int track,
                         const QList<int>& zones, const QList<int>& devices,
                         const QString& replayType, int replyCount, const QString& action);
    void admin_editPreset(int id, const QString& title, const QList<int>& zones,
                          const QList<int>& devices, const QString& replayType, int replyCount,
                          const QString& action);
    void admin_copyPreset(int id, const QString& title);
    void admin_deletePreset(int id);

    // Settings of a unit: admin/Device.cpp
    /// All units with free memory and version, the same for every page of them; selects the first.
    void admin_loadDeviceList();
    void admin_selectDevice(int id);
    void admin_findLostDevices();
    /// `force` takes the unit out of presets and tasks, too.
    void admin_deleteDevice(int id, bool force);
    /// The two units exchange their hardware addresses.
    void admin_replaceDevice(int id, int withDevice);
    void admin_editDeviceName(int id, const QString& title);
    /// `settings` by the names of the wire; numbers may come as text.
    void admin_editDeviceSettings(int id, const QVariantMap& settings);
    /// One level a band, as the unit's generation has them.
    void admin_setDeviceEqualizer(int id, bool enabled, const QVariantList& levels);
    /// Shows the addresses of a mode without a message to the server: 0 the static ones, another
    /// those in force.
    void admin_changeDeviceDHCPMode(int id, int mode);
    void admin_rebootDevice(int id);
    void admin_measureDeviceLine(int id);
    void admin_getDebugInfo(int id);

    // Memory of a unit: admin/DeviceMemory.cpp. Those that send do nothing for a unit that isn't
    // online but say so.
    void admin_selectMemoryDevice(int id);
    /// The file is read beside the main thread; what follows for the unit waits behind it.
    void admin_addDeviceMessage(int id, const QString& title, const QString& filePath);
    void admin_deleteDeviceMessage(int id, int position);
    /// Positions from 0; `repeat` in seconds.
    void admin_addDeviceScenario(int id, const QString& title, int priority, int positionGong,
                                 int positionMessage, int repeat);
    void admin_deleteDeviceScenario(int id, int position);
    void admin_applyDeviceMemory(int id);
    /// Asks for the progress, unless an answer is under way.
    void admin_updateDeviceApplyInfo(int id);
    void admin_revertDeviceMemory(int id);
    /// The images in the client's folder.
    void admin_loadDeviceMemoryList();
    /// `fileName` without its ending; it can't leave the folder.
    void admin_downloadDeviceMemory(int id, const QString& fileName);
    void admin_uploadDeviceMemory(int id, const QString& fileName);

    // Firmware: admin/Firmware.cpp
    void admin_loadDeviceFirmwareList();
    /// `number` is the row on show, from 1; `type` 1 an image of the server, 2 one of this
    /// computer.
    void admin_updateDevice(int number, const QList<int>& ids, int type);
    void admin_updateDeviceInfo(const QList<int>& ids);

    // Lines of a unit: admin/LineControl.cpp
    void admin_selectLineControlDevice(int id);
    void admin_getLineControlForDevice(int id);
    void admin_addLineControlForDevice(int deviceId, int tipId);
    void admin_addLineControlForDevices(int deviceId);
    void admin_deleteLineControlForDevice(int deviceId, int tipId);
    void admin_deleteLineControlForDevices(int deviceId);
    void admin_editLineControlForDevice(int deviceId, int tipId, const QString& title);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void publishWrapper();
    void loadPage(const QUrl& page);
    void windowActivated();
    void windowClosed();
    /// Replays the units of the mirror, a portion at a time; one that goes meanwhile is left out.
    void replayDevices(const std::function<void(const Device&)>& show);

    ScriptPipe& scripts;
    Discovery& discovery;
    IdleLock& lock;
    FolderBrowser& folders;
    Upload& upload;
    FileWork& fileWork;
    LogFeed& logFeed;
    std::unique_ptr<QWebView> view;
    bool sessionPage = false;   ///< index.html is on show or on its way
    bool frameLoaded = false;   ///< the session page on show has asked for what it missed
    bool cachesCleared = false; ///< in this session
};
