#pragma once

#include <QByteArray>
#include <vector>

struct JsonBlock;

/// Cuts a stream of bytes into whole top-level JSON objects.
///
/// Strings, escapes and nesting are tracked, each byte is looked at once, and a call may bring any
/// number of bytes. White space between objects is skipped; a top-level array or other value and
/// garbage are dropped whole, up to the next object that starts at the top level, and reported
/// once for each run of them. What stands in an array no server could have meant, such as two
/// objects without a comma, ends the array, so that a stray quote or bracket swallows no more than
/// the object behind it. An object that closes a bracket with the wrong kind is given out as far as
/// it got, so that its reader drops it and the next one isn't swallowed.
class JsonStreamSplitter
{
public:
    /// The protocol's limit of one object, in bytes.
    static constexpr int defaultMaximumSize = 256 * 1024 * 1024;
    /// The JSON reader behind accepts 1024 levels of nesting; what is deeper is dropped here.
    static constexpr int maximumDepth = 1000;
    /// What an object may hold of values, those in its arrays and objects counted in; read, each
    /// takes many times the bytes of its text.
    static constexpr int maximumValues = 10 * 1000 * 1000;

    /// What `next` has found.
    enum class Found {
        Nothing,       ///< more bytes are needed
        Object,        ///< `takeObject()` gives its text
        Garbage,       ///< something that is no object begins and is being dropped
        TooDeep,       ///< an object was dropped for its nesting
        TooManyValues, ///< an object was dropped for the number of its values
        TooLarge,      ///< an object passes the maximum size: the stream is of no more use
    };

    explicit JsonStreamSplitter(int maximumObjectSize = defaultMaximumSize);

    /// Takes bytes in. They aren't looked at before `next` is called.
    void feed(const QByteArray& bytes);
    /// Goes on until something has been found or the bytes are used up.
    Found next();
    /// Hands over the text of the object just found, once: it is the caller's, whatever becomes of
    /// the splitter. A large one isn't copied.
    QByteArray takeObject();
    /// Forgets all bytes and the place in the stream.
    void clear();

private:
    enum class Place { Between, InGarbage, InObject };

    Found leaveBetween(char byte);
    void skipGarbage();
    bool takeGarbage(char byte);
    bool scanObject();
    bool takeBlock(const JsonBlock& block);
    void skipString();
    void takeBracket(char byte);
    void countContainer(const char* bracket);
    Found judge() const;
    void enter(Place next);
    QByteArray cutOut();

    int maximumSize;
    QByteArray buffer;
    int start = 0; ///< first byte that is still needed
    int scan = 0;  ///< first byte not yet looked at
    QByteArray found;
    Place place = Place::Between;
    bool inString = false;
    bool escaped = false;
    char lastGarbage = 0; ///< the byte before, white space and what stands in strings left out
    std::vector<char> expected; ///< the closing bracket of each open level
    int deeperLevels = 0;       ///< open levels beyond the maximum
    int values = 0;             ///< of the object so far, a name and its value as one
    bool tooDeep = false;
};
