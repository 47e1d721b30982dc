#include "network/Fields.h"

#include <QTest>

namespace
{

/// The readers that take a value, as flags.
enum Reader { None = 0, Integer = 1, Number = 2, Boolean = 4, Text = 8, Array = 16, Object = 32 };

int readersOf(const QJsonObject& message, const char* name)
{
    return (Fields::integer(message, name) ? Integer : None) |
           (Fields::number(message, name) ? Number : None) |
           (Fields::boolean(message, name) ? Boolean : None) |
           (Fields::text(message, name) ? Text : None) |
           (Fields::array(message, name) ? Array : None) |
           (Fields::object(message, name) ? Object : None);
}

} // namespace

class FieldsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void onlyTheRightTypeIsRead_data();
    void onlyTheRightTypeIsRead();
    void valuesArriveUnchanged();
};

void FieldsTest::onlyTheRightTypeIsRead_data()
{
    QTest::addColumn<QJsonValue>("value");
    QTest::addColumn<int>("readers");
    QTest::newRow("missing") << QJsonValue(QJsonValue::Undefined) << int(None);
    QTest::newRow("null") << QJsonValue() << int(None);
    QTest::newRow("false") << QJsonValue(false) << int(Boolean);
    QTest::newRow("whole double") << QJsonValue(12.0) << int(Integer | Number);
    QTest::newRow("fraction") << QJsonValue(12.5) << int(Number);
    QTest::newRow("largest") << QJsonValue(2147483647.0) << int(Integer | Number);
    QTest::newRow("above the largest") << QJsonValue(2147483648.0) << int(Number);
    QTest::newRow("below the smallest") << QJsonValue(-2147483649.0) << int(Number);
    QTest::newRow("text") << QJsonValue(QStringLiteral("Hall")) << int(Text);
    QTest::newRow("empty text") << QJsonValue(QString(QLatin1String(""))) << int(Text);
    QTest::newRow("array") << QJsonValue(QJsonArray{1}) << int(Array);
    QTest::newRow("object") << QJsonValue(QJsonObject()) << int(Object);
}

void FieldsTest::onlyTheRightTypeIsRead()
{
    QFETCH(QJsonValue, value);
    QFETCH(int, readers);
    QJsonObject message{{QStringLiteral("other"), 1}};
    if (!value.isUndefined()) {
        message.insert(QStringLiteral("field"), value);
    }
    QCOMPARE(readersOf(message, "field"), readers);
}

void FieldsTest::valuesArriveUnchanged()
{
    const QJsonObject message{{QStringLiteral("id"), -7},
                              {QStringLiteral("volume"), 0.25},
                              {QStringLiteral("enabled"), true},
                              {QStringLiteral("title"), QStringLiteral("Зал")}};
    QCOMPARE(Fields::integer(message, "id").value(), -7);
    QCOMPARE(Fields::number(message, "volume").value(), 0.25);
    QCOMPARE(Fields::boolean(message, "enabled").value(), true);
    QCOMPARE(Fields::text(message, "title").value(), QStringLiteral("Зал"));
}

QTEST_GUILESS_MAIN(FieldsTest)
#include "FieldsTest.moc"
