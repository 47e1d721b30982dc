#pragma once

#include "app/Data.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "model/Zone.h"
#include "network/NetworkParser.h"
#include "protocol/Request.h"
#include "support/SessionFixture.h"

#include <QJsonArray>

/// Short ways to say what the tests of units and zones say most.
namespace Fleet
{

QJsonObject json(const char* text);
/// The calls of one text with a line each; blanks at both ends of a line don't count.
QStringList lines(const char* text);

/// The requests that were queued since the last call, as `device/getState {"id":5}`;
/// acknowledgements are left out.
QStringList takeRequests();
/// The names alone, as `getState`.
QStringList takeActions();

/// Asks and has it answered: the console gets `reply`, "success" where it has no word of its own.
template <class Command> void answer(Command command, const QJsonObject& asked, QJsonObject reply)
{
    reply.insert(QStringLiteral("order"), Data::parser.orderCounter);
    if (!reply.contains(QStringLiteral("response"))) {
        reply.insert(QStringLiteral("response"), QStringLiteral("success"));
    }
    send(command, asked);
    takeRequests();
    SessionFixture::receive(reply);
}
template <class Command> void answer(Command command, const char* asked, const char* reply)
{
    answer(command, json(asked), json(reply));
}

/// Has the console receive a push.
void push(const QByteArray& text);
void push(const QJsonObject& message);

Device& addDevice(int id, DeviceStatus status = DeviceOnline);
Zone& addZone(int id, const QString& name, int parent = 0, int type = 0);
/// The zone of the console itself, which the login makes.
void addEverything();
/// Logs somebody in whose role may change zones.
void beZoneManager();

} // namespace Fleet
