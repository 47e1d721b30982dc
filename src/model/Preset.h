#pragma once

/// A stored start of playback that an operator presses.
class Preset
{
public:
    int getId() const { return id; }
    void setId(int presetId) { id = presetId; }

private:
    int id = 0;
};
