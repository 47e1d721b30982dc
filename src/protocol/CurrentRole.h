#pragma once

/// What the handlers and slots of units and zones ask of the current role's rights. Without a
/// current role nothing is allowed and nothing is told.

/// Whether the operator may change zones.
bool mayManageZones();
/// Tells the page whether the operator may change zones.
void showZoneManagement();
/// Tells the page whether the operator may change units.
void showDeviceManagement();
