#include "simulator/fiction/Fleet.h"

#include "simulator/state/Topology.h"

#include <QRandomGenerator>

#include <algorithm>
#include <array>

namespace simulator
{

namespace
{

constexpr int evacuationZone = 6;
constexpr int firstBuildingZone = 11;
constexpr int unitsOnFloor = 25;
constexpr int floorsInBuilding = 4;

struct NamedZone {
    int id;
    const char* title;
    bool physical;
    int parent;
};

constexpr std::array<NamedZone, 10> namedZones{{
    {rootZone, "Вне зон", true, 0},
    {2, "Первый этаж", true, 0},
    {3, "Холл и ресепшн", true, 2},
    {4, "Коридор А", true, 2},
    {5, "Второй этаж", true, 0},
    {8, "Переговорные", true, 5},
    {evacuationZone, "Эвакуация: зона 1", false, 0},
    {10, "Лестницы", false, evacuationZone},
    {7, "Двор и парковка", true, 0},
    {9, "Технические помещения", true, 0},
}};

struct NamedUnit {
    const char* title;
    int zone;
    bool evacuation; ///< also in the evacuation zone
    Link link;
    int volume;
};

constexpr Link on = Link::Bidirectional;

constexpr std::array<NamedUnit, 24> namedUnits{{
    {"Холл, центральный вход", 3, true, on, 30},
    {"Ресепшн", 3, true, on, 34},
    {"Холл, гардероб", 3, false, on, 36},
    {"Холл, кафетерий", 3, false, on, 40},
    {"Коридор А-1", 4, true, on, 38},
    {"Коридор А-2", 4, true, on, 42},
    {"Коридор А-3", 4, true, on, 42},
    {"Столовая", 4, false, on, 46},
    {"Кухня", 4, false, Link::Incoming, 50},
    {"Коридор Б-1", 5, true, on, 44},
    {"Коридор Б-2", 5, true, on, 44},
    {"Лестница 1", 5, true, on, 54},
    {"Лестница 2", 5, true, on, 58},
    {"Медпункт", 5, false, on, 35},
    {"Спортзал", 5, true, on, 86},
    {"Зал совещаний «Волга»", 8, false, on, 62},
    {"Переговорная «Ока»", 8, false, on, 48},
    {"Двор, северная мачта", 7, true, Link::No, 70},
    {"Двор, южная мачта", 7, true, on, 72},
    {"Парковка", 7, false, on, 74},
    {"Склад", 9, false, on, 66},
    {"Котельная", 9, false, on, 78},
    {"Серверная", 9, false, on, 82},
    {"Новое устройство", rootZone, false, on, 50},
}};

/// Settings that all units share, by their wire keys.
QJsonObject sharedConfig()
{
    return {{"mask", "255.255.0.0"},
            {"gateway", "10.20.0.1"},
            {"staticMask", "255.255.0.0"},
            {"staticGateway", "10.20.0.1"},
            {"multicastIp", "224.0.224.1"},
            {"commandPort", 11990},
            {"allowedCommandIp", "0.0.0.0"},
            {"tavrinRelayControl", true},
            {"lineJoined", false},
            {"tavrinAddress", 127},
            {"tavrinRelayEvent", true},
            {"tavrinErrorIndication", false},
            {"multicastListen", false},
            {"multicastAIN0", false},
            {"multicastAIN1", false},
            {"priorityAIN0", 5},
            {"priorityAIN1", 4},
            {"priorityScenario", 2},
            {"priorityListen", 3},
            {"priorityStream", 1}};
}

const QVector<MemoryMessage>& sharedMessages()
{
    static const QVector<MemoryMessage> messages{
        {"Гонг", 48128}, {"Внимание! Пожарная тревога", 512000}, {"Учебная тревога", 384512}};
    return messages;
}

const QVector<MemoryScenario>& sharedScenarios()
{
    static const QVector<MemoryScenario> scenarios{{"Эвакуация", 1, 0, 1, 10},
                                                   {"Учебная эвакуация", 2, 0, 2, 30}};
    return scenarios;
}

/// Two generations of hardware: the older one has built-in lines and two tone controls only.
void addHardware(Unit& unit)
{
    const bool newer = unit.id % 6 != 0;
    unit.versionText = newer ? "Version 3.4.2.118 2026-03-12" : "Version 2.8.1.40 2023-06-02";
    unit.versionMain = newer ? "3" : "2";
    unit.versionPss = newer ? "3.4.2.118" : "0.8.1.40";
    unit.versionLineControl = newer ? "1.7.0.6" : "1.2.3.1";
    unit.equalizerEnabled = unit.id % 4 != 3; // on for all of the older ones
    unit.equalizer =
        newer ? QVector<double>{3, 2, 1, 0, 0, 0, 0, -1, -2, -3} : QVector<double>{6, -2};
    unit.lines.append({1, "Линия 1", true, false});
    unit.lines.append({2, "Линия 2", true, false});
    if (newer) {
        unit.lines.append({17, "Громкоговоритель 1", true, false});
    }
    unit.memory.messages = sharedMessages();
    unit.memory.scenarios = sharedScenarios();
    unit.memory.available = 2457600;
    unit.memoryStamp = "2026-03-12 09:30:00";
}

void addAddress(Unit& unit)
{
    static const QJsonObject shared = sharedConfig();
    const QString ip = QString("10.20.%1.%2").arg(unit.id / 250).arg(unit.id % 250 + 2);
    unit.config = shared;
    unit.config.insert("dhcp", unit.id % 4 != 0);
    unit.config.insert("ip", ip);
    unit.config.insert("staticIp", ip);
    unit.mac = QString("02:4b:1e:00:%1:%2")
                   .arg(unit.id / 256 % 256, 2, 16, QChar('0'))
                   .arg(unit.id % 256, 2, 16, QChar('0'));
}

/// Most units are in order; some have the small troubles of every installation.
void addCondition(Unit& unit, QRandomGenerator& chance)
{
    unit.batteryLevel = chance.bounded(88, 101);
    const int trouble = chance.bounded(24);
    if (trouble == 0) {
        unit.battery = Battery::Charge;
        unit.batteryLevel = chance.bounded(30, 80);
    } else if (trouble == 1) {
        unit.battery = Battery::AcPowerMissing;
        unit.batteryLevel = chance.bounded(20, 70);
    } else if (trouble == 2) {
        unit.housing = Case::Open;
    } else if (trouble == 3) {
        unit.lines.first().inOrder = false;
    }
}

Unit makeUnit(int id, const QString& title, QRandomGenerator& chance)
{
    Unit unit = makeNewUnit(id, title);
    unit.volume = chance.bounded(30, 91);
    addCondition(unit, chance);
    return unit;
}

void include(Installation& installation, int zone, int unit)
{
    if (Zone* found = installation.zone(zone)) {
        found->units.append(unit);
    }
}

void addNamedUnits(Installation& installation, int count, QRandomGenerator& chance)
{
    for (int index = 0; index < count; ++index) {
        const NamedUnit& named = namedUnits[std::size_t(index)];
        Unit unit = makeUnit(index + 1, QString::fromUtf8(named.title), chance);
        unit.link = named.link;
        unit.volume = named.volume;
        installation.addUnit(unit);
        include(installation, named.zone, unit.id);
        if (named.evacuation) {
            include(installation, evacuationZone, unit.id);
        }
        if (unit.title.startsWith("Лестница")) {
            include(installation, 10, unit.id);
        }
    }
}

/// The floor that the next unit of the buildings stands on, made with its building as needed.
Zone& floorFor(Installation& installation, int index)
{
    const int floor = index / unitsOnFloor;
    const int building = floor / floorsInBuilding;
    const int buildingZone = firstBuildingZone + building * (floorsInBuilding + 1);
    if (index % (unitsOnFloor * floorsInBuilding) == 0) {
        installation.zones.append(
            {buildingZone, QString("Корпус %1").arg(building + 2), true, 0, {}});
    }
    if (index % unitsOnFloor == 0) {
        const int level = floor % floorsInBuilding + 1;
        installation.zones.append(
            {buildingZone + level, QString("Этаж %1").arg(level), true, buildingZone, {}});
    }
    return installation.zones.last();
}

void addBuildings(Installation& installation, int count, QRandomGenerator& chance)
{
    for (int index = 0; index < count; ++index) {
        Zone& floor = floorFor(installation, index);
        const int building = index / (unitsOnFloor * floorsInBuilding) + 2;
        const int room = index / unitsOnFloor % floorsInBuilding * 100 + index % unitsOnFloor + 101;
        Unit unit = makeUnit(int(namedUnits.size()) + index + 1,
                             QString("Корпус %1, помещение %2").arg(building).arg(room), chance);
        const int fate = chance.bounded(40);
        unit.link = fate == 0 ? Link::No : fate == 1 ? Link::Incoming : Link::Bidirectional;
        installation.addUnit(unit);
        floor.units.append(unit.id);
    }
}

} // namespace

Unit makeNewUnit(int id, const QString& title)
{
    Unit unit;
    unit.id = id;
    unit.title = title;
    addHardware(unit);
    addAddress(unit);
    return unit;
}

void addFleet(Installation& installation, int deviceCount, quint32 seed)
{
    QRandomGenerator chance(seed);
    for (const NamedZone& zone : namedZones) {
        installation.zones.append(
            {zone.id, QString::fromUtf8(zone.title), zone.physical, zone.parent, {}});
    }
    const int named = std::min(deviceCount, int(namedUnits.size()));
    addNamedUnits(installation, named, chance);
    addBuildings(installation, deviceCount - named, chance);
}

} // namespace simulator
