#include "model/ServerList.h"

#include "app/Data.h"
#include "log/Log.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

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
    servers.erase(std::remove_if(
                      servers.begin(), servers.end(),
                      [&](const Server& server) { return server.ip == ip && server.port == port; }),
                  servers.end());
    saveList();
}

void ServerList::setDefault(const QString& ip, int port)
{
    for (Server& server : servers) {
        server.isDefault = server.ip == ip && server.port == port;
    }
    saveList();
}

void ServerList::loadList()
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        Log::message(QStringLiteral("Server list not readable: ") + file.errorString());
        return;
    }
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (!document.isObject()) {
        Log::message(QStringLiteral("Server list not valid: ") + error.errorString());
        return;
    }
    const QJsonArray entries = document.object().value(QLatin1String("servers")).toArray();
    for (const QJsonValue& entry : entries) {
        if (const std::optional<Server> server = readServer(entry)) {
            servers.append(*server);
        } else {
            Log::message("Server list: entry left out");
        }
    }
}

void ServerList::saveList() const
{
    QJsonArray entries;
    for (const Server& server : servers) {
        entries.append(QJsonObject{{QStringLiteral("ip"), server.ip},
                                   {QStringLiteral("port"), server.port},
                                   {QStringLiteral("isDefault"), server.isDefault}});
    }
    // Written beside and moved into place, so that a full disk doesn't cost the old list.
    QSaveFile file(path);
    const bool written =
        file.open(QIODevice::WriteOnly | QIODevice::Text) &&
        file.write(QJsonDocument(QJsonObject{{QStringLiteral("servers"), entries}}).toJson()) >=
            0 &&
        file.commit();
    if (!written) {
        Log::message(QStringLiteral("Server list not saved: ") + file.errorString());
    }
}
