#pragma once

#include "network/LongTexts.h"

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

    /// The whole text, for traces and tests.
    QByteArray whole() const { return attachment.isEmpty() ? text : text + attachment + closing; }

    static constexpr const char* closing = "\"\n}\n"; ///< behind an attachment

    QByteArray text;       ///< up to the attachment, where there is one
    QByteArray attachment; ///< base64
    QString protocol;
    QString command;
    bool expectsAnswer = false;
};
