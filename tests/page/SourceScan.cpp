#include "page/SourceScan.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

namespace SourceScan
{

namespace
{

/// The number of arguments of a call whose opening bracket is in front of `position`.
int countArguments(const QString& text, int position)
{
    int depth = 1;
    int commas = 0;
    bool empty = true;
    QChar quote;
    for (int i = position; i < text.size() && depth > 0; ++i) {
        const QChar character = text.at(i);
        if (!quote.isNull()) {
            if (character == '\\') {
                ++i;
            } else if (character == quote) {
                quote = QChar();
            }
            continue;
        }
        if (QStringLiteral("\"'`").contains(character)) {
            quote = character;
            empty = false;
        } else if (QStringLiteral("([{").contains(character)) {
            ++depth;
            empty = false;
        } else if (QStringLiteral(")]}").contains(character)) {
            --depth;
        } else if (character == ',' && depth == 1) {
            ++commas;
        } else if (!character.isSpace()) {
            empty = false;
        }
    }
    return empty ? 0 : commas + 1;
}

} // namespace

QMap<QString, QString> readForwarders(const QString& script)
{
    static const QRegularExpression row(QStringLiteral("^    (wrapper\\w+): \"(\\w+)\",$"),
                                        QRegularExpression::MultilineOption);
    QMap<QString, QString> result;
    auto matches = row.globalMatch(script);
    while (matches.hasNext()) {
        const auto match = matches.next();
        result.insert(match.captured(1), match.captured(2));
    }
    return result;
}

QVector<Call> slotCalls(const QString& text, const QMap<QString, QString>& forwarders)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\bwrapper\\.(\\w+)\\s*\\(|(?<!function )\\b(wrapper\\w*)\\s*\\("));
    QVector<Call> calls;
    auto matches = pattern.globalMatch(text);
    while (matches.hasNext()) {
        const auto match = matches.next();
        const QString slot =
            match.captured(1).isEmpty() ? forwarders.value(match.captured(2)) : match.captured(1);
        if (!slot.isEmpty()) {
            calls.append({slot, countArguments(text, match.capturedEnd())});
        }
    }
    return calls;
}

QMap<QString, QString> readTree(const QString& folder, const QStringList& filters)
{
    QMap<QString, QString> result;
    QDirIterator files(folder, filters, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.fileName().contains(QLatin1String("node_modules")) &&
            file.open(QIODevice::ReadOnly)) {
            result.insert(QDir(folder).relativeFilePath(file.fileName()),
                          QString::fromUtf8(file.readAll()));
        }
    }
    return result;
}

QMap<QString, int> nativeCalls(const QMap<QString, QString>& sources)
{
    static const QRegularExpression call(QStringLiteral("Page::call\\(\\s*\"(\\w+)\""));
    static const QRegularExpression name(QStringLiteral("\"((?:wrapperInput_|modal[A-Z])\\w+)\""));
    QMap<QString, int> result;
    for (const QString& text : sources) {
        auto names = name.globalMatch(text);
        while (names.hasNext()) {
            const QString found = names.next().captured(1);
            result.insert(found, result.value(found, -1));
        }
        auto calls = call.globalMatch(text);
        while (calls.hasNext()) {
            const auto match = calls.next();
            const int arguments = countArguments(text, match.capturedEnd()) - 1 +
                                  (text.at(match.capturedEnd()) == ',' ? 0 : 1);
            result.insert(match.captured(1), qMax(result.value(match.captured(1), -1), arguments));
        }
    }
    return result;
}

} // namespace SourceScan
