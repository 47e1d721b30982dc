#include "model/Role.h"

#include "app/Data.h"
#include "model/RoleWords.h"
#include "page/ScriptCall.h"

#include <algorithm>
#include <iterator>

/// Where a right is kept and which scripts tell of it.
struct Role::RightRow {
    bool Role::*allowed;
    const char* pageScript;
    const char* operatorScript;
    bool opensLists; ///< the page's script also wants to know whether the lists can be opened
};

const Role::RightRow Role::rights[] = {
    {&Role::serverManagement, "wrapperInput_role_editServerManagement",
     "wrapperInput_roleGlobal_editServerManagement", false},
    {&Role::userManagement, "wrapperInput_role_editUserManagement",
     "wrapperInput_roleGlobal_editUserManagement", false},
    {&Role::roleManagement, "wrapperInput_role_editRoleManagement",
     "wrapperInput_roleGlobal_editRoleManagement", false},
    {&Role::zoneManagement, "wrapperInput_role_editZoneManagement",
     "wrapperInput_roleGlobal_editZoneManagement", true},
    {&Role::deviceManagement, "wrapperInput_role_editDeviceManagement",
     "wrapperInput_roleGlobal_editDeviceManagement", false},
    {&Role::playbackManagement, "wrapperInput_role_editPlaybackManagement",
     "wrapperInput_roleGlobal_editPlaybackManagement", true},
    {&Role::scheduleManagement, "wrapperInput_role_editScheduleManagement",
     "wrapperInput_roleGlobal_editScheduleManagement", true},
    {&Role::presetManagement, "wrapperInput_role_editPresetManagement",
     "wrapperInput_roleGlobal_editPresetManagement", true},
    {&Role::broadcastMicrophoneAccess, "wrapperInput_role_editMicrophone",
     "wrapperInput_roleGlobal_editMicrophone", false},
    {&Role::broadcastAlarmAccess, "wrapperInput_role_editMicrophoneAlarm",
     "wrapperInput_roleGlobal_editMicrophoneAlarm", false},
};

const Role::RightRow& Role::rowOf(Right right)
{
    static_assert(std::size(rights) == static_cast<std::size_t>(Right::Count), "one row a right");
    return rights[static_cast<std::size_t>(right)];
}

void Role::setTitle(const QString& roleTitle)
{
    if (title != roleTitle) {
        Page::call("wrapperInput_role_edit", id, name, roleTitle);
    }
    title = roleTitle;
}

void Role::setServerManagement(bool allowed)
{
    changeManagement(Right::Server, allowed);
}

void Role::setUserManagement(bool allowed)
{
    changeManagement(Right::User, allowed);
}

void Role::setZoneManagement(bool allowed)
{
    changeManagement(Right::Zone, allowed);
}

void Role::setRoleManagement(const QString& level)
{
    setLevel(Right::Role, level);
}

void Role::setDeviceManagement(const QString& level)
{
    setLevel(Right::Device, level);
}

void Role::setPlaybackManagement(const QString& level)
{
    setLevel(Right::Playback, level);
}

void Role::setScheduleManagement(const QString& level)
{
    setLevel(Right::Schedule, level);
}

void Role::setPresetManagement(const QString& level)
{
    setLevel(Right::Preset, level);
}

void Role::setBroadcastMicrophoneAccess(bool allowed)
{
    setBroadcast(Right::Microphone, allowed);
}

void Role::setBroadcastAlarmAccess(bool allowed)
{
    setBroadcast(Right::MicrophoneAlarm, allowed);
}

int Role::getType(const QString& level)
{
    return static_cast<int>(valueOfWord(RoleWords::level, level).value_or(RightLevel::Unavailable));
}

bool Role::isGranted(const QString& level)
{
    return getType(level) == static_cast<int>(RightLevel::Administration);
}

void Role::addToPage(bool isKept) const
{
    Page::call("wrapperInput_role_add", id, name, title, isKept);
}

void Role::showToOperator(Right right) const
{
    showToOperator(right, this->*rowOf(right).allowed);
}

void Role::showOnPage(Right right) const
{
    showOnPage(right, this->*rowOf(right).allowed);
}

void Role::reloadRoles() const
{
    if (!current) {
        return;
    }
    const bool managesAnything =
        std::any_of(std::begin(rights), std::begin(rights) + static_cast<int>(Right::Microphone),
                    [this](const RightRow& row) { return this->*row.allowed; });
    Page::call(managesAnything ? "wrapperInput_roleGlobal_enable"
                               : "wrapperInput_roleGlobal_disable");
}

/// Whether the operator's own rights reach everything that the lists of a role hold.
bool Role::managesAllLists()
{
    const Role* const own = Data::getCurrentRole();
    return own && own->zoneManagement && own->playbackManagement && own->presetManagement &&
           own->scheduleManagement;
}

void Role::showToOperator(Right right, bool allowed) const
{
    Page::call(rowOf(right).operatorScript, id, name, allowed);
}

void Role::showOnPage(Right right, bool allowed) const
{
    const RightRow& row = rowOf(right);
    if (row.opensLists) {
        Page::call(row.pageScript, id, name, allowed, managesAllLists());
    } else {
        Page::call(row.pageScript, id, name, allowed);
    }
}

void Role::show(Right right, bool allowed) const
{
    showOnPage(right, allowed);
    if (current) {
        showToOperator(right, allowed);
    }
}

/// Tells before it stores, so the page still hears of the lists as they were.
void Role::changeManagement(Right right, bool allowed)
{
    bool& stored = this->*rowOf(right).allowed;
    if (stored != allowed) {
        show(right, allowed);
    }
    stored = allowed;
    reloadRoles();
}

/// Stores before it tells, changed or not.
void Role::setLevel(Right right, const QString& level)
{
    const bool allowed = isGranted(level);
    this->*rowOf(right).allowed = allowed;
    show(right, allowed);
    reloadRoles();
}

/// The operator's buttons come first here, and the entry of the administration doesn't depend on
/// it.
void Role::setBroadcast(Right right, bool allowed)
{
    this->*rowOf(right).allowed = allowed;
    if (current) {
        showToOperator(right, allowed);
    }
    showOnPage(right, allowed);
}
