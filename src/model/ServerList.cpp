#include "model/ServerList.h"

#include "log/Dropped.h"
#include "log/Log.h"
#include "storage/SafeFile.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace
{

/// A missing field has its zero value; a field of another type spoils the entry.
std::optional<Server> readServer(const QJsonValue& value)
{
    const QJsonObject entry = value.toObject();
    const QJsonValue ip = entry.value(QLatin1String("ip"));
    const QJsonValue port = entry.value(QLatin1String("port"));
    const QJsonValue isDefault = entry.value(QLatin1String("isDefault"));
    const bool valid = value.isObject() && (ip.isString() || ip.isUndefined()) &&
                       ((port.isDouble() && port.toInt(-1) >= 0 && port.toInt() <= 0xFFFF) ||
                        port.isUndefined()) &&
                       (isDefault.isBool() || isDefault.isUndefined());
    if (!valid) {
        return std::nullopt;
    }
    return Server{ip.toString(), port.toInt(), isDefault.toBool()};
}

} // namespace

ServerList::ServerList(const QString& filePath) : path(filePath)
{
}

std::optional<Server> ServerList::getDefault() const
{
    const auto found = std::find_if(servers.begin(), servers.end(),
                                    [](const Server& server) { return server.isDefault; });
    return found == servers.end() ? std::nullopt : std::optional(*found);
}

bool ServerList::addServer(const Server& server)
{
    const SafeFile::Lock lock(path);
    loadList();
    const bool known = std::any_of(servers.begin(), servers.end(), [&](const Server& other) {
        return other.ip == server.ip && other.port == server.port;
    });
    if (known) {
        Log::message("Server already exist");
        return false;
    }
    Log::message("Server added");
    servers.append(server);
    saveList();
    return true;
}

void ServerList::deleteServer(const QString& ip, int port)
{
    const SafeFile::Lock lock(path);
    loadList();
    servers.erase(std::remove_if(
                      servers.begin(), servers.end(),
                      [&](const Server& server) { return server.ip == ip && server.port == port; }),
                  servers.end());
    saveList();
}

void ServerList::setDefault(const QString& ip, int port)
{
    const SafeFile::Lock lock(path);
    loadList();
    for (Server& server : servers) {
        server.isDefault = server.ip == ip && server.port == port;
    }
    saveList();
}

std::optional<QVector<Server>> ServerList::readFile() const
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        Log::message(QStringLiteral("Server list not readable: ") + file.errorString());
        return std::nullopt;
    }
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (!document.isObject()) {
        const QString copy = path + QStringLiteral(".broken");
        QFile::remove(copy);
        QFile::copy(path, copy);
        Log::message(
            QStringLiteral("Server list not valid: %1; kept as %2").arg(error.errorString(), copy));
        return std::nullopt;
    }
    QVector<Server> result;
    const QJsonArray entries = document.object().value(QLatin1String("servers")).toArray();
    for (const QJsonValue& entry : entries) {
        if (const std::optional<Server> server = readServer(entry)) {
            result.append(*server);
        } else {
            Log::dropped(QStringLiteral("Server list: entry left out"));
        }
    }
    return result;
}

void ServerList::loadList()
{
    const Log::DropSummary summary;
    servers = readFile().value_or(servers);
}

void ServerList::saveList() const
{
    QJsonArray entries;
    for (const Server& server : servers) {
        entries.append(QJsonObject{{QStringLiteral("ip"), server.ip},
                                   {QStringLiteral("port"), server.port},
                                   {QStringLiteral("isDefault"), server.isDefault}});
    }
    SafeFile::replace(path,
                      QJsonDocument(QJsonObject{{QStringLiteral("servers"), entries}}).toJson(),
                      "Server list");
}
