#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// Firmware images in a folder of this computer.
namespace FirmwareFiles
{

/// An image as the operator sees it.
struct Image {
    int row = 0; ///< its place in the listing, files that are no images counted too, from 0
    QString name;
    QString version; ///< "A.B.C"
};

/// What a listing of a folder was like: names, sizes and times.
using Listing = QVector<QString>;

struct Folder {
    Listing listing;
    QVector<Image> images;
};

/// The version that the head of an image tells, by its kind: "bin", "eff" or "fc"; empty for none.
/// `head` are the first bytes of the file, 532 at least.
QString versionOf(const QString& suffix, const QByteArray& head);

/// The images of a folder; nothing below one that isn't there. Reads the head of each file alone.
Folder read(const QString& path);
/// The name of the file in that row, while the folder is as it was; empty otherwise.
QString nameAt(const QString& path, const Listing& listing, int row);

} // namespace FirmwareFiles
