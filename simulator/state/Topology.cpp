#include "simulator/state/Topology.h"

#include <algorithm>

namespace simulator
{

namespace
{

template <typename Records, typename Test> bool anyOf(const Records& records, Test test)
{
    return std::any_of(records.begin(), records.end(), test);
}

bool isBusy(const Installation& installation, int unit)
{
    const Unit* known = installation.unit(unit);
    return known && installation.playback(known->playback);
}

} // namespace

QString includeUnit(Installation& installation, int unit, int zone)
{
    Zone* target = installation.zone(zone);
    if (!target || !installation.unit(unit)) {
        return "error";
    }
    if (target->units.contains(unit)) {
        return "alreadyIncluded";
    }
    const bool second = anyOf(installation.zones, [unit](const Zone& other) {
        return other.physical && other.id != rootZone && other.units.contains(unit);
    });
    // The root takes a unit before it leaves its last zone.
    if (target->physical && zone != rootZone && second) {
        return "onePhysical";
    }
    target->units.append(unit);
    return {};
}

QString excludeUnit(Installation& installation, int unit, int zone)
{
    Zone* target = installation.zone(zone);
    if (!target || !target->units.contains(unit)) {
        return "notIncluded";
    }
    if (isBusy(installation, unit)) {
        return "hasPlayback";
    }
    target->units.removeAll(unit);
    return {};
}

QString objectionToDeletingZone(const Installation& installation, int zone)
{
    const Zone* target = installation.zone(zone);
    if (!target || zone == rootZone) {
        return "error";
    }
    if (anyOf(installation.zones, [zone](const Zone& other) { return other.parent == zone; })) {
        return "nestedZones";
    }
    const auto targets = [zone](const auto& record) { return record.targets.zones.contains(zone); };
    if (anyOf(installation.presets, targets)) {
        return "includedInPresets";
    }
    if (anyOf(installation.tasks, targets)) {
        return "includedInTasks";
    }
    if (anyOf(target->units, [&](int unit) { return isBusy(installation, unit); })) {
        return "busyPlaying";
    }
    return target->units.isEmpty() ? "" : "nestedDevices";
}

QString objectionToDeletingUnit(const Installation& installation, int unit, bool force)
{
    if (!installation.unit(unit)) {
        return "error";
    }
    if (isBusy(installation, unit)) {
        return "hasPlayback";
    }
    const auto targets = [unit](const auto& record) { return record.targets.units.contains(unit); };
    if (!force && anyOf(installation.presets, targets)) {
        return "forbiddenDeviceInPreset";
    }
    return !force && anyOf(installation.tasks, targets) ? "forbiddenDeviceInTask" : "";
}

} // namespace simulator
