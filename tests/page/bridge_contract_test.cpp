#include "view/WebView.h"

#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QMetaMethod>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

/// Holds both sides of the bridge to each other: what the pages call is a slot with that many
/// arguments, each slot is called by some page, and what native code calls is defined by a page.
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
};

/// Beginnings of slots and functions whose pages are still to come: the side that exists is tested
/// by itself. A page takes its row away.
const QVector<QPair<const char*, const char*>> pagesToCome = {
    {"deviceInfo_includeToZone", "device administration"},
    {"deviceInfo_excludeFromZone", "device administration"},
    {"deviceInfo_cleanMessageList", "unit memory"},
    {"deviceInfo_hideMessages", "unit memory"},
    {"menu_subZoneLoad", "the zones come in one list"},
    {"zone_", "zone administration"},
    {"wrapperInput_device_", "device administration and unit memory"},
    {"modalAdmin", "administration pages"},
    {"admin_selectRole", "role page; called with the list of roles"},
    {"wrapperInput_role_", "users and roles"},
    {"save", "role page and device administration"},
    {"wrapperInput_server_", "server settings"},
};

bool isToCome(const QString& name)
{
    return std::any_of(pagesToCome.begin(), pagesToCome.end(),
                       [&](const auto& row) { return name.startsWith(QLatin1String(row.first)); });
}

struct Call {
    QString name;
    int arguments;
};

/// The number of arguments of a call whose opening bracket is in front of `position`.
int countArguments(const QString& text, int position)
{
    int depth = 1;
    int commas = 0;
    bool empty = true;
    QChar quote;
    for (int i = position; i < text.size() && depth > 0; ++i) {
        const QChar character = text.at(i);
        if (!quote.isNull()) {
            if (character == '\\') {
                ++i;
            } else if (character == quote) {
                quote = QChar();
            }
            continue;
        }
        if (QStringLiteral("\"'`").contains(character)) {
            quote = character;
            empty = false;
        } else if (QStringLiteral("([{").contains(character)) {
            ++depth;
            empty = false;
        } else if (QStringLiteral(")]}").contains(character)) {
            --depth;
        } else if (character == ',' && depth == 1) {
            ++commas;
        } else if (!character.isSpace()) {
            empty = false;
        }
    }
    return empty ? 0 : commas + 1;
}

/// The rows of the table of forwarders: the function of the pages, and its slot.
QMap<QString, QString> readForwarders(const QString& script)
{
    static const QRegularExpression row(QStringLiteral("^    (wrapper\\w+): \"(\\w+)\",$"),
                                        QRegularExpression::MultilineOption);
    QMap<QString, QString> result;
    auto matches = row.globalMatch(script);
    while (matches.hasNext()) {
        const auto match = matches.next();
        result.insert(match.captured(1), match.captured(2));
    }
    return result;
}

/// The calls of slots in a script, by `wrapper` itself and by the forwarders.
QVector<Call> slotCalls(const QString& text, const QMap<QString, QString>& forwarders)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\bwrapper\\.(\\w+)\\s*\\(|(?<!function )\\b(wrapper\\w*)\\s*\\("));
    QVector<Call> calls;
    auto matches = pattern.globalMatch(text);
    while (matches.hasNext()) {
        const auto match = matches.next();
        const QString slot =
            match.captured(1).isEmpty() ? forwarders.value(match.captured(2)) : match.captured(1);
        if (!slot.isEmpty()) {
            calls.append({slot, countArguments(text, match.capturedEnd())});
        }
    }
    return calls;
}

QMap<QString, QString> readTree(const QString& folder, const QStringList& filters)
{
    QMap<QString, QString> result;
    QDirIterator files(folder, filters, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.fileName().contains(QLatin1String("node_modules")) &&
            file.open(QIODevice::ReadOnly)) {
            result.insert(QDir(folder).relativeFilePath(file.fileName()),
                          QString::fromUtf8(file.readAll()));
        }
    }
    return result;
}

/// Every name that native code may hand to `Page::call`: its literal first arguments, and whatever
/// else is spelled like a page function in a table.
QSet<QString> calledFunctions(const QMap<QString, QString>& sources)
{
    static const QRegularExpression patterns[] = {
        QRegularExpression(QStringLiteral("Page::call\\(\\s*\"(\\w+)\"")),
        QRegularExpression(QStringLiteral("\"((?:wrapperInput_|modal[A-Z_])\\w+)\"")),
    };
    QSet<QString> names;
    for (const QString& text : sources) {
        for (const QRegularExpression& pattern : patterns) {
            auto matches = pattern.globalMatch(text);
            while (matches.hasNext()) {
                names.insert(matches.next().captured(1));
            }
        }
    }
    return names;
}

bool isDefined(const QString& name, const QMap<QString, QString>& pages)
{
    const QRegularExpression definition(
        QStringLiteral("function\\s+%1\\s*\\(|\\b%1\\s*[:=]\\s*(?:function|\\(|\\w+,)|notice\\(\\s*"
                       "[\"']%1[\"']")
            .arg(name));
    return std::any_of(pages.begin(), pages.end(),
                       [&](const QString& text) { return definition.match(text).hasMatch(); });
}

} // namespace

void BridgeContractTest::initTestCase()
{
    pages = readTree(QStringLiteral(WEB_FOLDER), {"*.js", "*.html"});
    sources = readTree(QStringLiteral(SOURCE_FOLDER), {"*.cpp", "*.h"});
    const QMetaObject& meta = WebView::staticMetaObject;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        const QMetaMethod method = meta.method(index);
        slotForms.insert(QStringLiteral("%1/%2")
                             .arg(QString::fromLatin1(method.name()))
                             .arg(method.parameterCount()));
    }
    forwarders = readForwarders(pages.value("javascripts/wrapper.js"));
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
        if (!called.contains(name) && !slotsWithoutPage.contains(name) && !isToCome(name)) {
            forgotten.append(name);
        }
    }
    QVERIFY2(forgotten.isEmpty(), qPrintable(forgotten.join('\n')));
}

void BridgeContractTest::nativeCodeCallsFunctionsThatPagesDefine()
{
    const QSet<QString> names = calledFunctions(sources);
    QVERIFY(names.contains("modalErrorShow"));
    QVERIFY(!isDefined("modalNobodyDefinesThis", pages));
    QStringList missing;
    for (const QString& name : names) {
        if (!isDefined(name, pages) && !isToCome(name)) {
            missing.append(name);
        }
    }
    QVERIFY2(missing.isEmpty(), qPrintable(missing.join('\n')));
}

QTEST_GUILESS_MAIN(BridgeContractTest)
#include "bridge_contract_test.moc"
