#include "simulator/wire/ObjectReader.h"

namespace simulator
{

ObjectReader::ObjectReader(int limit) : largest(limit)
{
}

void ObjectReader::feed(const QByteArray& bytes)
{
    if (failure == Fault::None) {
        compact();
        buffer.append(bytes);
    }
}

std::optional<QByteArray> ObjectReader::next()
{
    if (failure != Fault::None || (depth == 0 && !skipToObject()) || !scanObject()) {
        return std::nullopt;
    }
    const QByteArray text = buffer.mid(start, place - start);
    start = place;
    return text;
}

/// Steps over the white space in front of an object. False when no object begins yet.
bool ObjectReader::skipToObject()
{
    const int end = buffer.size();
    while (place < end) {
        const char byte = buffer.at(place);
        if (byte == '{') {
            start = place;
            return true;
        }
        if (byte != ' ' && byte != '\n' && byte != '\r' && byte != '\t') {
            fail(Fault::Garbage);
            return false;
        }
        ++place;
    }
    start = place;
    return false;
}

/// Goes on in the object at `start`. True when `place` stands behind its last brace.
bool ObjectReader::scanObject()
{
    const int end = buffer.size();
    while (place < end) {
        if (inString) {
            skipInString();
            continue;
        }
        scanByte(buffer.at(place));
        ++place;
        if (depth == 0) {
            break;
        }
        if (depth > deepestNesting) {
            fail(Fault::TooDeep);
            return false;
        }
    }
    if (place - start > largest) {
        fail(Fault::TooLarge);
        return false;
    }
    return depth == 0;
}

void ObjectReader::scanByte(char byte)
{
    switch (byte) {
    case '"':
        inString = true;
        break;
    case '{':
    case '[':
        ++depth;
        break;
    case '}':
    case ']':
        --depth;
        break;
    default:
        break;
    }
}

/// Runs to the end of the string or of what has arrived of it.
void ObjectReader::skipInString()
{
    const char* bytes = buffer.constData();
    const int end = buffer.size();
    while (place < end) {
        const char byte = bytes[place];
        ++place;
        if (escaped) {
            escaped = false;
        } else if (byte == '\\') {
            escaped = true;
        } else if (byte == '"') {
            inString = false;
            return;
        }
    }
}

/// Drops what has been given out, once a read and not once an object.
void ObjectReader::compact()
{
    if (start > 0) {
        buffer.remove(0, start);
        place -= start;
        start = 0;
    }
}

void ObjectReader::fail(Fault reason)
{
    failure = reason;
    buffer.clear();
    start = 0;
    place = 0;
}

} // namespace simulator
