#include "network/JsonStreamSplitter.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>
#include <QStringList>
#include <QTest>

namespace
{

using Found = JsonStreamSplitter::Found;

constexpr int testLimit = 64;

QString wordOf(Found found)
{
    switch (found) {
    case Found::Garbage:
        return QStringLiteral("garbage");
    case Found::TooDeep:
        return QStringLiteral("too deep");
    case Found::TooManyValues:
        return QStringLiteral("too many values");
    case Found::TooLarge:
        return QStringLiteral("too large");
    default:
        return QStringLiteral("?");
    }
}

/// Takes out what is there, objects by their text; what comes behind "too large" is of no use.
void drain(JsonStreamSplitter& splitter, QStringList& found)
{
    for (Found next = splitter.next(); next != Found::Nothing; next = splitter.next()) {
        found.append(next == Found::Object ? QString::fromUtf8(splitter.takeObject())
                                           : wordOf(next));
        if (next == Found::TooLarge) {
            return;
        }
    }
}

/// What the splitter finds when the stream comes in pieces of that size.
QStringList split(const QByteArray& stream, int pieceSize, int limit)
{
    JsonStreamSplitter splitter(limit);
    QStringList found;
    for (int place = 0; place < stream.size(); place += pieceSize) {
        splitter.feed(stream.mid(place, pieceSize));
        drain(splitter, found);
        if (found.endsWith(QStringLiteral("too large"))) {
            break;
        }
    }
    return found;
}

QByteArray nested(int depth)
{
    QByteArray text = R"({"a":)";
    text += QByteArray(depth - 1, '[') + QByteArray(depth - 1, ']');
    return text + '}';
}

} // namespace

class JsonStreamSplitterTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void streamIsSplit_data();
    void streamIsSplit();
    void nestingHasALimit();
    void acceptedNestingIsReadable();
    void numberOfValuesHasALimit();
    void clearForgetsAHalfObject();
    void randomStreamsSplitAlikeHoweverCut();
    void usedUpBytesAreLetGo();
    void objectOutlivesItsPlace();
};

void JsonStreamSplitterTest::streamIsSplit_data()
{
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char* name, const QByteArray& stream, const QStringList& expected) {
        QTest::newRow(name) << stream << expected;
    };
    const QString a = QStringLiteral(R"({"a":1})");
    const QString b = QStringLiteral(R"({"b":[{},{"c":[]}]})");
    const QString garbage = QStringLiteral("garbage");
    row("nothing", "", {});
    row("empty object", "{}", {QStringLiteral("{}")});
    row("half", R"({"a":{})", {});
    row("adjacent", (a + b + a).toUtf8(), {a, b, a});
    row("line ends between", (a + QStringLiteral("\r\n \t\n") + b + QStringLiteral("\n")).toUtf8(),
        {a, b});
    for (const char* const text :
         {R"({"t":"}{"})", R"({"t":"{"})", R"({"t":"]"})", R"({"t":"\"}{"})", R"({"t":"\\"})",
          R"({"t":"\\\"{"})", R"({"\u007b":"\u0022"})", "{\"t\":\"Зал \xF0\x9F\x94\x8A}\"}"}) {
        const QString object = QString::fromUtf8(text);
        QTest::newRow(text) << (object + a).toUtf8() << QStringList{object, a};
    }
    row("array is dropped whole", ("[" + b + "," + a + "]" + a).toUtf8(), {garbage, a});
    row("array with brackets in strings", (R"(["]",{"a":"}"}])" + a).toUtf8(), {garbage, a});
    row("number", ("12 " + a).toUtf8(), {garbage, a});
    row("string that holds an object", (R"("{}")" + a).toUtf8(), {garbage, a});
    row("one run of garbage is one find", ("12 true ]}} x\n[1]" + a).toUtf8(), {garbage, a});
    row("two runs are two", ("x" + a + "y" + a).toUtf8(), {garbage, a, garbage, a});
    row("quote that never closes", ("\"\n" + a).toUtf8(), {garbage, a});
    row("quote among garbage", ("x\" " + a + b).toUtf8(), {garbage, a, b});
    row("quote alone takes one object along", ("\" " + a + b + a).toUtf8(), {garbage, b, a});
    row("array that never closes", ("[" + a + b + a).toUtf8(), {garbage, b, a});
    row("quote in an array that never closes", ("[\"]" + a + b).toUtf8(), {garbage, b});
    row("quote and bracket with line ends", ("[\"\n" + a + "\n" + b).toUtf8(), {garbage, a, b});
    row("byte order mark", "\xEF\xBB\xBF" + a.toUtf8(), {garbage, a});
    row("wrong bracket ends an object", (R"({"a":[}})" + a).toUtf8(),
        {QStringLiteral(R"({"a":[})"), garbage, a});
    row("wrong bracket ends an array", ("[{]" + a).toUtf8(), {garbage, a});
    const QString full = QStringLiteral(R"({"a":")") + QString(testLimit - 8, QLatin1Char('x')) +
                         QStringLiteral("\"}");
    row("as large as it may be", (a + full + a).toUtf8(), {a, full, a});
    const QString longer = QString(full).replace(QStringLiteral("x\""), QStringLiteral("xx\""));
    row("too large", (a + longer + a).toUtf8(), {a, QStringLiteral("too large")});
    row("too large and never closed", R"({"a":")" + QByteArray(testLimit, 'x'),
        {QStringLiteral("too large")});
    row("garbage may be of any size", QByteArray(10 * testLimit, 'x') + a.toUtf8(), {garbage, a});
}

void JsonStreamSplitterTest::streamIsSplit()
{
    QFETCH(QByteArray, stream);
    QFETCH(QStringList, expected);
    // Every size of piece cuts the stream at other places, characters of several bytes included.
    for (int pieceSize = 1; pieceSize <= qMax(1, stream.size()); ++pieceSize) {
        QCOMPARE(split(stream, pieceSize, testLimit), expected);
    }
}

void JsonStreamSplitterTest::nestingHasALimit()
{
    constexpr int limit = JsonStreamSplitter::maximumDepth;
    const QByteArray accepted = nested(limit);
    const QByteArray stream = nested(limit + 1) + accepted + nested(100 * limit) + "{}";
    const QStringList expected{QStringLiteral("too deep"), QString::fromLatin1(accepted),
                               QStringLiteral("too deep"), QStringLiteral("{}")};
    for (const int pieceSize : {1, 1000, stream.size()}) {
        QCOMPARE(split(stream, pieceSize, JsonStreamSplitter::defaultMaximumSize), expected);
    }
}

void JsonStreamSplitterTest::acceptedNestingIsReadable()
{
    QVERIFY(QJsonDocument::fromJson(nested(JsonStreamSplitter::maximumDepth)).isObject());
}

void JsonStreamSplitterTest::numberOfValuesHasALimit()
{
    constexpr int limit = JsonStreamSplitter::maximumValues;
    const auto stream = [](const QByteArray& element, int count) {
        return R"({"t":"a,[","u":[)" + (element + ",").repeated(count - 1) + element + "]}";
    };
    // The element, and how many values each stands for; two more are around them.
    const QVector<QPair<QByteArray, int>> elements{
        {"1", 1}, {"[]", 1}, {R"({"a":[0,"\\",[]]})", 5}};
    for (const auto& [element, values] : elements) {
        for (const bool fits : {true, false}) {
            JsonStreamSplitter splitter;
            splitter.feed(stream(element, (limit - 2) / values + (fits ? 0 : 1)));
            QVERIFY(splitter.next() == (fits ? Found::Object : Found::TooManyValues));
            splitter.feed("{}");
            QVERIFY(splitter.next() == Found::Object);
            QCOMPARE(splitter.takeObject().size(), 2);
        }
    }
}

void JsonStreamSplitterTest::clearForgetsAHalfObject()
{
    for (const char* const half : {R"({"a":[)", R"({"a":"\)", "[1,", "\"x", "{}"}) {
        JsonStreamSplitter splitter;
        splitter.feed(half);
        QStringList found;
        drain(splitter, found);
        splitter.clear();
        found.clear();
        splitter.feed(R"({"b":2})");
        drain(splitter, found);
        QCOMPARE(found, QStringList{QStringLiteral(R"({"b":2})")});
    }
}

void JsonStreamSplitterTest::randomStreamsSplitAlikeHoweverCut()
{
    const QByteArray alphabet = "{}[]\"\\ :,a1\n\x01\xD0\x97";
    const QByteArrayList words{R"({"a":1})", R"({"t":"}{"})", "[{}]", R"("{")"};
    QRandomGenerator random(20261118);
    int objects = 0;
    for (int round = 0; round < 3000; ++round) {
        QByteArray stream;
        for (int part = random.bounded(1, 30); part > 0; --part) {
            if (random.bounded(4) == 0) {
                stream += words.at(random.bounded(words.size()));
            } else {
                stream += alphabet.at(random.bounded(alphabet.size()));
            }
        }
        const QStringList whole = split(stream, stream.size(), testLimit);
        objects += whole.filter(QStringLiteral("{")).size();
        const int pieceSize = random.bounded(1, stream.size() + 1);
        QVERIFY2(split(stream, pieceSize, testLimit) == whole, stream.toHex().constData());
        QVERIFY2(split(stream, 1, testLimit) == whole, stream.toHex().constData());
    }
    QVERIFY(objects > 1000);
}

void JsonStreamSplitterTest::usedUpBytesAreLetGo()
{
    // The limit is of one object: a stream of a thousand times as much goes through.
    const QByteArray object = R"({"a":")" + QByteArray(testLimit - 8, 'x') + "\"}";
    JsonStreamSplitter splitter(testLimit);
    for (int count = 0; count < 1000; ++count) {
        splitter.feed(object.left(10));
        QVERIFY(splitter.next() == Found::Nothing);
        splitter.feed(object.mid(10) + "  ");
        QVERIFY(splitter.next() == Found::Object);
        QCOMPARE(splitter.takeObject(), object);
    }
}

void JsonStreamSplitterTest::objectOutlivesItsPlace()
{
    const QByteArray large = R"({"a":")" + QByteArray(100 * 1000, 'x') + "\"}";
    for (const QByteArray& first : {QByteArray(R"({"b":1})"), large}) {
        JsonStreamSplitter splitter;
        splitter.feed(first + R"({"c":2}{"d":)");
        QVERIFY(splitter.next() == Found::Object);
        const QByteArray object = splitter.takeObject();
        QVERIFY(splitter.next() == Found::Object);
        splitter.feed(QByteArray(1000, ' ') + "3}");
        QVERIFY(splitter.next() == Found::Object);
        QCOMPARE(splitter.takeObject(), R"({"d":)" + QByteArray(1000, ' ') + "3}");
        splitter.clear();
        QCOMPARE(object, first);
    }
}

QTEST_GUILESS_MAIN(JsonStreamSplitterTest)
#include "JsonStreamSplitterTest.moc"
