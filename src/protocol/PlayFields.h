#pragma once

#include "protocol/FieldSetter.h"
#include "protocol/Reply.h"

#include <QJsonArray>
#include <QVector>

/// What the messages about presets and tasks have in common.
namespace PlayFields
{

/// Why the server doesn't take a new preset or task.
inline constexpr Refusal addRefusals[] = {
    {"titleExists", "modalAdminTitleExists"},
    {"forbiddenZoneInTask", "modalAdminRoleError"},
    {"forbiddenPlaylistInTask", "modalAdminRoleError"},
    {"forbiddenZoneInPreset", "modalAdminRoleError"},
    {"forbiddenPlaylistInPreset", "modalAdminRoleError"},
    {"forbiddenDeviceInZone", "modalAdminRoleError"},
    {"forbiddenDeviceInTask", "modalAdminRoleError"},
    {"forbiddenDeviceInPreset", "modalAdminRoleError"},
};
/// Why it doesn't take a change of one.
inline constexpr Refusal editRefusals[] = {{"titleExists", "modalAdminTitleExists"}};

/// The ids of a list; an element that is no id is left out with a log line.
QVector<int> readIds(const QJsonObject& message, const char* field);
QJsonArray idArray(const QVector<int>& ids);

/// Title, targets and how it goes on, from a message to a preset or a task.
template <class Entry> void read(FieldSetter<Entry>& set)
{
    set.text("title", &Entry::setTitle);
    set.text("targetPlaying", &Entry::setTargetPlaying);
    set.integer("repeats", &Entry::setRepeats, 0);
    set.text("actionIfEnd", &Entry::setActionIfEnd);
    set.object().setZoneList(readIds(set.message(), "zones"));
    set.object().setDeviceList(readIds(set.message(), "devices"));
}

} // namespace PlayFields
