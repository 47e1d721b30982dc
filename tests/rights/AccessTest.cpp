#include "rights/Rights.h"

#include "log/Log.h"
#include "log/LogSettings.h"
#include "protocol/ProtocolUser.h"
#include "protocol/SessionHooks.h"

#include <QTest>

/// What the answers about a password open, and what they leave closed.
class AccessTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void answerOpensWhatWasAskedFor_data();
    void answerOpensWhatWasAskedFor();
};

void AccessTest::answerOpensWhatWasAskedFor_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("response");
    QTest::addColumn<int>("waiting");
    QTest::addColumn<QStringList>("calls");
    QTest::addColumn<int>("waitingAfter");
    const auto row = [](const char* name, const char* target, const char* response, int waiting,
                        const char* calls, int waitingAfter) {
        QTest::newRow(name) << target << response << waiting << Fleet::lines(calls) << waitingAfter;
    };
    row("lock right", "login", "success", WaitForAlarmMessages, "unblock();\nlock opened",
        WaitForAlarmMessages);
    row("lock wrong", "login", "forbidden", WaitForNothing,
        "modalBlockError();\nmodalBlockWrongPassword();\nlogged", WaitForNothing);
    row("lock unknown", "login", "error", WaitForNothing, "", WaitForNothing);
    row("messages right", "alarm", "success", WaitForAlarmMessages, R"(
        warningUnblock();
        loadSideMenu("alarm_zone_list");
        loadTopMenu("alarm_list");
        loadMainBody("alarm_list");
        loadBotMenu("alarm_messages_list");
        loadModal("alarm");)",
        WaitForNothing);
    row("microphone right", "alarm", "success", WaitForAlarmMicrophone, R"(
        microphoneUnblock();
        loadSideMenu("alarm_zone_list");
        loadTopMenu("translation");
        loadMainBody("translation");
        loadBotMenu("translation");
        loadModal("translation");)",
        WaitForNothing);
    row("messages wrong", "alarm", "forbidden", WaitForAlarmMessages,
        "modal_alarm_error();\nlogged", WaitForNothing);
    row("microphone wrong", "alarm", "forbidden", WaitForAlarmMicrophone,
        "modal_translation_error();\nlogged", WaitForNothing);
    row("alarm unknown", "alarm", "error", WaitForAlarmMicrophone, "", WaitForAlarmMicrophone);
    row("nothing waits", "alarm", "success", WaitForNothing, "", WaitForNothing);
    row("no target", "", "success", WaitForAlarmMessages, "", WaitForAlarmMessages);
}

void AccessTest::answerOpensWhatWasAskedFor()
{
    QFETCH(QString, target);
    QFETCH(QString, response);
    QFETCH(int, waiting);
    QFETCH(QStringList, calls);
    QFETCH(int, waitingAfter);
    SessionFixture session;
    LogSettings switches;
    switches.setAccessError(true);
    Log::logger().setSettings(&switches);
    Data::waitForAlarm = waiting;
    QStringList happened;
    sessionHooks().lockOpened = [&] { happened.append("lock opened"); };
    Fleet::answer(UserCommand::CheckAccess, QJsonObject{{"target", target}},
                  {{"response", response}});
    Log::logger().setSettings(nullptr);
    if (session.log.contains("access_error: forbbiden")) {
        happened.append("logged");
    }
    QCOMPARE(session.page.calls() + happened, calls);
    QCOMPARE(Data::waitForAlarm, waitingAfter);
    QCOMPARE(Fleet::takeRequests(), QStringList());
}

QTEST_GUILESS_MAIN(AccessTest)
#include "AccessTest.moc"
