#include "view/WebView.h"

#include "app/Data.h"
#include "log/Logger.h"
#include "model/ModelList.h"
#include "model/Playlist.h"
#include "page/ScriptCall.h"

void WebView::load_permissions()
{
    Page::call("wrapperInput_playbackGlobal_editAlarm", Data::getPlaylistById(6) != nullptr);
}

void WebView::admin_loadPermissions()
{
    Data::logger.message("admin_loadPermissions");
    Data::logger.message("admin_loadPermissionsEnd");
}
