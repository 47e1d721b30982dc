#pragma once

#include "page/ScriptCall.h"

#include <QJsonObject>
#include <QString>

#include <algorithm>
#include <iterator>

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

/// A word with which the server refuses, and the page's dialog for it.
struct Refusal {
    const char* response;
    const char* dialog;
};

/// Opens the dialog of the reply's word. A word that the table doesn't name shows nothing.
template <std::size_t count>
void showRefusal(const QJsonObject& reply, const Refusal (&table)[count])
{
    const QString word = response(reply);
    const auto row = std::find_if(std::begin(table), std::end(table), [&](const Refusal& refusal) {
        return word == QLatin1String(refusal.response);
    });
    if (row != std::end(table)) {
        Page::call(row->dialog);
    }
}
