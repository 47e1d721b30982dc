#include "network/JsonStreamSplitter.h"

#include <array>

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
    for (const char byte : {'"', '{', '}', '[', ']'}) {
        result[static_cast<unsigned char>(byte)] = true;
    }
    return result;
}

constexpr std::array<bool, 256> isStructural = structuralBytes();

} // namespace

JsonStreamSplitter::JsonStreamSplitter(int maximumObjectSize) : maximumSize(maximumObjectSize)
{
}

void JsonStreamSplitter::clear()
{
    buffer.clear();
    start = scan = objectStart = 0;
    enter(Place::Between);
}

void JsonStreamSplitter::feed(const QByteArray& bytes)
{
    // What has been used up goes away in large pieces, so that no byte is moved often.
    if (start == buffer.size()) {
        buffer.resize(0);
        start = scan = 0;
    } else if (start > buffer.size() / 2) {
        buffer.remove(0, start);
        scan -= start;
        start = 0;
    }
    buffer.append(bytes);
}

QByteArray JsonStreamSplitter::object() const
{
    return QByteArray::fromRawData(buffer.constData() + objectStart, start - objectStart);
}

JsonStreamSplitter::Found JsonStreamSplitter::next()
{
    while (scan < buffer.size()) {
        if (place == Place::Between) {
            const char byte = buffer.at(scan++);
            start = scan - 1;
            const Found found = leaveBetween(byte);
            if (found != Found::Nothing) {
                return found;
            }
            continue;
        }
        const bool closed = scanNested();
        if (place != Place::InObject) {
            start = scan; // garbage isn't kept, so it may be of any size
            continue;
        }
        if (scan - start > maximumSize) {
            return Found::TooLarge;
        }
        if (closed) {
            const bool dropped = tooDeep;
            objectStart = start;
            start = scan;
            enter(Place::Between);
            return dropped ? Found::TooDeep : Found::Object;
        }
    }
    if (place == Place::Between) {
        start = scan;
    }
    return Found::Nothing;
}

JsonStreamSplitter::Found JsonStreamSplitter::leaveBetween(char byte)
{
    if (isWhiteSpace(byte)) {
        return Found::Nothing;
    }
    if (byte == '{') {
        enter(Place::InObject);
        takeBracket(byte);
        return Found::Nothing;
    }
    enter(Place::InGarbage);
    scan = start; // the first byte of garbage may be a bracket or a quote
    return Found::Garbage;
}

/// Goes on inside an object or garbage. True if the object has just ended.
bool JsonStreamSplitter::scanNested()
{
    const char* const data = buffer.constData();
    const int size = buffer.size();
    while (scan < size) {
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
        const char byte = data[scan];
        const bool atTopLevel = expected.empty();
        if (place == Place::InGarbage && atTopLevel && byte == '{') {
            enter(Place::Between);
            return false;
        }
        ++scan;
        if (byte == '"') {
            inString = true;
            continue;
        }
        takeBracket(byte);
        if (place == Place::InObject && expected.empty()) {
            return true;
        }
    }
    return false;
}

void JsonStreamSplitter::skipString()
{
    const char* const data = buffer.constData();
    const int size = buffer.size();
    // A string between objects is no part of any, so a quote that never closes must not swallow
    // all that follows: a raw control character, which no string may hold, ends it too.
    const bool endsAtControl = place == Place::InGarbage && expected.empty();
    if (escaped && scan < size) {
        ++scan;
        escaped = false;
    }
    for (; scan < size; ++scan) {
        const char byte = data[scan];
        if (byte == '"' || (endsAtControl && static_cast<unsigned char>(byte) < 0x20)) {
            ++scan;
            inString = false;
            return;
        }
        if (byte == '\\') {
            if (scan + 1 == size) {
                ++scan;
                escaped = true;
                return;
            }
            ++scan;
        }
    }
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
    expected.clear();
    deeperLevels = 0;
    tooDeep = false;
}
