#pragma once

#include "app/Data.h"
#include "log/Dropped.h"
#include "log/Log.h"
#include "model/ModelList.h"
#include "network/Fields.h"
#include "page/ScriptCall.h"

#include <QSet>
#include <QVector>

/// One element of a list whose elements the server knows by name.
struct NamedEntry {
    QString name;
    QJsonObject fields;
};

/// The elements that have a name; any other is left out with a log line. `what` names the kind.
inline QVector<NamedEntry> namedEntries(const QJsonArray& elements, const char* what)
{
    QVector<NamedEntry> result;
    for (const QJsonValue& element : elements) {
        const QJsonObject fields = element.toObject();
        if (const auto name = Fields::text(fields, "name")) {
            result.append({*name, fields});
        } else {
            Log::dropped(QStringLiteral("Dropped %1 of the list: no name").arg(what));
        }
    }
    return result;
}

/// Takes out of the mirror, and off the page, what none of the entries names.
template <class T>
void removeUnnamed(ModelList<T>& list, const QVector<NamedEntry>& entries, const char* what,
                   const char* deleteScript)
{
    Log::message(QStringLiteral("Founded %1 remove").arg(what));
    QSet<QString> names;
    for (const NamedEntry& entry : entries) {
        names.insert(entry.name);
    }
    const auto isGone = [&](const T& item) { return !names.contains(item.getName()); };
    while (const T* const gone = list.findIf(isGone)) {
        Log::message(QStringLiteral("Deleted %1: %2").arg(what).arg(gone->getId()));
        Page::call(deleteScript, gone->getId());
        list.remove(gone);
    }
}
