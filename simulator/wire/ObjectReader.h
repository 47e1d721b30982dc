#pragma once

#include <QByteArray>

#include <optional>

namespace simulator
{

/// Cuts a byte stream into JSON objects that stand one behind the other with any white space
/// between them. Each byte is looked at once, however the stream is cut.
class ObjectReader
{
public:
    /// Why a stream can't be read any further.
    enum class Fault {
        None,
        Garbage, ///< something else than an object at the top level
        TooLarge,
        TooDeep,
    };

    /// Bytes that one object may have.
    static constexpr int largestObject = 256 * 1024 * 1024;
    /// Braces and brackets that may be open at a time.
    static constexpr int deepestNesting = 256;

    explicit ObjectReader(int limit = largestObject);

    /// Takes the next bytes of the stream. After a fault they are dropped.
    void feed(const QByteArray& bytes);
    /// The text of the next whole object, nothing while none is there. The text is balanced, but
    /// not yet known to be valid JSON.
    std::optional<QByteArray> next();
    /// Set by next() when it met what it can't read; it stays.
    Fault fault() const { return failure; }

private:
    bool skipToObject();
    bool scanObject();
    void scanByte(char byte);
    void skipInString();
    void compact();
    void fail(Fault reason);

    QByteArray buffer;
    int largest;
    int start = 0; ///< first byte of the current object
    int place = 0; ///< first byte not looked at
    int depth = 0;
    bool inString = false;
    bool escaped = false;
    Fault failure = Fault::None;
};

} // namespace simulator
