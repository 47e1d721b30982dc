#include "simulator/state/Rights.h"

#include <array>

namespace simulator
{

namespace
{

struct Switch {
    const char* key;
    bool Role::*value;
};

constexpr std::array<Switch, 3> managementSwitches{{
    {"serverManagement", &Role::server},
    {"userManagement", &Role::users},
    {"zoneManagement", &Role::zoneTree},
}};

constexpr std::array<Switch, 3> broadcastSwitches{{
    {"alarm", &Role::alarm},
    {"broadcastingFromMicrophone", &Role::microphone},
    {"externalDrivers", &Role::externalDrives},
}};

struct Scale {
    const char* key;
    Level Role::*value;
};

constexpr std::array<Scale, 5> scales{{
    {"roleManagement", &Role::roles},
    {"deviceManagement", &Role::devices},
    {"playbackManagement", &Role::playback},
    {"taskManagement", &Role::tasks},
    {"presetManagement", &Role::presets},
}};

} // namespace

QJsonObject managementRights(const Role& role)
{
    QJsonObject rights;
    for (const Switch& row : managementSwitches) {
        rights.insert(row.key, role.*row.value);
    }
    for (const Scale& row : scales) {
        rights.insert(row.key, wordOf(levelWords, role.*row.value));
    }
    return rights;
}

QJsonObject broadcastRights(const Role& role)
{
    QJsonObject rights;
    for (const Switch& row : broadcastSwitches) {
        rights.insert(row.key, role.*row.value);
    }
    return rights;
}

bool setRight(Role& role, const QString& key, const QJsonValue& value)
{
    for (const auto& table : {managementSwitches, broadcastSwitches}) {
        for (const Switch& row : table) {
            if (key == QLatin1String(row.key) && value.isBool()) {
                role.*row.value = value.toBool();
                return true;
            }
        }
    }
    for (const Scale& row : scales) {
        const auto level = valueOf(levelWords, value.toString());
        if (key == QLatin1String(row.key) && level) {
            role.*row.value = *level;
            return true;
        }
    }
    return false;
}

} // namespace simulator
