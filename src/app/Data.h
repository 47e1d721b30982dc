#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

class AudioManager;
class Device;
class LogSettings;
class NetworkParser;
class Playback;
class Playlist;
class Preset;
class QApplication;
class QSettings;
class Role;
class ServerList;
class ServerSettings;
class Task;
class TcpClient;
class Track;
class User;
class WebView;
class Zone;
struct Firmware;
struct Message;
struct Scenario;
template <class T> class ModelList;

/// The shared store, and the only global: the singletons, the mirror of what the server has told
/// in this session, and the lookups. Used from the main thread only. It names the other classes by
/// forward declaration alone; whoever uses a member includes that member's header.
class Data
{
public:
    Data() = delete;

    // Singletons and process settings. Pointers are set by `Program` and are null without it.
    static QApplication* app;
    static QString clientVersion; ///< version, build date and time, as shown to the operator
    static bool debugMode;        ///< `--debug` was given
    static QSettings* settings;   ///< config.ini
    static LogSettings* logSettings;
    static WebView* webView;
    static TcpClient tcpClient;
    static NetworkParser parser;
    static ServerList* serverList;
    static AudioManager* audioManager;
    static ServerSettings serverSettings;
    static constexpr int apiVersion = 9; ///< the protocol version sent at login
    static bool deviceSave; ///< false after a refused unit title, read by the reply to its settings

    // The mirror, in order of arrival.
    static ModelList<Device> deviceList;
    static ModelList<Zone> zoneList;
    static ModelList<Playback> playbackList;
    static ModelList<Playlist> playlistList;
    static ModelList<Track> trackList;
    static ModelList<Preset> presetList;
    static ModelList<Task> tasks;
    static ModelList<User> userList;
    static ModelList<Role> roleList;
    static QVector<Message> messageList;
    static QVector<Scenario> scenarioList;
    static QVector<Firmware> firmwareList;
    static QStringList serverLogDates;

    // Variables of a session.
    static QString ip;           ///< address of the server
    static int port;             ///< its port
    static int localPort;        ///< local port of the connection, the prefix of log lines
    static bool blockStatus;     ///< the screen lock is on
    static bool userRoleChanged; ///< the next page load says so; outlives the session
    static QString loginMessage; ///< the next login page says so in a line; outlives the session
    static bool leaving;         ///< a logout was sent: the end of the connection is no loss
    static bool waitForExit;     ///< a logout was sent in order to leave the program
    static int waitForAlarm;     ///< which access check is pending
    static quint8 serverLogLevel;
    static int gongPlaybackId;
    static int playbackForLoad;
    static int shownDeviceId;   ///< whose page has been filled last, 0 for none yet
    static int shownPlaybackId; ///< whose tracks the page has asked for last, 0 for none yet
    static QString currentMessagePath, currentFirmwarePath, currentLogPath, currentTrackPath;
    static QString currentMessageDrive, currentFirmwareDrive, currentLogDrive, currentTrackDrive;

    // Lookups: the first match in order of arrival, or null.
    static Device* getDeviceById(int id);
    static Zone* getZoneById(int id);
    static Playlist* getPlaylistById(int id);
    static Playback* getPlaybackById(int id);
    static Track* getTrackById(int id);
    static Preset* getPresetById(int id);
    static Task* getTaskById(int id);
    static Role* getRoleById(int id);
    static Role* getRoleByName(const QString& name);
    static User* getUserByName(const QString& name);
    /// Null means that nobody is logged in.
    static User* getCurrentUser();
    /// Null means that the server hasn't told the role yet.
    static Role* getCurrentRole();
    static Track* getFirstTrackInPlaylist(int playlistId);

    /// Forgets everything that belongs to one connection, in the order of the fields.
    static void clearSession();
};
