#include "network/KnownPeers.h"

#include "log/Log.h"
#include "storage/SafeFile.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

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
    SafeFile::replace(path, QJsonDocument(known).toJson(), "Fingerprints");
    return last.isEmpty() ? Met::First : Met::Changed;
}
