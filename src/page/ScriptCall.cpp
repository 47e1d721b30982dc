#include "page/ScriptCall.h"

#include <cmath>
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

std::function<void(bool)>& currentBatchHook()
{
    static std::function<void(bool)> hook;
    return hook;
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

void setBatchHook(std::function<void(bool)> hook)
{
    currentBatchHook() = std::move(hook);
}

Batch::Batch()
{
    if (currentBatchHook()) {
        currentBatchHook()(true);
    }
}

Batch::~Batch()
{
    if (currentBatchHook()) {
        currentBatchHook()(false);
    }
}

QString Call::script() const
{
    return function + QLatin1Char('(') + arguments + QLatin1String(");");
}

QString Call::json() const
{
    const QString separator = arguments.isEmpty() ? QString() : QStringLiteral(",");
    return QLatin1String("[\"") + function + QLatin1Char('"') + separator + arguments +
           QLatin1Char(']');
}

void run(const Call& call)
{
    if (currentSink()) {
        currentSink()(call);
    }
}

QString literal(double number)
{
    return std::isfinite(number) ? QString::number(number, 'g', 6) : QStringLiteral("null");
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
