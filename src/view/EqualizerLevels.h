#pragma once

#include <QVariantList>

/// Sends a unit the levels of its equaliser, in dB, one a band; nothing if one of them is no
/// number, or the unit has gone.
void sendEqualizer(int deviceId, bool enabled, const QVariantList& levels);
