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

/// Whether the page may show the tracks of this playback: by the time of an answer the operator may
/// have gone on to another one.
bool mayBeShown(const Playback& playback);

/// The ids of the units that carry the playback; an element that is no id is dropped with a log
/// line.
QVector<int> readActiveDevices(const QJsonObject& message);

/// Puts a playback, 0 for none, and its category on a unit.
void setPlayback(Device& device, int playbackId, int category);

/// Gives the page its gong button back if the playback is the gong that sounds, paused or not.
void forgetGong(const Playback& playback);

/// Takes the playback off all units, out of the mirror and off the page.
void finish(const Playback& playback);

} // namespace PlaybackState
