#include "support/SessionFixture.h"

#include "app/Data.h"
#include "model/ServerSettings.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"
#include "protocol/Protocols.h"
#include "protocol/SessionHooks.h"
#include "support/TestServer.h"

#include <QJsonDocument>

SessionFixture::SessionFixture()
{
    joinProtocols();
    reset();
    Data::tcpClient.setSessionEndHook([this] {
        ++ends;
        Data::clearSession();
    });
}

SessionFixture::~SessionFixture()
{
    Data::tcpClient.setSessionEndHook({});
    reset();
}

void SessionFixture::reset()
{
    Data::tcpClient.close();
    Data::parser.reset();
    Data::clearSession();
    Data::serverSettings = {};
    Data::userRoleChanged = false;
    Data::debugMode = false;
    sessionHooks() = {};
}

bool SessionFixture::connectTo(const TestServer& server)
{
    return Data::tcpClient.connectToServer(QStringLiteral("127.0.0.1"), server.port());
}

void SessionFixture::receive(const QJsonObject& message)
{
    Data::parser.parse(QJsonDocument(message).toJson());
}

QStringList SessionFixture::queued()
{
    QStringList names;
    for (const QByteArray& text : Data::tcpClient.queuedMessages()) {
        names.append(TestServer::describe(QJsonDocument::fromJson(text).object()));
    }
    return names;
}
