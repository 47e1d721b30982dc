#include "app/Data.h"
#include "model/ModelList.h"
#include "model/Role.h"
#include "model/ServerSettings.h"
#include "model/User.h"
#include "protocol/Request.h"
#include "protocol/SessionHooks.h"
#include "support/SessionFixture.h"

#include <QTest>

namespace
{

/// The console asks, the server answers with `reply`.
template <class Command> void answer(Command command, QJsonObject reply)
{
    static int order = 0;
    send(command);
    const QStringList queued = SessionFixture::queued();
    order = queued.last().section(QLatin1Char(' '), -1).toInt();
    reply.insert(QStringLiteral("order"), order);
    SessionFixture::receive(reply);
}

QJsonObject word(const char* response)
{
    return {{QStringLiteral("response"), QLatin1String(response)}};
}

QJsonObject userInformation(const char* name, const char* title, const char* role)
{
    QJsonObject reply = word("success");
    reply.insert(QStringLiteral("name"), QLatin1String(name));
    reply.insert(QStringLiteral("title"), QLatin1String(title));
    reply.insert(QStringLiteral("role"), QLatin1String(role));
    return reply;
}

QJsonObject versionReply(const char* response, const QJsonValue& version)
{
    QJsonObject reply = word(response);
    reply.insert(QStringLiteral("version"), version);
    return reply;
}

/// A user "anna" with the role "guard", as the bootstrap has left them.
void logInAnna()
{
    auto role = std::make_unique<Role>();
    role->setName(QStringLiteral("guard"));
    role->setCurrent(true);
    Data::roleList.append(std::move(role));
    auto user = std::make_unique<User>();
    user->setName(QStringLiteral("anna"));
    user->setTitle(QStringLiteral("Anna"));
    user->setCurrent(true);
    Data::userList.append(std::move(user));
}

} // namespace

class RepliesTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void internetStatus_data();
    void internetStatus();
    void serverVersions_data();
    void serverVersions();
    void serverTime_data();
    void serverTime();
    void loginOutcomes_data();
    void loginOutcomes();
    void logoutEndsTheSession();
    void logoutLeavesTheProgram();
    void refusedLogoutGoesOn();
    void firstUserInformationMakesTheUserCurrent();
    void firstUserInformationAddsAnUnknownUser();
    void laterUserInformationRefreshes();
    void changedRoleEndsTheSession();
    void userInformationThatSaysNothing_data();
    void userInformationThatSaysNothing();
    void forbiddenUserInformationEndsTheSession();
    void forbiddenAsksForTheRightsFirst();
};

void RepliesTest::internetStatus_data()
{
    QTest::addColumn<bool>("before");
    QTest::addColumn<QString>("response");
    QTest::addColumn<bool>("after");
    QTest::newRow("reached") << false << QStringLiteral("success") << true;
    QTest::newRow("lost") << true << QStringLiteral("noInternet") << false;
    QTest::newRow("another word") << true << QStringLiteral("error") << true;
}

void RepliesTest::internetStatus()
{
    QFETCH(bool, before);
    QFETCH(QString, response);
    QFETCH(bool, after);
    const SessionFixture session;
    Data::serverSettings.setInternetStatus(before);
    answer(HelperCommand::CheckInternet, {{QStringLiteral("response"), response}});
    QCOMPARE(Data::serverSettings.getInternetStatus(), after);
}

void RepliesTest::serverVersions_data()
{
    QTest::addColumn<QJsonObject>("update");
    QTest::addColumn<QString>("available");
    const QString old = QStringLiteral("old");
    QTest::newRow("offered") << versionReply("success", QStringLiteral("2.2"))
                             << QStringLiteral("2.2");
    QTest::newRow("downloading") << versionReply("downloading", QStringLiteral("2.2"))
                                 << QStringLiteral("2.2");
    for (const char* const none : {"noInternet", "noUpdate", "relevantVersion"}) {
        QTest::newRow(none) << word(none) << QStringLiteral("2.1");
    }
    QTest::newRow("another word") << versionReply("error", QStringLiteral("2.2")) << old;
    QTest::newRow("no version") << word("success") << old;
    QTest::newRow("number for a version") << versionReply("success", 2.2) << old;
}

void RepliesTest::serverVersions()
{
    QFETCH(QJsonObject, update);
    QFETCH(QString, available);
    const SessionFixture session;
    Data::serverSettings.setAvailableServerVersion(QStringLiteral("old"));
    answer(HelperCommand::GetCurrentServerVersion, versionReply("success", QStringLiteral("2.1")));
    answer(HelperCommand::GetCurrentServerVersion, versionReply("error", QStringLiteral("9.9")));
    QCOMPARE(Data::serverSettings.getServerVersion(), QStringLiteral("2.1"));
    answer(HelperCommand::CheckServerUpdate, update);
    QCOMPARE(Data::serverSettings.getAvailableServerVersion(), available);
}

void RepliesTest::serverTime_data()
{
    QTest::addColumn<QJsonObject>("changed");
    QTest::addColumn<bool>("shown");
    const auto row = [](const char* name, const char* field, const QJsonValue& value, bool shown) {
        QTest::newRow(name) << QJsonObject{{QLatin1String(field), value}} << shown;
    };
    row("whole", "other", 0, true);
    row("refused", "response", QStringLiteral("error"), false);
    row("number for a date", "utcDate", 20261118, false);
    row("no time", "utcTime", QJsonValue(), false);
    row("text for hours", "timezone", QStringLiteral("3"), false);
    row("half hours", "timezone", 3.5, false);
}

void RepliesTest::serverTime()
{
    QFETCH(QJsonObject, changed);
    QFETCH(bool, shown);
    SessionFixture session;
    QJsonObject reply = word("success");
    reply.insert(QStringLiteral("utcDate"), QStringLiteral("2026-11-18"));
    reply.insert(QStringLiteral("utcTime"), QStringLiteral("09:05:01"));
    reply.insert(QStringLiteral("timezone"), 3);
    const QString field = changed.keys().first();
    reply.insert(field, changed.value(field));
    answer(HelperCommand::GetDateTime, reply);
    const QStringList call{
        QStringLiteral("wrapperInput_global_setTime(\"2026-11-18 09:05:01\",3);")};
    QCOMPARE(session.page.calls(), shown ? call : QStringList());
}

void RepliesTest::loginOutcomes_data()
{
    QTest::addColumn<QJsonObject>("reply");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("success") << word("success") << QStringList{QStringLiteral("succeeded")};
    QTest::newRow("error") << word("error") << QStringList{QStringLiteral("refused")};
    QTest::newRow("version") << versionReply("required", 11)
                             << QStringList{QStringLiteral("modalLoginVersionError(9,11);")};
    QTest::newRow("version that is none")
        << versionReply("required", QStringLiteral("11);x("))
        << QStringList{QStringLiteral("modalLoginVersionError(9,0);")};
    QTest::newRow("no version") << word("required")
                                << QStringList{QStringLiteral("modalLoginVersionError(9,0);")};
    QTest::newRow("another word") << word("busy") << QStringList();
}

void RepliesTest::loginOutcomes()
{
    QFETCH(QJsonObject, reply);
    QFETCH(QStringList, expected);
    SessionFixture session;
    QStringList happened;
    sessionHooks().loginSucceeded = [&] { happened.append(QStringLiteral("succeeded")); };
    sessionHooks().loginRefused = [&] { happened.append(QStringLiteral("refused")); };
    answer(UserCommand::Login, reply);
    QCOMPARE(happened + session.page.calls(), expected);
    QCOMPARE(session.endCount(), 0);
}

void RepliesTest::logoutEndsTheSession()
{
    const SessionFixture session;
    logInAnna();
    answer(UserCommand::Logout, word("success"));
    QCOMPARE(session.endCount(), 1);
    QCOMPARE(Data::getCurrentUser(), nullptr);
}

void RepliesTest::logoutLeavesTheProgram()
{
    const SessionFixture session;
    int closed = 0;
    sessionHooks().closeProgram = [&] { ++closed; };
    Data::waitForExit = true;
    answer(UserCommand::Logout, word("success"));
    QCOMPARE(closed, 1);
    QCOMPARE(session.endCount(), 0);
}

void RepliesTest::refusedLogoutGoesOn()
{
    const SessionFixture session;
    logInAnna();
    Data::waitForExit = true;
    answer(UserCommand::Logout, word("error"));
    QVERIFY(!Data::waitForExit); // a later logout is no exit
    QCOMPARE(session.endCount(), 0);
    QCOMPARE(SessionFixture::queued().last(), QStringLiteral("user/getInfo 1"));
}

void RepliesTest::firstUserInformationMakesTheUserCurrent()
{
    SessionFixture session;
    for (const char* const name : {"boris", "anna"}) {
        auto user = std::make_unique<User>();
        user->setId(Data::userList.size());
        user->setName(QLatin1String(name));
        Data::userList.append(std::move(user));
    }
    session.page.take();
    answer(UserCommand::GetInfo, userInformation("anna", "Anna", "guard"));
    QCOMPARE(Data::getCurrentUser(), Data::userList.at(1));
    QCOMPARE(Data::userList.size(), 2);
    QCOMPARE(session.page.calls(),
             (QStringList{QStringLiteral("wrapperInput_user_login(1);"),
                          QStringLiteral("wrapperInput_user_edit(1,\"anna\",\"Anna\");"),
                          QStringLiteral("wrapperInput_userGlobal_edit(\"Anna\");"),
                          QStringLiteral("modalLoadingHide();")}));
}

void RepliesTest::firstUserInformationAddsAnUnknownUser()
{
    SessionFixture session;
    QJsonObject reply = userInformation("anna", "Anna", "guard");
    reply.remove(QStringLiteral("title"));
    answer(UserCommand::GetInfo, reply);
    QCOMPARE(session.page.calls().last(), QStringLiteral("modalLoadingHide();"));
    const User* const user = Data::getCurrentUser();
    QVERIFY(user);
    QCOMPARE(user->getId(), 0);
    QCOMPARE(user->getName(), QStringLiteral("anna"));
    QCOMPARE(user->getRole(), QString());
    QVERIFY(user->getStatus());
}

void RepliesTest::laterUserInformationRefreshes()
{
    SessionFixture session;
    logInAnna();
    session.page.take();
    answer(UserCommand::GetInfo, userInformation("anna", "Anna B.", "guard"));
    QCOMPARE(session.endCount(), 0);
    QCOMPARE(session.page.calls(),
             (QStringList{QStringLiteral("wrapperInput_user_edit(0,\"anna\",\"Anna B.\");"),
                          QStringLiteral("wrapperInput_userGlobal_edit(\"Anna B.\");"),
                          QStringLiteral("modalLoadingHide();")}));
}

void RepliesTest::changedRoleEndsTheSession()
{
    const SessionFixture session;
    logInAnna();
    answer(UserCommand::GetInfo, userInformation("anna", "Anna", "visitor"));
    QCOMPARE(session.endCount(), 1);
    QVERIFY(Data::userRoleChanged);
    QCOMPARE(SessionFixture::queued(), QStringList());
}

void RepliesTest::userInformationThatSaysNothing_data()
{
    QTest::addColumn<QJsonObject>("reply");
    QTest::newRow("error") << word("error");
    QTest::newRow("no name") << word("success");
    QJsonObject wrong = userInformation("boris", "Boris", "guard");
    wrong.insert(QStringLiteral("title"), 7);
    QTest::newRow("number for a title") << wrong;
}

void RepliesTest::userInformationThatSaysNothing()
{
    QFETCH(QJsonObject, reply);
    SessionFixture session;
    logInAnna();
    session.page.take();
    answer(UserCommand::GetInfo, reply);
    QCOMPARE(session.page.calls(), QStringList());
    QCOMPARE(session.endCount(), 0);
    QCOMPARE(Data::getCurrentUser()->getName(), QStringLiteral("anna"));
}

void RepliesTest::forbiddenUserInformationEndsTheSession()
{
    const SessionFixture session;
    logInAnna();
    answer(UserCommand::GetInfo, word("forbidden"));
    QCOMPARE(session.endCount(), 1);
    QCOMPARE(SessionFixture::queued(), QStringList()); // and asks for nothing
    QVERIFY(!Data::userRoleChanged);
}

void RepliesTest::forbiddenAsksForTheRightsFirst()
{
    const SessionFixture session;
    answer(ZoneCommand::Delete, word("forbidden"));
    answer(RoleCommand::Exclude, word("forbidden"));
    QCOMPARE(SessionFixture::queued(),
             (QStringList{QStringLiteral("zone/delete 0"), QStringLiteral("user/getInfo 1"),
                          QStringLiteral("role/exclude 2"), QStringLiteral("user/getInfo 3")}));
}

QTEST_GUILESS_MAIN(RepliesTest)
#include "RepliesTest.moc"
