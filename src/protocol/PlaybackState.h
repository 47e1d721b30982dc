#pragma once

#include <QJsonObject>
#include <QVector>

class Device;
class Playback;

/// What the messages about running playbacks have in common, replies and pushes alike.
namespace PlaybackState
{

/// The playback that the message names in this field; null, with a log line, if it has gone.
Playback* named(const QJsonObject& message, const char* field);

/// A new playback at the end of the mirror's list.
Playback& append(int id);

/// The ids of the units that carry the playback; an element that is no id is dropped with a log
/// line.
QVector<int> readActiveDevices(const QJsonObject& message);

/// Puts a playback, 0 for none, and its category on a unit.
void setPlayback(Device& device, int playbackId, int category);

/// Takes the playback off all units, out of the mirror and off the page.
void finish(const Playback& playback, bool isGong);

} // namespace PlaybackState
