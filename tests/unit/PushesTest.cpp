#include "app/Data.h"
#include "model/ServerSettings.h"
#include "support/SessionFixture.h"

#include <QTest>

namespace
{

QJsonObject push(const QString& request, const QString& action)
{
    return {{QStringLiteral("request"), request},
            {QStringLiteral("action"), action},
            {QStringLiteral("order"), 70}};
}

} // namespace

class PushesTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void pushIsAcknowledgedBeforeItsRequests_data();
    void pushIsAcknowledgedBeforeItsRequests();
    void brokenInternetShows();
    void unknownPushIsAcknowledgedAndLogged();
};

void PushesTest::pushIsAcknowledgedBeforeItsRequests_data()
{
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char* name, const char* requests) {
        QStringList expected{QStringLiteral("ack 70")};
        expected += QString::fromLatin1(requests).split(QStringLiteral(", "), Qt::SkipEmptyParts);
        QTest::newRow(name) << expected;
    };
    row("user reloadChanges", "user/getInfo 0, user/list 1, user/getConnected 2");
    row("zone reloadChanges", "zone/list 0");
    row("task add", "task/list 0");
    row("task enable", "task/list 0");
    row("task edit", "task/list 0");
    row("preset reloadChanges", "preset/list 0");
    row("preset start", "playback/getPlays 0");
    row("preset stop", "playback/getPlays 0");
    row("playback addPlaylist", "playback/list 0");
    row("playback addTrack", "playback/list 0");
    row("playback setTitle", "playback/list 0");
    row("playback play", "playback/getPlays 0");
    row("playback startRedirection", "playback/getRedirection 0");
    row("server reloadChanges", "server/getSettings 0");
    row("log reloadChanges", "log/getLevel 0");
    row("helper notify", "ack 70");
    row("helper brokenInternet", "");
    row("helper brokenLink", "");
}

void PushesTest::pushIsAcknowledgedBeforeItsRequests()
{
    QFETCH(QStringList, expected);
    const SessionFixture session;
    const QString name = QLatin1String(QTest::currentDataTag());
    SessionFixture::receive(
        push(name.section(QLatin1Char(' '), 0, 0), name.section(QLatin1Char(' '), 1)));
    QCOMPARE(SessionFixture::queued(), expected);
    QVERIFY(!session.log.hasLineWith(QStringLiteral("Dropped push")));
}

void PushesTest::brokenInternetShows()
{
    SessionFixture session;
    Data::serverSettings.setInternetStatus(true);
    session.page.take();
    SessionFixture::receive(push(QStringLiteral("helper"), QStringLiteral("brokenInternet")));
    QCOMPARE(session.page.calls(),
             QStringList{QStringLiteral("wrapperInput_server_setInternetStatus(0);")});
}

void PushesTest::unknownPushIsAcknowledgedAndLogged()
{
    const SessionFixture session;
    SessionFixture::receive(push(QStringLiteral("playback"), QStringLiteral("setVolume")));
    SessionFixture::receive(push(QStringLiteral("Zone"), QStringLiteral("reloadChanges")));
    SessionFixture::receive(push(QString(), QString()));
    QCOMPARE(SessionFixture::queued(),
             (QStringList{QStringLiteral("ack 70"), QStringLiteral("ack 70"),
                          QStringLiteral("ack 70")}));
    QVERIFY(session.log.contains(QStringLiteral("Dropped push: playback setVolume")));
    QVERIFY(session.log.contains(QStringLiteral("Dropped push: Zone reloadChanges")));
}

QTEST_GUILESS_MAIN(PushesTest)
#include "PushesTest.moc"
