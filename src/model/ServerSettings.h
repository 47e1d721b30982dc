#pragma once

#include <QString>
#include <QVector>

/// A network interface of the server.
struct NetworkInterface {
    QString ip;
    QString description;
    bool selected = false;
};

/// What the server reports about itself. The values outlive a session, until the next answers
/// overwrite them. A setter tells the page when the value changes.
class ServerSettings
{
public:
    QVector<NetworkInterface>& getInterfaces() { return interfaces; }
    const QVector<NetworkInterface>& getInterfaces() const { return interfaces; }
    /// The first selected interface, or null.
    const NetworkInterface* getSelectedInterface() const;
    /// Selects the interface with that address, and no other.
    void setSelectedInterface(const QString& ip);

    /// The multicast address of the audio stream.
    const QString& getMulticastIp() const { return multicastIp; }
    void setMulticastIp(const QString& ip);
    /// Stores alone: the page has it already.
    void storeMulticastIp(const QString& ip) { multicastIp = ip; }
    /// The UDP port for commands to units.
    int getCommandPort() const { return commandPort; }
    void setCommandPort(int port);
    /// Stores alone: the page has it already.
    void storeCommandPort(int port) { commandPort = port; }
    const QString& getServerVersion() const { return serverVersion; }
    void setServerVersion(const QString& version);
    /// The version offered as an update; the running one when none is offered.
    const QString& getAvailableServerVersion() const { return availableServerVersion; }
    void setAvailableServerVersion(const QString& version);
    /// Whether the server reaches the Internet.
    bool getInternetStatus() const { return internetStatus; }
    void setInternetStatus(bool reachable);

private:
    QVector<NetworkInterface> interfaces;
    QString multicastIp = QStringLiteral("224.0.224.1");
    int commandPort = 11190; // the server's default; a unit starts with 11990
    QString serverVersion;
    QString availableServerVersion;
    bool internetStatus = false;
};
