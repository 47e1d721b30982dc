#pragma once

#include "model/PlayDefinition.h"
#include "model/Words.h"

class Track;

/// A stored start of playback that an operator presses. Setters with a script tell the page of a
/// change.
class Preset : public PlayDefinition
{
public:
    /// Kinds of audio by their words on the wire; the console makes the first alone.
    static constexpr std::array<Word<int>, 6> types{{{0, "playlist"},
                                                     {1, "music"},
                                                     {2, "microphone"},
                                                     {3, "alarm"},
                                                     {4, "message"},
                                                     {5, "scenario"}}};
    /// The target that stands for the folder's first track.
    static constexpr int firstTrack = -1;

    int getType() const { return type; }
    void setType(int kind) { type = kind; }
    /// The track, or `firstTrack`.
    int getTarget() const { return target; }
    void setTarget(int trackId) { target = trackId; }
    /// The place among the presets, as the server keeps it.
    int getPosition() const { return position; }
    void setPosition(int place) { position = place; }

    void setTitle(const QString& text) { change(title, text, "wrapperInput_preset_setTitle"); }
    void setTargetPlaying(const QString& what)
    {
        change(targetPlaying, what, "wrapperInput_preset_setTargetPlaying");
    }
    void setRepeats(int count) { change(repeats, count, "wrapperInput_preset_setRepeats"); }
    void setActionIfEnd(const QString& action)
    {
        change(actionIfEnd, action, "wrapperInput_preset_setActionIfEnd");
    }

    /// The track that it starts with; null if the mirror doesn't know it, or the folder is empty.
    const Track* track() const;
    /// Adds it to the page, with the category that `group` says; not while folder or track are
    /// unknown, which the operator may not see.
    void addToPage(int group) const;
    /// With the category of its folder.
    void addToPage() const;

private:
    int type = 0;
    int target = 0;
    int position = 0;
};
