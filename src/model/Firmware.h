#pragma once

#include <QString>

/// A firmware image on the server.
struct Firmware {
    QString fileName;
    QString version; ///< the first three components of the reported version
};
