#include "view/WebView.h"

#include "app/Data.h"
#include "log/Log.h"
#include "model/ModelList.h"
#include "model/Playlist.h"
#include "model/Preset.h"
#include "model/RoleLists.h"
#include "model/Task.h"
#include "page/ScriptCall.h"
#include "view/SlotLog.h"

namespace
{

using Right = Role::Right;

constexpr int operatorRoleId = 0;
constexpr int alarmPlaylistId = 6;

/// Ticks the boxes of one list, but for entries that aren't there any more.
template <class Known> void showList(const Role& role, const RoleList& list, Known isKnown)
{
    Page::call(list.clearScript);
    for (const int id : role.*list.ids) {
        if (isKnown(id)) {
            Page::call(list.selectScript, role.getId(), id);
        }
    }
}

void showLists(const Role& role)
{
    const auto any = [](int) { return true; };
    showList(role, RoleLists::zones, any);
    showList(role, RoleLists::playlists, any);
    showList(role, RoleLists::presets, Data::getPresetById);
    showList(role, RoleLists::tasks, Data::getTaskById);
    Page::call("wrapperInput_role_reloadPermissions");
}

/// The right to the server is told as text wherever it is replayed.
void showServerRight(const Role& role, const char* script)
{
    Page::call(script, role.getId(), role.getName(), QString::number(role.getServerManagement()));
}

} // namespace

void WebView::load_permissions()
{
    if (const Role* const role = Data::getCurrentRole()) {
        for (const Right right :
             {Right::Device, Right::Zone, Right::Microphone, Right::MicrophoneAlarm}) {
            role->showToOperator(right);
        }
    }
    Page::call("wrapperInput_playbackGlobal_editAlarm",
               Data::getPlaylistById(alarmPlaylistId) != nullptr);
}

void WebView::admin_loadPermissions()
{
    const SlotLog log("admin_loadPermissions");
    const Role* const role = Data::getCurrentRole();
    if (!role) {
        return;
    }
    showServerRight(*role, "wrapperInput_roleGlobal_editServerManagement");
    for (const Right right : {Right::Device, Right::Zone, Right::User, Right::Role, Right::Playback,
                              Right::Preset, Right::Schedule}) {
        role->showToOperator(right);
    }
}

void WebView::admin_loadRoleList()
{
    const SlotLog log("admin_loadRoleList", {}, LogLevel::RoleSettings);
    const Role* const own = Data::getCurrentRole();
    for (const Role& role : Data::roleList) {
        Log::message(QStringLiteral("Load role: ") + role.getName(), LogLevel::RoleSettings);
        const bool isKept =
            (own && role.getName() == own->getName()) || role.getName() == QLatin1String("admin");
        role.addToPage(isKept);
    }
    if (!Data::roleList.isEmpty()) {
        admin_selectRole(operatorRoleId);
    }
}

void WebView::admin_selectRole(int id)
{
    const SlotLog log("admin_selectRole", QStringLiteral(": %1").arg(id), LogLevel::RoleSettings);
    const Role* const role = Data::getRoleById(id);
    if (!role) {
        Log::message(QStringLiteral("Unknown role: %1").arg(id), LogLevel::RoleSettings);
        return;
    }
    Page::call("wrapperInput_role_select", id);
    Page::call("wrapperInput_role_edit", id, role->getName(), role->getTitle());
    showServerRight(*role, "wrapperInput_role_editServerManagement");
    for (const Right right :
         {Right::Device, Right::Zone, Right::User, Right::Role, Right::Playback, Right::Preset,
          Right::Schedule, Right::Microphone, Right::MicrophoneAlarm}) {
        role->showOnPage(right);
    }
    showLists(*role);
}
