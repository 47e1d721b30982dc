#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// The rights of a group of users, as the server reports them: the console only shows and hides by
/// them. The server knows a role by its name; the id is the console's own. A setter of a right
/// tells the role page, and the operator's frame where the role is the operator's own.
class Role
{
public:
    /// The rights that the pages show, management first.
    enum class Right {
        Server,
        User,
        Role,
        Zone,
        Device,
        Playback,
        Schedule,
        Preset,
        Microphone,
        MicrophoneAlarm,
        Count
    };

    int getId() const { return id; }
    /// Only before the role is in the mirror's list.
    void setId(int roleId) { id = roleId; }
    /// The role's identifier, unique.
    const QString& getName() const { return name; }
    void setName(const QString& roleName) { name = roleName; }
    /// The description that operators read.
    const QString& getTitle() const { return title; }
    void setTitle(const QString& roleTitle);
    /// Whether it is the role of the logged-in user.
    bool getCurrent() const { return current; }
    void setCurrent(bool isCurrent) { current = isCurrent; }

    bool getBroadcastExternalAccess() const { return broadcastExternalAccess; }
    void setBroadcastExternalAccess(bool allowed) { broadcastExternalAccess = allowed; }
    bool getBroadcastMicrophoneAccess() const { return broadcastMicrophoneAccess; }
    void setBroadcastMicrophoneAccess(bool allowed);
    bool getBroadcastAlarmAccess() const { return broadcastAlarmAccess; }
    void setBroadcastAlarmAccess(bool allowed);

    bool getServerManagement() const { return serverManagement; }
    void setServerManagement(bool allowed);
    bool getUserManagement() const { return userManagement; }
    void setUserManagement(bool allowed);
    bool getZoneManagement() const { return zoneManagement; }
    void setZoneManagement(bool allowed);
    // These five take a level of the wire; only "administration" is the right.
    bool getRoleManagement() const { return roleManagement; }
    void setRoleManagement(const QString& level);
    bool getDeviceManagement() const { return deviceManagement; }
    void setDeviceManagement(const QString& level);
    bool getPlaybackManagement() const { return playbackManagement; }
    void setPlaybackManagement(const QString& level);
    bool getScheduleManagement() const { return scheduleManagement; }
    void setScheduleManagement(const QString& level);
    bool getPresetManagement() const { return presetManagement; }
    void setPresetManagement(const QString& level);

    /// The number of a level's word, 0 to 3; 0 for an unknown word.
    static int getType(const QString& level);
    /// Whether a level is the right itself and not a part of it.
    static bool isGranted(const QString& level);

    /// Adds the role's row to the page; one that is kept can't be deleted there.
    void addToPage(bool isKept) const;
    /// Tells the operator's frame of one right; for the operator's own role.
    void showToOperator(Right right) const;
    /// Tells the role page of one right.
    void showOnPage(Right right) const;
    /// Shows the entry of the administration if the role has any management right, hides it
    /// otherwise. Does nothing for a role that isn't the operator's.
    void reloadRoles() const;

    QStringList users;      ///< names of the role's users
    QVector<int> zones;     ///< ids of the zones open to the role
    QVector<int> playlists; ///< ids of the playlists open to the role
    QVector<int> presets;   ///< ids of the presets open to the role
    QVector<int> tasks;     ///< ids of the tasks open to the role

private:
    struct RightRow;
    static const RightRow rights[];

    static const RightRow& rowOf(Right right);
    static bool managesAllLists();
    void showToOperator(Right right, bool allowed) const;
    void showOnPage(Right right, bool allowed) const;
    void show(Right right, bool allowed) const;
    void changeManagement(Right right, bool allowed);
    void setLevel(Right right, const QString& level);
    void setBroadcast(Right right, bool allowed);

    int id = 0;
    QString name;
    QString title;
    bool current = false;
    bool broadcastExternalAccess = false;
    bool broadcastMicrophoneAccess = false;
    bool broadcastAlarmAccess = false;
    bool serverManagement = false;
    bool userManagement = false;
    bool roleManagement = false;
    bool zoneManagement = false;
    bool playbackManagement = false;
    bool scheduleManagement = false;
    bool presetManagement = false;
    bool deviceManagement = true; // until the server has said otherwise
};
