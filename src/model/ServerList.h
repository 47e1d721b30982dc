#pragma once

#include <QString>
#include <QVector>

#include <optional>

/// An audio server that the console can log in to.
struct Server {
    QString ip;
    int port = 0;           ///< TCP port of the command channel, 1 to 65535
    bool isDefault = false; ///< the server of the last successful login
};

/// The remembered servers and their file, `servers.json`. An entry with a field of a wrong type is
/// left out. Several consoles may share the file: whoever changes something reads it again first,
/// under a lock, so that each keeps what the others have added.
class ServerList
{
public:
    explicit ServerList(const QString& filePath);

    int size() const { return servers.size(); }
    /// The server at an index from 0 to `size()` - 1.
    const Server& at(int index) const { return servers.at(index); }
    /// The first default server, if there is one.
    std::optional<Server> getDefault() const;

    /// Appends and saves; false, and no change, if the list has that address and port.
    bool addServer(const Server& server);
    /// Removes every entry with that address and port, and saves.
    void deleteServer(const QString& ip, int port);
    /// Makes the servers with that address and port the only default ones, and saves.
    void setDefault(const QString& ip, int port);

    /// Takes what the file holds in place of the list. Of a file that isn't valid a copy is kept
    /// beside it, with ".broken" behind its name, and the list stays; of one that can't be read,
    /// too, each with a log line.
    void loadList();
    void saveList() const;

private:
    std::optional<QVector<Server>> readFile() const;

    QString path;
    QVector<Server> servers;
};
