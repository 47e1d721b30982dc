#include "mirror/Mirror.h"

#include "app/Data.h"
#include "model/Device.h"
#include "model/DeviceMemory.h"
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

#include <QJsonArray>
#include <QSettings>

#include <functional>
#include <memory>
#include <vector>

namespace
{

QJsonValue json(int value)
{
    return value;
}
QJsonValue json(bool value)
{
    return value;
}
QJsonValue json(double value)
{
    return value;
}
QJsonValue json(const QString& value)
{
    return value;
}
QJsonValue json(const QStringList& values)
{
    return QJsonArray::fromStringList(values);
}
QJsonValue json(const QVector<int>& values)
{
    QJsonArray array;
    for (const int value : values) {
        array.append(value);
    }
    return array;
}

template <class Value> Value from(const QJsonValue& value)
{
    using Plain = std::decay_t<Value>;
    if constexpr (std::is_same_v<Plain, QVector<int>> || std::is_same_v<Plain, QStringList>) {
        Plain result;
        for (const QJsonValue element : value.toArray()) {
            result.append(element.toVariant().value<typename Plain::value_type>());
        }
        return result;
    } else if constexpr (std::is_enum_v<Plain>) {
        return static_cast<Plain>(value.toInt());
    } else {
        return value.toVariant().value<Plain>();
    }
}

/// One field of an object of the mirror.
template <class Item> struct Field {
    const char* name;
    std::function<QJsonValue(const Item&)> get;
    std::function<void(Item&, const QJsonValue&)> set;
};

template <class Item, class Getting, class Got, class Setting, class Taken>
Field<Item> field(const char* name, Got (Getting::*get)() const, void (Setting::*set)(Taken))
{
    return {name, [get](const Item& item) { return json((item.*get)()); },
            [set](Item& item, const QJsonValue& value) {
                (item.*set)(from<std::decay_t<Taken>>(value));
            }};
}

template <class Item, class Value> Field<Item> field(const char* name, Value Item::*member)
{
    return {name, [member](const Item& item) { return json(item.*member); },
            [member](Item& item, const QJsonValue& value) { item.*member = from<Value>(value); }};
}

/// The units or zones of something that plays.
template <class Play> Field<Play> targets(const char* name, QVector<int>& (PlayDefinition::*list)())
{
    return {
        name, [list](const Play& play) { return json((const_cast<Play&>(play).*list)()); },
        [list](Play& play, const QJsonValue& ids) { (play.*list)() = from<QVector<int>>(ids); }};
}

/// A right that is one of several levels.
Field<Role> level(const char* name, bool (Role::*get)() const, void (Role::*set)(const QString&))
{
    return {name, [get](const Role& role) { return json((role.*get)()); },
            [set](Role& role, const QJsonValue& value) {
                (role.*set)(value.toString(value.toBool() ? "administration" : "read"));
            }};
}

QJsonValue linesOf(const Device& device)
{
    QJsonObject result;
    for (const auto& [address, line] : device.getLines()) {
        result.insert(QString::number(address),
                      QString("%1 %2%3").arg(line.getName(), line.isFaulty() ? "faulty" : "fine",
                                             line.isNew() ? " new" : ""));
    }
    return result;
}

/// Lines that are there before: {"7": true} for a new one.
void setLines(Device& device, const QJsonValue& lines)
{
    const QJsonObject addresses = lines.toObject();
    for (const QString& address : addresses.keys()) {
        LineControl line(device.getId());
        line.setId(static_cast<quint8>(address.toInt()));
        line.setNew(addresses.value(address).toBool());
        device.getLines().emplace(line.getId(), line);
    }
}

QJsonValue bandsOf(const Device& device)
{
    QJsonArray bands;
    for (int band = 0; band < Device::bandCount; ++band) {
        bands.append(device.getEqualizer(band));
    }
    return bands;
}

/// The bands given, and one more than there are.
void setBands(Device& device, const QJsonValue& bands)
{
    for (int band = 0; band < bands.toArray().size(); ++band) {
        device.setEqualizer(band, bands.toArray().at(band).toDouble());
    }
}

template <class Entry> QJsonValue memoryOf(const QVector<Entry>& list, int deviceId)
{
    QJsonArray titles;
    for (const Entry& entry : list) {
        if (entry.deviceId == deviceId) {
            titles.append(QString("%1 %2").arg(entry.position).arg(entry.title));
        }
    }
    return titles;
}

template <class Entry> void fillMemory(QVector<Entry>& list, int deviceId, const QJsonArray& titles)
{
    for (const QJsonValue title : titles) {
        Entry entry;
        entry.deviceId = deviceId;
        entry.position = static_cast<int>(memoryOf(list, deviceId).toArray().size());
        entry.title = title.toString();
        list.append(entry);
    }
}

template <class Entry> Field<Device> memory(const char* name, QVector<Entry>* list)
{
    return {name, [list](const Device& device) { return memoryOf(*list, device.getId()); },
            [list](Device& device, const QJsonValue& titles) {
                fillMemory(*list, device.getId(), titles.toArray());
            }};
}

#define FIELD(Class, name, Name) field<Class>(name, &Class::get##Name, &Class::set##Name)

const std::vector<Field<Device>>& fieldsOf(const Device*)
{
    static const std::vector<Field<Device>> fields{
        FIELD(Device, "name", Name),
        FIELD(Device, "volume", Volume),
        FIELD(Device, "battery", BatteryStatus),
        FIELD(Device, "level", BatteryLevel),
        FIELD(Device, "mains", Power),
        FIELD(Device, "closed", Hull),
        field<Device>("tenBands", &Device::isEqualizerEnabled, &Device::setEqualizerEnabled),
        {"generation", [](const Device& device) { return device.getVersionMain(); },
         [](Device& device, const QJsonValue& version) {
             device.setVersionMain({}, version.toString());
         }},
        FIELD(Device, "version", VersionMainText),
        FIELD(Device, "pss", VersionPss),
        FIELD(Device, "control", VersionLnCtrl),
        {"lines", linesOf, setLines},
        {"bands", bandsOf, setBands},
        FIELD(Device, "playback", Playback),
        FIELD(Device, "category", PlaybackCategory),
        FIELD(Device, "group", PlaybackGroupId),
        FIELD(Device, "task", TaskId),
        FIELD(Device, "memory", AvailableMemory),
        FIELD(Device, "stamp", MemoryStamp),
        FIELD(Device, "message", MessagePlaying),
        FIELD(Device, "scenario", ScenarioPlaying),
        memory("messages", &Data::messageList),
        memory("scenarios", &Data::scenarioList),
        {"zones", [](const Device& device) { return json(device.getZoneList()); },
         [](Device& device, const QJsonValue& zones) {
             device.getZoneList() = from<QVector<int>>(zones);
         }},
        FIELD(Device, "dhcp", DHCP),
        FIELD(Device, "ip", Ip),
        FIELD(Device, "mask", NetworkMask),
        FIELD(Device, "gateway", Gateway),
        FIELD(Device, "staticIp", StaticIp),
        FIELD(Device, "staticMask", StaticNetworkMask),
        FIELD(Device, "staticGateway", StaticGateway),
        FIELD(Device, "mac", Mac),
        FIELD(Device, "multicastIp", MulticastIp),
        field<Device>("port", &Device::getcommandPort, &Device::setCommandPort),
        FIELD(Device, "allowedIp", AllowedCommandIp),
        FIELD(Device, "relayControl", TavrinRelayControl),
        FIELD(Device, "joined", LineJoined),
        FIELD(Device, "address", TavrinAddress),
        FIELD(Device, "relayEvent", TavrinRelayEvent),
        FIELD(Device, "indication", TavrinErrorIndication),
        FIELD(Device, "listen", MulticastListen),
        FIELD(Device, "input0", MulticastAIN0),
        FIELD(Device, "input1", MulticastAIN1),
        FIELD(Device, "priority0", PriorityAIN0),
        FIELD(Device, "priority1", PriorityAIN1),
        FIELD(Device, "priorityScenario", PriorityScenario),
        FIELD(Device, "priorityListen", PriorityListen),
        FIELD(Device, "priorityStream", PriorityStream),
        {"read", [](const Device& device) { return device.isRead(); },
         [](Device& device, const QJsonValue&) { device.setRead(); }},
        {"link", [](const Device& device) { return int{device.getStatus()}; },
         [](Device& device, const QJsonValue& link) {
             device.setStatus(from<DeviceStatus>(link));
         }},
    };
    return fields;
}

const std::vector<Field<Zone>>& fieldsOf(const Zone*)
{
    static const std::vector<Field<Zone>> fields{
        FIELD(Zone, "name", Name),
        FIELD(Zone, "parent", ParentZone),
        FIELD(Zone, "type", Type),
        {"below", [](const Zone& zone) { return json(zone.getSubZoneList()); },
         [](Zone& zone, const QJsonValue& ids) {
             zone.getSubZoneList() = from<QVector<int>>(ids);
         }},
        {"units", [](const Zone& zone) { return json(zone.getDeviceList()); },
         [](Zone& zone, const QJsonValue& ids) { zone.getDeviceList() = from<QVector<int>>(ids); }},
    };
    return fields;
}

const std::vector<Field<Role>>& fieldsOf(const Role*)
{
    static const std::vector<Field<Role>> fields{
        FIELD(Role, "own", Current),
        FIELD(Role, "name", Name),
        FIELD(Role, "title", Title),
        FIELD(Role, "server", ServerManagement),
        FIELD(Role, "user", UserManagement),
        FIELD(Role, "zone", ZoneManagement),
        level("role", &Role::getRoleManagement, &Role::setRoleManagement),
        level("unit", &Role::getDeviceManagement, &Role::setDeviceManagement),
        level("playlist", &Role::getPlaybackManagement, &Role::setPlaybackManagement),
        level("task", &Role::getScheduleManagement, &Role::setScheduleManagement),
        level("preset", &Role::getPresetManagement, &Role::setPresetManagement),
        FIELD(Role, "alarm", BroadcastAlarmAccess),
        FIELD(Role, "microphone", BroadcastMicrophoneAccess),
        FIELD(Role, "drives", BroadcastExternalAccess),
        field("users", &Role::users),
        field("zones", &Role::zones),
        field("playlists", &Role::playlists),
        field("presets", &Role::presets),
        field("tasks", &Role::tasks),
    };
    return fields;
}

const std::vector<Field<User>>& fieldsOf(const User*)
{
    static const std::vector<Field<User>> fields{
        FIELD(User, "own", Current),
        FIELD(User, "name", Name),
        FIELD(User, "title", Title),
        FIELD(User, "role", Role),
        FIELD(User, "online", Status),
        {"tab", [](const User& user) { return user.getValue("tab"); },
         [](User& user, const QJsonValue& value) { user.setValue("tab", value.toString()); }},
    };
    return fields;
}

const std::vector<Field<Playlist>>& fieldsOf(const Playlist*)
{
    static const std::vector<Field<Playlist>> fields{
        FIELD(Playlist, "title", Title),       FIELD(Playlist, "parent", Parent),
        FIELD(Playlist, "position", Position), FIELD(Playlist, "duration", Duration),
        FIELD(Playlist, "volume", Volume),     FIELD(Playlist, "group", Group),
    };
    return fields;
}

const std::vector<Field<Track>>& fieldsOf(const Track*)
{
    static const std::vector<Field<Track>> fields{
        FIELD(Track, "title", Title),
        FIELD(Track, "duration", Duration),
        field("playlist", &Track::parentId),
        field("position", &Track::position),
    };
    return fields;
}

const std::vector<Field<Playback>>& fieldsOf(const Playback*)
{
    static const std::vector<Field<Playback>> fields{
        FIELD(Playback, "playlist", PlaylistId),
        FIELD(Playback, "track", TrackId),
        field<Playback>("category", &Playback::getCategory, &Playback::setPlaybackType),
        FIELD(Playback, "volume", Volume),
        FIELD(Playback, "position", TimeShift),
        FIELD(Playback, "playing", Playing),
        FIELD(Playback, "target", TargetPlaying),
        FIELD(Playback, "repeats", Repeats),
        FIELD(Playback, "end", ActionIfEnd),
        FIELD(Playback, "task", TaskId),
        {"units", [](const Playback& playback) { return json(playback.getDeviceList()); },
         [](Playback& playback, const QJsonValue& ids) {
             playback.setDeviceList(from<QVector<int>>(ids));
         }},
    };
    return fields;
}

const std::vector<Field<Task>>& fieldsOf(const Task*)
{
    static const std::vector<Field<Task>> fields{
        FIELD(Task, "title", Title),
        FIELD(Task, "playback", Playback),
        FIELD(Task, "playlist", Playlist),
        targets<Task>("units", &Task::getDeviceList),
        targets<Task>("zones", &Task::getZoneList),
        FIELD(Task, "enabled", State),
        FIELD(Task, "frequency", Frequency),
        FIELD(Task, "days", WeeklyDays),
        FIELD(Task, "date", StartDate),
        FIELD(Task, "time", StartTime),
        FIELD(Task, "last", EndDate),
        FIELD(Task, "stop", EndTime),
        FIELD(Task, "stopId", EndId),
        FIELD(Task, "repeats", Repeats),
    };
    return fields;
}

const std::vector<Field<Preset>>& fieldsOf(const Preset*)
{
    static const std::vector<Field<Preset>> fields{
        FIELD(Preset, "title", Title),
        FIELD(Preset, "playlist", Playlist),
        FIELD(Preset, "target", Target),
        targets<Preset>("units", &Preset::getDeviceList),
        targets<Preset>("zones", &Preset::getZoneList),
    };
    return fields;
}

#undef FIELD

/// What can be done with the objects of one kind, whatever their class.
struct Kind {
    std::function<void(const QJsonObject&)> add;
    std::function<void(int, const QJsonObject&)> set;
    std::function<QJsonValue(int)> one;
    std::function<QJsonArray()> ids;
};

template <class Item> void setFields(Item& item, const QJsonObject& given)
{
    for (const Field<Item>& field : fieldsOf(&item)) {
        if (given.contains(field.name)) {
            field.set(item, given.value(field.name));
        }
    }
}

template <class Item> void give(Item& item, int id)
{
    item.setId(id);
}
void give(Track& track, int id)
{
    track.id = id;
}

template <class Item> QJsonObject fieldValues(const Item& item)
{
    QJsonObject result;
    for (const Field<Item>& field : fieldsOf(&item)) {
        result.insert(field.name, field.get(item));
    }
    return result;
}

template <class Item> Kind kindOf(ModelList<Item>& list)
{
    return {[&list](const QJsonObject& fields) {
                auto item = std::make_unique<Item>();
                give(*item, fields.value("id").toInt());
                setFields(*list.append(std::move(item)), fields);
            },
            [&list](int id, const QJsonObject& fields) { setFields(*list.find(id), fields); },
            [&list](int id) {
                const Item* const item = list.find(id);
                return item ? QJsonValue(fieldValues(*item)) : QJsonValue();
            },
            [&list] {
                QJsonArray result;
                for (const Item& item : list) {
                    result.append(item.getId());
                }
                return result;
            }};
}

const std::map<QString, Kind>& kinds()
{
    static const std::map<QString, Kind> all{
        {"unit", kindOf(Data::deviceList)},       {"zone", kindOf(Data::zoneList)},
        {"role", kindOf(Data::roleList)},         {"user", kindOf(Data::userList)},
        {"playlist", kindOf(Data::playlistList)}, {"track", kindOf(Data::trackList)},
        {"playback", kindOf(Data::playbackList)}, {"task", kindOf(Data::tasks)},
        {"preset", kindOf(Data::presetList)},
    };
    return all;
}

struct Variable {
    const char* name;
    std::function<QJsonValue()> get;
    std::function<void(const QJsonValue&)> set;
};

template <class Value> Variable variable(const char* name, Value* value)
{
    return {name, [value] { return json(*value); },
            [value](const QJsonValue& given) { *value = from<Value>(given); }};
}

const std::vector<Variable>& variables()
{
    static const std::vector<Variable> all{
        variable("gong", &Data::gongPlaybackId),
        variable("shownUnit", &Data::shownDeviceId),
        variable("shownPlayback", &Data::shownPlaybackId),
        variable("waiting", &Data::waitForAlarm),
        variable("leaving", &Data::waitForExit),
        variable("roleChanged", &Data::userRoleChanged),
        variable("titleSaved", &Data::deviceSave),
        {"microphone",
         [] {
             return QJsonValue(Data::settings ? Data::settings->value("volume/microphone").toInt()
                                              : 0);
         },
         [](const QJsonValue& given) {
             Data::settings->setValue("volume/microphone", given.toInt());
         }},
        {"internet", [] { return json(Data::serverSettings.getInternetStatus()); },
         [](const QJsonValue& given) { Data::serverSettings.setInternetStatus(given.toBool()); }},
        {"serverVersion", [] { return json(Data::serverSettings.getServerVersion()); },
         [](const QJsonValue& given) { Data::serverSettings.setServerVersion(given.toString()); }},
        {"update", [] { return json(Data::serverSettings.getAvailableServerVersion()); },
         [](const QJsonValue& given) {
             Data::serverSettings.setAvailableServerVersion(given.toString());
         }},
    };
    return all;
}

} // namespace

void Mirror::add(const QString& kind, const QJsonObject& fields)
{
    kinds().at(kind).add(fields);
}

void Mirror::set(const QString& kind, int id, const QJsonObject& fields)
{
    kinds().at(kind).set(id, fields);
}

void Mirror::setSession(const QJsonObject& fields)
{
    for (const Variable& variable : variables()) {
        if (fields.contains(variable.name)) {
            variable.set(fields.value(variable.name));
        }
    }
}

QJsonValue Mirror::one(const QString& kind, int id)
{
    return kinds().at(kind).one(id);
}

QJsonArray Mirror::ids(const QString& kind)
{
    return kinds().at(kind).ids();
}

QJsonObject Mirror::picture()
{
    QJsonObject all;
    for (const auto& [name, kind] : kinds()) {
        QJsonArray items;
        for (const QJsonValue id : kind.ids()) {
            QJsonObject item = kind.one(id.toInt()).toObject();
            item.insert("id", id);
            items.append(item);
        }
        all.insert(name, items);
    }
    QJsonObject session;
    for (const Variable& variable : variables()) {
        session.insert(variable.name, variable.get());
    }
    all.insert("session", session);
    return all;
}
