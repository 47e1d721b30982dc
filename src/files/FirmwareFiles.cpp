#include "files/FirmwareFiles.h"

#include <QDateTime>
#include <QDir>
#include <QtEndian>

namespace
{

constexpr int shortestImage = 532; // the end of the longest header

QFileInfoList filesOf(const QString& path)
{
    return QDir(path).entryInfoList({"*.fc", "*.eff", "*.bin"}, QDir::Files);
}

QString describe(const QFileInfo& file)
{
    return QStringLiteral("%1/%2/%3")
        .arg(file.fileName())
        .arg(file.size())
        .arg(file.lastModified().toMSecsSinceEpoch());
}

FirmwareFiles::Listing listingOf(const QFileInfoList& files)
{
    FirmwareFiles::Listing listing;
    for (const QFileInfo& file : files) {
        listing.append(describe(file));
    }
    return listing;
}

int unsignedByte(const QByteArray& head, int offset)
{
    return static_cast<unsigned char>(head.at(offset));
}

/// Both bytes signed, their sum taken as an unsigned number of 16 bits.
int lowFirst(const QByteArray& head, int offset)
{
    const qint8 low = qFromBigEndian<qint8>(head.constData() + offset);
    const qint8 high = qFromBigEndian<qint8>(head.constData() + offset + 1);
    return static_cast<quint16>(low + 256 * high);
}

QString versionText(int a, int b, int c)
{
    return QStringLiteral("%1.%2.%3").arg(a).arg(b).arg(c);
}

} // namespace

QString FirmwareFiles::versionOf(const QString& suffix, const QByteArray& head)
{
    if (head.size() < shortestImage) {
        return {};
    }
    if (suffix == QLatin1String("fc")) {
        return unsignedByte(head, 0x0C) == 1
                   ? versionText(1, unsignedByte(head, 0x0D), lowFirst(head, 0x0E))
                   : QString();
    }
    if (unsignedByte(head, 0x120) == 1) {
        const int last = static_cast<quint16>(static_cast<signed char>(head.at(0x123)));
        return versionText(1, unsignedByte(head, 0x121), last);
    }
    const int generation = unsignedByte(head, 0x210);
    return generation == 2 || generation == 3
               ? versionText(generation, unsignedByte(head, 0x211), lowFirst(head, 0x212))
               : QString();
}

FirmwareFiles::Folder FirmwareFiles::read(const QString& path)
{
    const QFileInfoList files = filesOf(path);
    Folder folder{listingOf(files), {}};
    for (int row = 0; row < files.size(); ++row) {
        QFile file(files.at(row).filePath());
        const QByteArray head =
            file.open(QIODevice::ReadOnly) ? file.read(shortestImage) : QByteArray();
        const QString version = versionOf(files.at(row).suffix(), head);
        if (!version.isEmpty()) {
            folder.images.append({row, files.at(row).completeBaseName(), version});
        }
    }
    return folder;
}

QString FirmwareFiles::nameAt(const QString& path, const Listing& listing, int row)
{
    const QFileInfoList files = filesOf(path);
    const bool isKnown = row >= 0 && row < files.size() && listingOf(files) == listing;
    return isKnown ? files.at(row).fileName() : QString();
}
