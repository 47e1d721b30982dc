#include "network/JsonStreamSplitter.h"

#include "network/JsonBlock.h"

#include <QtAlgorithms>

#include <array>
#include <utility>

namespace
{

bool isWhiteSpace(char byte)
{
    return byte == ' ' || byte == '\n' || byte == '\r' || byte == '\t';
}

/// The bytes that mean something outside of strings.
constexpr std::array<bool, 256> structuralBytes()
{
    std::array<bool, 256> result{};
    for (const char byte : {'"', '{', '}', '[', ']', ','}) {
        result[static_cast<unsigned char>(byte)] = true;
    }
    return result;
}

constexpr std::array<bool, 256> isStructural = structuralBytes();

/// Whether a value in an array or object may end with that byte outside of strings, numbers and
/// words left out.
bool endsValue(char byte)
{
    return byte == '"' || byte == ']' || byte == '}';
}

/// Whether that byte can't stand behind a value in an array or object.
bool startsWhatMayNotFollow(char byte)
{
    return !isWhiteSpace(byte) && byte != ',' && byte != ':' && byte != ']' && byte != '}';
}

} // namespace

JsonStreamSplitter::JsonStreamSplitter(int maximumObjectSize) : maximumSize(maximumObjectSize)
{
}

void JsonStreamSplitter::clear()
{
    buffer.clear();
    found.clear();
    start = scan = 0;
    enter(Place::Between);
}

void JsonStreamSplitter::feed(const QByteArray& bytes)
{
    // What is left is the part of one object that came with the last bytes: seldom much to move.
    if (start > 0) {
        buffer.remove(0, start);
        scan -= start;
        start = 0;
    }
    buffer.append(bytes);
}

QByteArray JsonStreamSplitter::takeObject()
{
    return std::exchange(found, {});
}

/// The bytes from `start` to `scan`. A large object takes the buffer with it and leaves the rest.
QByteArray JsonStreamSplitter::cutOut()
{
    const int size = scan - start;
    if (start > 0 || size < buffer.size() - size) {
        const int begin = std::exchange(start, scan);
        return buffer.mid(begin, size);
    }
    QByteArray rest = buffer.mid(size);
    buffer.truncate(size);
    start = scan = 0;
    return std::exchange(buffer, std::move(rest));
}

JsonStreamSplitter::Found JsonStreamSplitter::next()
{
    while (scan < buffer.size()) {
        if (place == Place::Between) {
            const Found what = leaveBetween(buffer.at(scan));
            if (what != Found::Nothing) {
                return what;
            }
            continue;
        }
        if (place == Place::InGarbage) {
            skipGarbage();
            start = scan; // garbage isn't kept, so it may be of any size
            continue;
        }
        const bool closed = scanObject();
        if (scan - start > maximumSize) {
            return Found::TooLarge;
        }
        if (closed) {
            const Found what = judge();
            enter(Place::Between);
            QByteArray text = cutOut();
            found = what == Found::Object ? std::move(text) : QByteArray();
            return what;
        }
    }
    return Found::Nothing;
}

/// What becomes of the object that has just ended.
JsonStreamSplitter::Found JsonStreamSplitter::judge() const
{
    if (tooDeep) {
        return Found::TooDeep;
    }
    return values > maximumValues ? Found::TooManyValues : Found::Object;
}

JsonStreamSplitter::Found JsonStreamSplitter::leaveBetween(char byte)
{
    start = scan;
    if (isWhiteSpace(byte)) {
        start = ++scan;
    } else if (byte == '{') {
        ++scan;
        enter(Place::InObject);
        countContainer(&byte);
        takeBracket(byte);
    } else {
        enter(Place::InGarbage);
        return Found::Garbage;
    }
    return Found::Nothing;
}

/// Goes on to the end of the garbage, which is the next object at the top level.
void JsonStreamSplitter::skipGarbage()
{
    while (scan < buffer.size()) {
        if (inString) {
            skipString();
            continue;
        }
        const char byte = buffer.at(scan);
        if (takeGarbage(byte)) {
            enter(Place::Between);
            return;
        }
        ++scan;
        if (!isWhiteSpace(byte)) {
            lastGarbage = byte;
        }
    }
}

/// Looks at a byte of garbage outside of its strings. True if an object begins with it.
bool JsonStreamSplitter::takeGarbage(char byte)
{
    if (!expected.empty() && endsValue(lastGarbage) && startsWhatMayNotFollow(byte)) {
        expected.clear(); // no array goes on like that: it never was one
        deeperLevels = 0;
    }
    const bool atTopLevel = expected.empty();
    if (atTopLevel && byte == '{') {
        return true;
    }
    if (byte == '"') {
        // A quote in the middle of garbage is no more than that.
        inString = !atTopLevel || lastGarbage == 0;
    } else if (byte == '[' || byte == ']' || byte == '{' || byte == '}') {
        takeBracket(byte);
    }
    return false;
}

/// Goes on inside an object. True if it has just ended.
bool JsonStreamSplitter::scanObject()
{
    const char* const data = buffer.constData();
    const int size = buffer.size();
    while (scan < size) {
        if (!escaped && size - scan >= JsonBlock::size) {
            const JsonBlock block(data + scan);
            if (block.backslashes == 0) {
                if (takeBlock(block)) {
                    return true;
                }
                continue;
            }
        }
        if (inString) {
            skipString();
            continue;
        }
        while (scan < size && !isStructural[static_cast<unsigned char>(data[scan])]) {
            ++scan;
        }
        if (scan == size) {
            return false;
        }
        const char byte = data[scan++];
        if (byte == '"') {
            inString = true;
            continue;
        }
        if (byte == ',') {
            ++values;
            continue;
        }
        countContainer(data + scan - 1);
        takeBracket(byte);
        if (expected.empty()) {
            return true;
        }
    }
    return false;
}

/// With one for each comma, an array or object has as many values as commas and one more, unless
/// it is empty.
void JsonStreamSplitter::countContainer(const char* bracket)
{
    const auto opens = [](char byte) { return byte == '[' || byte == '{'; };
    if (opens(*bracket)) {
        ++values;
    } else if (opens(bracket[-1])) {
        --values;
    }
}

/// Goes over a block without escapes. True if the object has just ended in it.
bool JsonStreamSplitter::takeBlock(const JsonBlock& block)
{
    const char* const data = buffer.constData() + scan;
    const quint64 strings = block.strings(inString);
    for (quint64 left = block.brackets & ~strings; left != 0; left &= left - 1) {
        const int at = static_cast<int>(qCountTrailingZeroBits(left));
        countContainer(data + at);
        takeBracket(data[at]);
        if (expected.empty()) {
            const quint64 upToEnd = (quint64(2) << at) - 1;
            values += static_cast<int>(qPopulationCount(block.commas & ~strings & upToEnd));
            scan += at + 1;
            return true;
        }
    }
    values += static_cast<int>(qPopulationCount(block.commas & ~strings));
    inString = strings >> (JsonBlock::size - 1) != 0;
    scan += JsonBlock::size;
    return false;
}

void JsonStreamSplitter::skipString()
{
    const char* const data = buffer.constData();
    const int size = buffer.size();
    // Garbage is no part of any object, so a quote there that never closes must not swallow all
    // that follows: a raw control character, which no string may hold, ends it too.
    const bool endsAtControl = place == Place::InGarbage;
    int at = scan; // a local: the member would be stored again for each byte
    if (escaped && at < size) {
        ++at;
        escaped = false;
    }
    while (at < size && inString) {
        const char byte = data[at++];
        if (byte == '"' || (endsAtControl && static_cast<unsigned char>(byte) < 0x20)) {
            inString = false;
        } else if (byte == '\\') {
            escaped = at == size;
            at += escaped ? 0 : 1;
        }
    }
    scan = at;
}

void JsonStreamSplitter::takeBracket(char byte)
{
    if (byte == '{' || byte == '[') {
        if (static_cast<int>(expected.size()) < maximumDepth) {
            expected.push_back(byte == '{' ? '}' : ']');
        } else {
            ++deeperLevels;
            tooDeep = true;
        }
        return;
    }
    if (deeperLevels > 0) {
        --deeperLevels;
    } else if (!expected.empty() && expected.back() == byte) {
        expected.pop_back();
    } else {
        expected.clear(); // closed by the wrong kind: malformed, and over
    }
}

void JsonStreamSplitter::enter(Place next)
{
    place = next;
    inString = false;
    escaped = false;
    lastGarbage = 0;
    expected.clear();
    deeperLevels = 0;
    tooDeep = false;
    values = 0;
}
