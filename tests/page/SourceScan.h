#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

/// Looks through the sources of both sides of the bridge for the calls between them.
namespace SourceScan
{

struct Call {
    QString name;
    int arguments;
};

/// The text of each file below a folder, by its path there.
QMap<QString, QString> readTree(const QString& folder, const QStringList& filters);
/// The rows of the table of forwarders: the function of the pages, and its slot.
QMap<QString, QString> readForwarders(const QString& script);
/// The calls of slots in a script, by `wrapper` itself and by the forwarders.
QVector<Call> slotCalls(const QString& text, const QMap<QString, QString>& forwarders);
/// What native code calls in the pages, with the largest number of arguments; -1 where only the
/// name stands in a table.
QMap<QString, int> nativeCalls(const QMap<QString, QString>& sources);

} // namespace SourceScan
