#include "network/LongTexts.h"

#include <cstring>
#include <optional>

namespace
{

/// The closing quote of the text whose first byte is at `at`; the end where there is none.
int closingQuote(const QByteArray& json, int at)
{
    while (at < json.size()) {
        const void* const found = std::memchr(json.constData() + at, '"', size_t(json.size() - at));
        if (!found) {
            break;
        }
        const int quote = static_cast<int>(static_cast<const char*>(found) - json.constData());
        int slashes = 0;
        while (quote - slashes > at && json.at(quote - slashes - 1) == '\\') {
            ++slashes;
        }
        if (slashes % 2 == 0) {
            return quote;
        }
        at = quote + 1;
    }
    return json.size();
}

/// The code unit of "\u0416", whose four digits begin at `at`.
std::optional<ushort> codeUnit(const QByteArray& text, int at)
{
    bool isNumber = false;
    const ushort unit = text.mid(at, 4).toUShort(&isNumber, 16);
    return isNumber && at + 4 <= text.size() ? std::optional<ushort>(unit) : std::nullopt;
}

/// Reads "\u…" behind the backslash at `at`, with the second half of a pair, and steps behind it.
bool appendCodeUnits(const QByteArray& text, int& at, QByteArray& result)
{
    const std::optional<ushort> first = codeUnit(text, at + 2);
    if (!first) {
        return false;
    }
    QString character(QChar{*first});
    at += 6;
    const bool isPair = character.at(0).isHighSurrogate() && text.mid(at, 2) == "\\u";
    const std::optional<ushort> second = isPair ? codeUnit(text, at + 2) : std::nullopt;
    if (second && QChar(*second).isLowSurrogate()) {
        character.append(QChar{*second});
        at += 6;
    }
    result += character.toUtf8();
    return true;
}

bool appendEscaped(const QByteArray& text, int& at, QByteArray& result)
{
    constexpr char letters[] = "\"\\/bfnrt";
    constexpr char meanings[] = "\"\\/\b\f\n\r\t";
    const char letter = at + 1 < text.size() ? text.at(at + 1) : '\0';
    if (letter == 'u') {
        return appendCodeUnits(text, at, result);
    }
    const char* const known = letter ? std::strchr(letters, letter) : nullptr;
    if (known) {
        result += meanings[known - letters];
        at += 2;
    }
    return known;
}

std::optional<QByteArray> unescaped(const QByteArray& text)
{
    int at = text.indexOf('\\');
    if (at < 0) {
        return text;
    }
    QByteArray result;
    result.reserve(text.size());
    for (int kept = 0; kept < text.size(); at = text.indexOf('\\', kept)) {
        const int end = at < 0 ? text.size() : at;
        result.append(text.constData() + kept, end - kept);
        kept = end;
        if (at >= 0 && !appendEscaped(text, kept, result)) {
            return std::nullopt;
        }
    }
    return result;
}

} // namespace

LongTexts takeLongTexts(QByteArray& json)
{
    LongTexts texts;
    QByteArray rest;
    QByteArray name; // of the value that follows
    int kept = 0;
    int depth = 0;
    for (int at = 0; at < json.size(); ++at) {
        const char byte = json.at(at);
        depth += byte == '{' || byte == '[' ? 1 : 0;
        depth -= byte == '}' || byte == ']' ? 1 : 0;
        if (byte != '"') {
            continue;
        }
        const int end = closingQuote(json, at + 1);
        const int length = end - at - 1;
        if (depth == 1 && length <= longTextSize) {
            name = json.mid(at + 1, length);
        } else if (depth == 1 && end < json.size()) {
            if (const auto text = unescaped(json.mid(at + 1, length))) {
                texts[QString::fromUtf8(name)] = *text;
                rest += json.mid(kept, at + 1 - kept);
                kept = end;
            }
        }
        at = end;
    }
    if (!texts.empty()) {
        json = rest + json.mid(kept);
    }
    return texts;
}
