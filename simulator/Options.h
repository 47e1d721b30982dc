#pragma once

#include "simulator/Announcer.h"

#include <QHostAddress>
#include <QString>
#include <QStringList>

#include <optional>

namespace simulator
{

/// What the command line asks for.
struct Options {
    QHostAddress address{QHostAddress::LocalHost};
    quint16 port = 2049; ///< 0 picks a free one
    int devices = 24;
    bool quiet = false;
    quint32 seed = 0;
    bool announce = true;
    quint16 announcePort = announcementPort; ///< UDP
    QString announceInterface;               ///< name or address
    QString dataFolder;
    QString samplesFolder; ///< empty for no files to upload
};

/// Reads the command line. Shows the help and ends the program when it is asked for; nothing on a
/// mistake, and `problem` says which.
std::optional<Options> readOptions(const QStringList& arguments, QString* problem);

} // namespace simulator
