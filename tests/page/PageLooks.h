#pragma once

#include "page/Console.h"

#include <QStringList>

/// A page of the session: how it is opened, and which regions that loads.
struct PageRow {
    const char* name;
    const char* open;
    const char* regions;
};

inline constexpr PageRow pageRows[] = {
    {"home", "loadHomePage()", "#top_menu #side_menu #main #bot_menu"},
    {"unit", "wrapperLoadDeviceInfo(1)", "#top_menu #side_menu #main #bot_menu #modal"},
    {"playbacks",
     "loadSideMenu('playback'); loadMainBody('playback_list'); loadBotMenu('playback_list'); "
     "loadModal('playlist')",
     "#side_menu #main #bot_menu #modal"},
    {"new playback", "openNewPlayback()", "#side_menu #main #bot_menu #modal"},
    {"microphone",
     "loadSideMenu('alarm_zone_list'); loadMainBody('microphone'); loadBotMenu('microphone'); "
     "loadModal('microphone')",
     "#side_menu #main #bot_menu #modal"},
    {"alarm messages",
     "loadSideMenu('alarm_zone_list'); loadTopMenu('alarm_list'); loadMainBody('alarm_list'); "
     "loadBotMenu('alarm_messages_list'); loadModal('alarm')",
     "#top_menu #side_menu #main #bot_menu #modal"},
    {"alarm broadcast",
     "loadSideMenu('alarm_zone_list'); loadTopMenu('translation'); loadMainBody('translation'); "
     "loadBotMenu('translation'); loadModal('translation')",
     "#top_menu #side_menu #main #bot_menu #modal"},
    {"users",
     "loadSideMenu('admin'); loadTopMenu('admin/index'); loadModal('admin/users'); "
     "loadBotMenu('admin/users'); loadMainBody('admin/users')",
     "#top_menu #side_menu #main #bot_menu #modal"},
    {"zones",
     "loadSideMenu('admin'); loadTopMenu('admin/index'); loadModal('admin/zones'); "
     "loadBotMenu('admin/zones'); loadMainBody('admin/zones')",
     "#top_menu #side_menu #main #bot_menu #modal"},
    {"unit settings",
     "loadSideMenu('admin'); loadTopMenu('admin/index'); loadModal('admin/devices'); "
     "loadBotMenu('admin/devices'); loadMainBody('admin/devices')",
     "#top_menu #side_menu #main #bot_menu #modal"},
    {"line control",
     "loadSideMenu('admin'); loadTopMenu('admin/index'); loadModal('admin/devices_line_control'); "
     "loadBotMenu('admin/devices_line_control'); loadMainBody('admin/devices_line_control')",
     "#top_menu #side_menu #main #bot_menu #modal"},
    {"roles",
     "loadSideMenu('admin'); loadTopMenu('admin/index'); loadModal('admin/roles'); "
     "loadBotMenu('admin/roles'); loadMainBody('admin/roles')",
     "#top_menu #side_menu #main #bot_menu #modal"},
    {"unit memory",
     "loadSideMenu('admin'); loadTopMenu('admin/index'); loadModal('admin/devices_memory'); "
     "loadBotMenu('admin/devices_memory'); loadMainBody('admin/devices_memory')",
     "#top_menu #side_menu #main #bot_menu #modal"},
    {"firmware",
     "loadSideMenu('admin'); loadTopMenu('admin/index'); loadModal('admin/devices_firmware'); "
     "loadBotMenu('admin/devices_firmware'); loadMainBody('admin/devices_firmware')",
     "#top_menu #side_menu #main #bot_menu #modal"},
    {"preset forms",
     "loadSideMenu('admin'); loadTopMenu('admin/index'); loadModal('admin/presets'); "
     "loadBotMenu('admin/presets'); loadMainBody('admin/presets')",
     "#top_menu #side_menu #main #bot_menu #modal"},
    {"task forms",
     "loadSideMenu('admin'); loadTopMenu('admin/index'); loadModal('admin/tasks'); "
     "loadBotMenu('admin/tasks'); loadMainBody('admin/tasks')",
     "#top_menu #side_menu #main #bot_menu #modal"},
    {"server",
     "loadSideMenu('admin'); loadTopMenu('admin/index'); loadModal('admin/server'); "
     "loadBotMenu('admin/server'); loadMainBody('admin/server')",
     "#top_menu #side_menu #main #bot_menu #modal"},
    {"server log",
     "loadSideMenu('admin'); loadTopMenu('admin/index'); loadModal('admin/log'); "
     "loadBotMenu('admin/log'); loadMainBody('admin/log')",
     "#top_menu #side_menu #main #bot_menu #modal"},
    {"presets",
     "loadSideMenu('preset_list'); loadMainBody('preset_list'); loadBotMenu('preset_list'); "
     "loadModal('preset')",
     "#side_menu #main #bot_menu #modal"},
    {"folder settings",
     "loadSideMenu('settings'); loadTopMenu('settings'); loadMainBody('settings/files'); "
     "loadBotMenu('settings/files'); loadModal('settings')",
     "#top_menu #side_menu #main #bot_menu #modal"},
    {"log settings",
     "loadSideMenu('settings'); loadTopMenu('settings'); loadMainBody('settings/log'); "
     "loadBotMenu('settings/log'); loadModal('settings')",
     "#top_menu #side_menu #main #bot_menu #modal"},
    {"lock settings",
     "loadSideMenu('settings'); loadTopMenu('settings'); loadMainBody('settings/block'); "
     "loadBotMenu('settings/block'); loadModal('settings')",
     "#top_menu #side_menu #main #bot_menu #modal"},
    {"sound settings",
     "loadSideMenu('settings'); loadTopMenu('settings'); loadMainBody('settings/media'); "
     "loadBotMenu('settings/media'); loadModal('settings')",
     "#top_menu #side_menu #main #bot_menu #modal"},
};

/// What a page shows and answers to, in a form that can be compared.
namespace PageLooks
{

void open(const Console& console, const PageRow& page);
/// Waits until all that was asked for has been loaded.
bool hasSettled(const Console& console);
/// What the regions of a page show and answer to, without the numbers that libraries make up, and
/// without the elements of `except`.
QStringList looks(const Console& console, const PageRow& page, const char* except = "script");

} // namespace PageLooks
