#pragma once

/// The mirror of one loudspeaker unit.
class Device
{
public:
    int getId() const { return id; }
    void setId(int deviceId) { id = deviceId; }

private:
    int id = 0;
};
