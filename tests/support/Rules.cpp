#include "support/Rules.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMap>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

namespace
{

/// What stands between the bars of a table's line.
QStringList cells(const QString& line)
{
    QStringList result;
    for (const QString& cell : line.mid(1).split('|')) {
        result.append(cell.trimmed());
    }
    return result;
}

/// One scenario of a file, with its table apart.
struct Text {
    QString title;
    QStringList lines;
    QVector<QStringList> table;
};

Text read(const QString& scenario, const QMap<QString, QStringList>& parts)
{
    Text text{scenario.section('\n', 0, 0).trimmed(), {}, {}};
    for (const QString& line : scenario.split('\n').mid(1)) {
        const QString bare = line.trimmed();
        if (bare.startsWith('|')) {
            text.table.append(cells(bare));
        } else if (bare.startsWith('@')) {
            text.lines += parts.value(bare);
        } else if (!bare.isEmpty() && !bare.startsWith('#')) {
            text.lines.append(bare);
        }
    }
    return text;
}

void addRow(const QString& file, const Text& text, const QStringList& values)
{
    QStringList lines = text.lines;
    for (int column = 0; column < values.size(); ++column) {
        const QString name = '<' + text.table.first().value(column) + '>';
        lines.replaceInStrings(name, values.at(column));
    }
    lines.removeAll(QString());
    const QString title = values.isEmpty() ? text.title : text.title + ": " + values.join(' ');
    QTest::addRow("%s: %s", qPrintable(file), qPrintable(title)) << lines;
}

bool isOfType(const QJsonValue& value, const QString& type)
{
    return (type == "<number>" && value.isDouble()) || (type == "<text>" && value.isString()) ||
           (type == "<flag>" && value.isBool()) || (type == "<list>" && !value.toArray().isEmpty());
}

bool fitsArray(const QJsonArray& values, QJsonArray expected)
{
    const QString mode = expected.isEmpty() ? QString() : expected.first().toString();
    if (mode != "some" && mode != "none") {
        return values.size() == expected.size() &&
               std::equal(values.begin(), values.end(), expected.begin(), Rules::fits);
    }
    expected.removeFirst();
    return std::all_of(expected.begin(), expected.end(), [&](const QJsonValue& one) {
        const bool there =
            std::any_of(values.begin(), values.end(),
                        [&one](const QJsonValue& value) { return Rules::fits(value, one); });
        return there == (mode == "some");
    });
}

} // namespace

void Rules::addRows(const QString& folder)
{
    QTest::addColumn<QStringList>("lines");
    const QDir directory(folder);
    for (const QString& name : directory.entryList({"*.txt"})) {
        QFile file(directory.filePath(name));
        file.open(QIODevice::ReadOnly);
        QMap<QString, QStringList> parts;
        for (const QString& scenario :
             ('\n' + QString::fromUtf8(file.readAll())).split("\n= ").mid(1)) {
            const Text text = read(scenario, parts);
            if (text.title.startsWith('@')) {
                parts.insert(text.title, text.lines);
                continue;
            }
            for (const QStringList& values : text.table.mid(1)) {
                addRow(name.section('.', 0, 0), text, values);
            }
            if (text.table.isEmpty()) {
                addRow(name.section('.', 0, 0), text, {});
            }
        }
    }
}

QJsonObject Rules::object(const QString& text)
{
    static const QRegularExpression key(R"(([{,]\s*)(\w+):)");
    QString quoted = text;
    quoted.replace(key, R"(\1"\2":)");
    const QJsonDocument document = QJsonDocument::fromJson(quoted.toUtf8());
    if (document.isNull() && !text.isEmpty()) {
        qFatal("No object: %s", qPrintable(text));
    }
    return document.object();
}

bool Rules::fits(const QJsonValue& value, const QJsonValue& expected)
{
    if (expected.isArray()) {
        return value.isArray() && fitsArray(value.toArray(), expected.toArray());
    }
    if (!expected.isObject()) {
        return value == expected || isOfType(value, expected.toString());
    }
    const QJsonObject fields = expected.toObject();
    const QStringList keys = fields.keys();
    return std::all_of(keys.begin(), keys.end(), [&](const QString& key) {
        return fits(value.toObject().value(key), fields.value(key));
    });
}

QString Rules::show(const QJsonObject& object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}
