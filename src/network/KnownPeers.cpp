#include "network/KnownPeers.h"

#include "log/Log.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <utility>

namespace
{

QJsonObject load(const QString& path)
{
    QFile file(path);
    if (!file.exists()) {
        return {};
    }
    QJsonParseError error{};
    if (!file.open(QIODevice::ReadOnly)) {
        Log::message(QStringLiteral("Fingerprints not readable: ") + file.errorString());
        return {};
    }
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (!document.isObject()) {
        Log::message(QStringLiteral("Fingerprints not valid: ") + error.errorString());
    }
    return document.object();
}

void save(const QString& path, const QJsonObject& fingerprints)
{
    QSaveFile file(path);
    const bool written = file.open(QIODevice::WriteOnly) &&
                         file.setPermissions(QFile::ReadOwner | QFile::WriteOwner) &&
                         file.write(QJsonDocument(fingerprints).toJson()) >= 0 && file.flush();
    // The commit itself says nothing of a full disk, and would put an empty file into place.
    if (!written || !file.commit()) {
        Log::message(QStringLiteral("Fingerprints not saved: ") + file.errorString());
        file.cancelWriting();
    }
}

} // namespace

KnownPeers::KnownPeers(QString filePath) : path(std::move(filePath))
{
}

KnownPeers::Met KnownPeers::meet(const QString& host, int port, const QByteArray& fingerprint) const
{
    if (path.isEmpty()) {
        return Met::First;
    }
    QJsonObject known = load(path);
    const QString address = host + QLatin1Char('/') + QString::number(port);
    const QString shown = QString::fromLatin1(fingerprint);
    const QString last = known.value(address).toString();
    if (last == shown) {
        return Met::Again;
    }
    known.insert(address, shown);
    save(path, known);
    return last.isEmpty() ? Met::First : Met::Changed;
}
