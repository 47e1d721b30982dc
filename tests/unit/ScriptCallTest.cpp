#include "page/ScriptCall.h"
#include "support/PageRecorder.h"

#include <QTest>

#ifdef QT_QML_LIB
#include <QJSEngine>
#else
#include <QJsonArray>
#include <QJsonDocument>
#endif

namespace
{

/// What a script engine makes of the literal.
QString evaluated(const QString& literal)
{
#ifdef QT_QML_LIB
    return QJSEngine().evaluate(literal).toString();
#else
    const QByteArray array = '[' + literal.toUtf8() + ']';
    return QJsonDocument::fromJson(array).array().at(0).toString();
#endif
}

} // namespace

class ScriptCallTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void textEvaluatesBackToItself_data();
    void textEvaluatesBackToItself();
    void numberLiterals_data();
    void numberLiterals();
    void callPutsArgumentsInOrder();
};

void ScriptCallTest::textEvaluatesBackToItself_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("mark-up") << QStringLiteral("\"><img src=x onerror=wrapper.global_exit()>");
    QTest::newRow("end of the call") << QStringLiteral("\");wrapper.global_exit();//");
    QTest::newRow("apostrophe") << QStringLiteral("');alert('");
    QTest::newRow("backslash at the end") << QStringLiteral("C:\\");
    QTest::newRow("escape that is text") << QStringLiteral("\\n\\u0022");
    QTest::newRow("line ends") << QStringLiteral("a\nb\rc\r\nd");
    QTest::newRow("script line ends") << QStringLiteral("a\u2028b\u2029c");
    QTest::newRow("end of the script") << QStringLiteral("</script><!-- </SCRIPT");
    QTest::newRow("control characters") << QStringLiteral("\t\b\f\v\x01\x1f");
    QTest::newRow("nul inside") << QString::fromLatin1("a\0b", 3);
    QTest::newRow("beyond the basic plane") << QString::fromUtf8("\xF0\x9F\x94\x8A");
}

void ScriptCallTest::textEvaluatesBackToItself()
{
    QFETCH(QString, text);
    const QString literal = Page::literal(text);
    QCOMPARE(evaluated(literal), text);
    QVERIFY(!literal.contains(QLatin1String("</")));
    for (const QChar character : literal) {
        QVERIFY(character.unicode() >= 0x20);
        QVERIFY(character.unicode() != 0x2028 && character.unicode() != 0x2029);
    }
}

void ScriptCallTest::numberLiterals_data()
{
    QTest::addColumn<QString>("literal");
    QTest::addColumn<QString>("expected");
    QTest::newRow("whole") << Page::literal(-12) << QStringLiteral("-12");
    QTest::newRow("largest") << Page::literal(9223372036854775807LL)
                             << QStringLiteral("9223372036854775807");
    QTest::newRow("byte is no letter") << Page::literal(quint8{65}) << QStringLiteral("65");
    QTest::newRow("true") << Page::literal(true) << QStringLiteral("1");
    QTest::newRow("false") << Page::literal(false) << QStringLiteral("0");
    QTest::newRow("whole double") << Page::literal(50.0) << QStringLiteral("50");
    QTest::newRow("six digits") << Page::literal(1.0 / 3) << QStringLiteral("0.333333");
    QTest::newRow("large double") << Page::literal(1.5e9) << QStringLiteral("1.5e+09");
    QTest::newRow("bytes are utf-8") << Page::literal("Зал") << QStringLiteral("\"Зал\"");
}

void ScriptCallTest::numberLiterals()
{
    QFETCH(QString, literal);
    QFETCH(QString, expected);
    QCOMPARE(literal, expected);
}

void ScriptCallTest::callPutsArgumentsInOrder()
{
    PageRecorder page;
    Page::call("modalLoadingHide");
    Page::call("wrapperInput_device_setName", 12, QStringLiteral("Hall"), true, 0.5);
    const QStringList expected{QStringLiteral("modalLoadingHide();"),
                               QStringLiteral("wrapperInput_device_setName(12,\"Hall\",1,0.5);")};
    QCOMPARE(page.calls(), expected);
}

QTEST_GUILESS_MAIN(ScriptCallTest)
#include "ScriptCallTest.moc"
