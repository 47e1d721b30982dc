#include "page/ScriptCall.h"

#include <utility>

namespace Page
{

namespace
{

Sink& currentSink()
{
    static Sink sink;
    return sink;
}

QString unicodeEscape(QChar character)
{
    return QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0'));
}

} // namespace

void setSink(Sink sink)
{
    currentSink() = std::move(sink);
}

void run(const QString& script)
{
    if (currentSink()) {
        currentSink()(script);
    }
}

QString literal(double number)
{
    return QString::number(number, 'g', 6);
}

QString literal(const QString& text)
{
    QString result;
    result.reserve(text.size() + 2);
    result += QLatin1Char('"');
    QChar previous;
    for (const QChar character : text) {
        switch (character.unicode()) {
        case '"':
        case '\\':
            result += QLatin1Char('\\');
            result += character;
            break;
        case '\n':
            result += QLatin1String("\\n");
            break;
        case '\r':
            result += QLatin1String("\\r");
            break;
        case '/': // "</" would end a script element
            result += previous == QLatin1Char('<') ? QLatin1String("\\/") : QLatin1String("/");
            break;
        case 0x2028: // line ends of the script language
        case 0x2029:
            result += unicodeEscape(character);
            break;
        default:
            result += character.unicode() < 0x20 ? unicodeEscape(character) : QString(character);
        }
        previous = character;
    }
    result += QLatin1Char('"');
    return result;
}

} // namespace Page
