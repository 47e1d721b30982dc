#pragma once

#include "page/ScriptCall.h"

#include <QJsonObject>
#include <QString>

#include <cstddef>

/// The reply's outcome, as the word that the server sent.
inline QString response(const QJsonObject& reply)
{
    return reply.value(QLatin1String("response")).toString();
}

/// Whether the server did what was asked.
inline bool succeeded(const QJsonObject& reply)
{
    return response(reply) == QLatin1String("success");
}

/// What was asked, as it was sent.
inline QJsonObject request(const QJsonObject& reply)
{
    return reply.value(QLatin1String("requestReply")).toObject();
}

/// The handler of a command whose reply changes nothing in the mirror.
inline void ignoreReply(const QJsonObject&)
{
}

/// A word with which the server refuses, and the page's dialog for it.
struct Refusal {
    const char* response;
    const char* dialog;
};

/// Opens the dialogs of the reply's word: a table may name several, of which each page has its
/// own. A word that the table doesn't name shows nothing.
template <std::size_t count>
void showRefusal(const QJsonObject& reply, const Refusal (&table)[count])
{
    const QString word = response(reply);
    for (const Refusal& refusal : table) {
        if (word == QLatin1String(refusal.response)) {
            Page::call(refusal.dialog);
        }
    }
}
