#pragma once

#include <QByteArray>
#include <QString>

#include <utility>

/// A message on its way out: built once, and not read again for what its sender knew.
struct OutgoingMessage {
    /// A message to which no answer comes.
    OutgoingMessage(QByteArray utf8) : text(std::move(utf8)) {}
    /// A request, with its two names on the wire.
    OutgoingMessage(QByteArray utf8, QString protocolName, QString commandName)
        : text(std::move(utf8)),
          protocol(std::move(protocolName)),
          command(std::move(commandName)),
          expectsAnswer(true)
    {
    }

    QByteArray text;
    QString protocol;
    QString command;
    bool expectsAnswer = false;
};
