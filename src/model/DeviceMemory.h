#pragma once

#include <QString>

/// An audio fragment in a unit's own memory.
struct Message {
    int deviceId = 0;
    int position = 0; ///< index in the unit's memory, from 0
    QString title;
    int size = 0; ///< bytes

    /// Adds the fragment to the page; `playing` is the group that plays it, 0 for none.
    void addToPage(int playing) const;
};

/// A message made of fragments in a unit's own memory.
struct Scenario {
    int deviceId = 0;
    int position = 0; ///< index in the unit's memory, from 0
    QString title;
    int priority = 0;
    int positionGong = 0;    ///< position of the fragment played as gong
    int positionMessage = 0; ///< position of the main fragment
    int repeat = 0;          ///< repeat interval in seconds

    /// Adds the message to the page, which counts fragments from 1; `playing` as above.
    void addToPage(int playing) const;
};
