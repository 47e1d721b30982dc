#pragma once

#include <QByteArray>
#include <vector>

struct JsonBlock;

/// Cuts a stream of bytes into whole top-level JSON objects.
///
/// Strings, escapes and nesting are tracked, each byte is looked at once, and a call may bring any
/// number of bytes. White space between objects is skipped; a top-level array or other value and
/// garbage are dropped whole, up to the next object that starts at the top level, and reported
/// once for each run of them. An object that closes a bracket with the wrong kind is given out as
/// far as it got, so that its reader drops it and the next one isn't swallowed.
class JsonStreamSplitter
{
public:
    /// The protocol's limit of one object, in bytes.
    static constexpr int defaultMaximumSize = 256 * 1024 * 1024;
    /// The JSON reader behind accepts 1024 levels of nesting; what is deeper is dropped here.
    static constexpr int maximumDepth = 1000;

    /// What `next` has found.
    enum class Found {
        Nothing,  ///< more bytes are needed
        Object,   ///< `object()` holds its text
        Garbage,  ///< something that is no object begins and is being dropped
        TooDeep,  ///< an object was dropped for its nesting
        TooLarge, ///< an object passes the maximum size: the stream is of no more use
    };

    explicit JsonStreamSplitter(int maximumObjectSize = defaultMaximumSize);

    /// Takes bytes in. They aren't looked at before `next` is called.
    void feed(const QByteArray& bytes);
    /// Goes on until something has been found or the bytes are used up.
    Found next();
    /// The text of the object last found, without a copy; valid until the next call of `feed`,
    /// `next` or `clear`.
    QByteArray object() const;
    /// Forgets all bytes and the place in the stream.
    void clear();

private:
    enum class Place { Between, InGarbage, InObject };

    Found leaveBetween(char byte);
    bool scanNested();
    bool takeBlock(const JsonBlock& block);
    void skipString();
    void takeBracket(char byte);
    void enter(Place next);

    int maximumSize;
    QByteArray buffer;
    int start = 0; ///< first byte that is still needed
    int scan = 0;  ///< first byte not yet looked at
    int objectStart = 0;
    Place place = Place::Between;
    bool inString = false;
    bool escaped = false;
    std::vector<char> expected; ///< the closing bracket of each open level
    int deeperLevels = 0;       ///< open levels beyond the maximum
    bool tooDeep = false;
};
