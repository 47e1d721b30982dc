#include "page/SourceScan.h"
#include "view/WebView.h"

#include <QMap>
#include <QMetaMethod>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

/// Holds both sides of the bridge to each other: what the pages call is a slot with that many
/// arguments, each slot is called by some page, and what native code calls is defined by a page.
using SourceScan::Call;
using SourceScan::slotCalls;

class BridgeContractTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void findsCallsWithTheirArguments();
    void pagesCallSlotsThatExist();
    void eachSlotIsCalledByAPage();
    void nativeCodeCallsFunctionsThatPagesDefine();

private:
    QMap<QString, QString> pages;   ///< path below the web folder, text
    QMap<QString, QString> sources; ///< path below the source folder, text
    QMap<QString, QString> forwarders;
    QSet<QString> slotForms; ///< name/number of arguments
};

namespace
{

/// Slots that no page calls, and why.
const QMap<QString, QString> slotsWithoutPage = {
    {"loaded", "connected to the view"},
    {"runJavascript", "the way into the page"},
    {"stopTimers", "called at the end of a session"},
    {"login_serverFound", "connected to the discovery socket"},
    {"login_stopFindingServer", "called when a server was found"},
    {"login_loginSuccess", "called by the reply to the login"},
    {"login_loginError", "called by the reply to the login"},
    {"loadLoginPage", "called at the end of a session"},
    {"resetBlockTimer", "called by the event filter"},
    {"modal_blockShow", "connected to the lock's timer"},
    {"admin_enableTask", "the form sends the switch with all else; for whoever wants it alone"},
    {"menu_subZoneLoad", "called by menu_zoneLoadList, for the zones below one as for all"},
    {"zone_includeDevice", "the save of a unit sends it with all else; for whoever wants it alone"},
    {"zone_excludeDevice", "the save of a unit sends it with all else; for whoever wants it alone"},
    {"admin_getLineControlForDevice", "lines come by the unit's states; for whoever asks again"},
};

bool isDefined(const QString& name, const QMap<QString, QString>& pages)
{
    const QRegularExpression definition(
        QStringLiteral("function\\s+%1\\s*\\(|\\b%1\\s*[:=]\\s*(?:function|\\(|\\w+)|notice\\(\\s*"
                       "[\"']%1[\"']")
            .arg(name));
    return std::any_of(pages.begin(), pages.end(),
                       [&](const QString& text) { return definition.match(text).hasMatch(); });
}

} // namespace

void BridgeContractTest::initTestCase()
{
    pages = SourceScan::readTree(QStringLiteral(WEB_FOLDER), {"*.js", "*.html"});
    sources = SourceScan::readTree(QStringLiteral(SOURCE_FOLDER), {"*.cpp", "*.h"});
    const QMetaObject& meta = WebView::staticMetaObject;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        const QMetaMethod method = meta.method(index);
        slotForms.insert(QStringLiteral("%1/%2")
                             .arg(QString::fromLatin1(method.name()))
                             .arg(method.parameterCount()));
    }
    forwarders = SourceScan::readForwarders(pages.value("javascripts/wrapper.js"));
    QVERIFY(forwarders.size() > 10);
    QVERIFY(pages.size() > 5);
    QVERIFY(sources.size() > 20);
    QVERIFY(slotForms.size() > 10);
}

void BridgeContractTest::findsCallsWithTheirArguments()
{
    const QVector<Call> calls = slotCalls(
        "wrapper.one(); if (a) { wrapper . x; wrapper.two(f(1, 2), 'a,)b') } "
        "wrapper.three([1,2], {a: 1}, \"\\\"\"); wrapper_Four(1); function wrapper_Four(a, b)",
        {{"wrapper_Four", "four"}});
    QCOMPARE(calls.size(), 4);
    QCOMPARE(calls.at(3).name, QStringLiteral("four"));
    QCOMPARE(calls.at(0).arguments, 0);
    QCOMPARE(calls.at(1).arguments, 2);
    QCOMPARE(calls.at(2).arguments, 3);
}

void BridgeContractTest::pagesCallSlotsThatExist()
{
    QStringList wrong;
    for (auto page = pages.begin(); page != pages.end(); ++page) {
        for (const Call& call : slotCalls(page.value(), forwarders)) {
            const QString form = QStringLiteral("%1/%2").arg(call.name).arg(call.arguments);
            if (!slotForms.contains(form)) {
                wrong.append(page.key() + ": wrapper." + form);
            }
        }
    }
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join('\n')));
}

void BridgeContractTest::eachSlotIsCalledByAPage()
{
    QSet<QString> called;
    for (const QString& text : qAsConst(pages)) {
        for (const Call& call : slotCalls(text, forwarders)) {
            called.insert(call.name);
        }
    }
    // A forwarder may also be handed on as a value.
    for (auto row = forwarders.begin(); row != forwarders.end(); ++row) {
        const QRegularExpression value(QStringLiteral("[:,] %1\\b").arg(row.key()));
        for (const QString& text : qAsConst(pages)) {
            if (value.match(text).hasMatch()) {
                called.insert(row.value());
            }
        }
    }
    QStringList forgotten;
    for (const QString& form : qAsConst(slotForms)) {
        const QString name = form.section('/', 0, 0);
        if (!called.contains(name) && !slotsWithoutPage.contains(name)) {
            forgotten.append(name);
        }
    }
    QVERIFY2(forgotten.isEmpty(), qPrintable(forgotten.join('\n')));
}

void BridgeContractTest::nativeCodeCallsFunctionsThatPagesDefine()
{
    const QStringList names = SourceScan::nativeCalls(sources).keys();
    QVERIFY(names.contains("modalErrorShow"));
    QVERIFY(!isDefined("modalNobodyDefinesThis", pages));
    QStringList missing;
    for (const QString& name : names) {
        if (!isDefined(name, pages)) {
            missing.append(name);
        }
    }
    QVERIFY2(missing.isEmpty(), qPrintable(missing.join('\n')));
}

QTEST_GUILESS_MAIN(BridgeContractTest)
#include "bridge_contract_test.moc"
