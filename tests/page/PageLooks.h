#pragma once

#include "page/Console.h"

#include <QStringList>

/// A page of the session: how it is opened, and which regions that loads.
struct PageRow {
    const char* name;
    const char* open; ///< a script, or its entry in the side menu of the administration
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
    {"users", "#admin_users", "#top_menu #side_menu #main #bot_menu #modal"},
    {"zones", "#admin_zones", "#top_menu #side_menu #main #bot_menu #modal"},
    {"unit settings", "#admin_devices", "#top_menu #side_menu #main #bot_menu #modal"},
    {"line control", "#admin_devices_line_control", "#top_menu #side_menu #main #bot_menu #modal"},
    {"roles", "#admin_roles", "#top_menu #side_menu #main #bot_menu #modal"},
    {"library", "#admin_playback", "#top_menu #side_menu #main #bot_menu #modal"},
    {"unit memory", "#admin_devices_memory", "#top_menu #side_menu #main #bot_menu #modal"},
    {"firmware", "#admin_devices_firmware", "#top_menu #side_menu #main #bot_menu #modal"},
    {"preset forms", "#admin_presets", "#top_menu #side_menu #main #bot_menu #modal"},
    {"task forms", "#admin_tasks", "#top_menu #side_menu #main #bot_menu #modal"},
    {"server", "#admin_server", "#top_menu #side_menu #main #bot_menu #modal"},
    {"server log", "#admin_log", "#top_menu #side_menu #main #bot_menu #modal"},
    {"presets",
     "loadSideMenu('preset_list'); loadMainBody('preset_list'); loadBotMenu('preset_list'); "
     "loadModal('preset')",
     "#side_menu #main #bot_menu #modal"},
    {"calendar",
     "loadSideMenu('task_device_list'); loadMainBody('task_list'); loadBotMenu('task_list'); "
     "loadModal('task_list')",
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

/// A page of the administration is opened once its side menu is there.
void open(const Console& console, const PageRow& page);
/// Whether it is a page of the administration.
bool isAdministration(const PageRow& page);
/// Waits until all that was asked for has been loaded.
bool hasSettled(const Console& console);
/// What the regions of a page show and answer to, without the numbers that libraries make up, and
/// without the elements of `except`.
QStringList looks(const Console& console, const PageRow& page, const char* except = "script");

} // namespace PageLooks
