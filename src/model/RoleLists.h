#pragma once

#include "model/Role.h"

/// One of the lists of ids that a role opens: its key on the wire, its place in the role, and the
/// scripts that empty and tick its boxes on the role page.
struct RoleList {
    const char* field;
    QVector<int> Role::*ids;
    const char* clearScript;
    const char* selectScript;
};

namespace RoleLists
{

inline constexpr RoleList zones{"zones", &Role::zones, "wrapperInput_role_cleanZones",
                                "wrapperInput_role_selectZone"};
inline constexpr RoleList playlists{"playlists", &Role::playlists,
                                    "wrapperInput_role_cleanPlaylists",
                                    "wrapperInput_role_selectPlaylist"};
inline constexpr RoleList presets{"presets", &Role::presets, "wrapperInput_role_cleanPresets",
                                  "wrapperInput_role_selectPreset"};
inline constexpr RoleList tasks{"tasks", &Role::tasks, "wrapperInput_role_cleanTasks",
                                "wrapperInput_role_selectTask"};

} // namespace RoleLists
