#include "simulator/wire/ObjectReader.h"

#include <QtTest>

using simulator::ObjectReader;

Q_DECLARE_METATYPE(simulator::ObjectReader::Fault)

class TestObjectReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cuts_data();
    void cuts();
    void refuses_data();
    void refuses();
    void holdsNoObjectBeyondItsLimit();
};

namespace
{

QByteArrayList everythingFrom(ObjectReader& reader, const QByteArray& stream, int step)
{
    QByteArrayList objects;
    for (int place = 0; place < stream.size(); place += step) {
        reader.feed(stream.mid(place, step));
        while (const auto object = reader.next()) {
            objects.append(*object);
        }
    }
    return objects;
}

} // namespace

void TestObjectReader::cuts_data()
{
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<QByteArrayList>("objects");

    QTest::newRow("adjacent") << QByteArray(R"({"a":1}{"b":2})")
                              << QByteArrayList{R"({"a":1})", R"({"b":2})"};
    QTest::newRow("white space around")
        << QByteArray(" \r\n\t{} \n {}\n") << QByteArrayList{"{}", "{}"};
    QTest::newRow("braces in strings")
        << QByteArray(R"({"}{":"]}"}{})") << QByteArrayList{R"({"}{":"]}"})", "{}"};
    QTest::newRow("escapes in strings")
        << QByteArray(R"({"\\":"\"}"}{})") << QByteArrayList{R"({"\\":"\"}"})", "{}"};
    QTest::newRow("nested") << QByteArray(R"({"a":[{"b":[]},{}]})")
                            << QByteArrayList{R"({"a":[{"b":[]},{}]})"};
    QTest::newRow("not whole yet") << QByteArray(R"({}{"a":{})") << QByteArrayList{"{}"};
    QTest::newRow("Cyrillic") << QByteArray(R"({"title":"Зал «Волга»"})")
                              << QByteArrayList{R"({"title":"Зал «Волга»"})"};
}

void TestObjectReader::cuts()
{
    QFETCH(QByteArray, stream);
    QFETCH(QByteArrayList, objects);
    for (int step : {1, 2, 3, stream.size()}) {
        ObjectReader reader;
        QCOMPARE(everythingFrom(reader, stream, step), objects);
        QCOMPARE(reader.fault(), ObjectReader::Fault::None);
    }
}

void TestObjectReader::refuses_data()
{
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<ObjectReader::Fault>("fault");

    QTest::newRow("array") << QByteArray("{}[1]{}") << ObjectReader::Fault::Garbage;
    QTest::newRow("number") << QByteArray("{}1{}") << ObjectReader::Fault::Garbage;
    QTest::newRow("brace too many") << QByteArray("{}}{}") << ObjectReader::Fault::Garbage;
    QTest::newRow("another protocol")
        << QByteArray("{}\nGET / HTTP/1.1\r\n\r\n{}") << ObjectReader::Fault::Garbage;
    QTest::newRow("deep") << "{}{\"a\":" + QByteArray(ObjectReader::deepestNesting, '[')
                          << ObjectReader::Fault::TooDeep;
}

void TestObjectReader::refuses()
{
    QFETCH(QByteArray, stream);
    QFETCH(ObjectReader::Fault, fault);
    for (int step : {1, stream.size()}) {
        ObjectReader reader;
        QCOMPARE(everythingFrom(reader, stream, step), QByteArrayList{"{}"});
        QCOMPARE(reader.fault(), fault);
    }
}

void TestObjectReader::holdsNoObjectBeyondItsLimit()
{
    const QByteArray largest = R"({"a":"12345"})";
    ObjectReader exact(largest.size());
    QCOMPARE(everythingFrom(exact, largest + largest, 4), (QByteArrayList{largest, largest}));

    ObjectReader small(largest.size() - 1);
    QCOMPARE(everythingFrom(small, largest.chopped(1), 4), QByteArrayList());
    QCOMPARE(small.fault(), ObjectReader::Fault::None);
    QCOMPARE(everythingFrom(small, "}", 1), QByteArrayList());
    QCOMPARE(small.fault(), ObjectReader::Fault::TooLarge);
}

QTEST_GUILESS_MAIN(TestObjectReader)
#include "tst_object_reader.moc"
