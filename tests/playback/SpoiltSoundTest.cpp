#include "playback/Sound.h"
#include "rights/Rights.h"

#include <QJsonDocument>
#include <QTest>

/// Every field of every message about playbacks and the library, missing or with a value that it
/// can't have: nothing crashes, nothing of the other type is taken over, and the units keep theirs.
class SpoiltSoundTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void spoiltFieldBringsNothingNew_data();
    void spoiltFieldBringsNothingNew();
};

namespace
{

void addReply(const char* name, PlaybackCommand command, const char* asked, const char* reply)
{
    QTest::newRow(name) << static_cast<int>(command) << Fleet::json(asked) << Fleet::json(reply);
}

void addPush(const char* text)
{
    const QJsonObject message = Fleet::json(text);
    QTest::newRow(qPrintable(message.value("action").toString())) << -1 << message << QJsonObject();
}

void give(int command, QJsonObject message, const QJsonObject& reply)
{
    if (command >= 0) {
        Fleet::answer(static_cast<PlaybackCommand>(command), message, reply);
        return;
    }
    message.insert("request", "playback");
    message.insert("order", 1);
    Fleet::push(message);
}

} // namespace

void SpoiltSoundTest::spoiltFieldBringsNothingNew_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QJsonObject>("message");
    QTest::addColumn<QJsonObject>("reply");
    addReply("play", PlaybackCommand::Play,
             R"({"playlistId": 20, "trackId": 30, "targetPlaying": "list", "repeats": 0,
                 "actionIfEnd": "stop"})",
             R"({"playbackId": 4, "trackId": 30, "activeDevices": [5]})");
    addReply("playNext", PlaybackCommand::PlayNext,
             R"({"playbackId": 4, "trackId": 30, "timeshift": 0})", "{}");
    addReply("pause", PlaybackCommand::Pause, R"({"playbackId": 4, "pause": false})", "{}");
    addReply("setVolume", PlaybackCommand::SetVolume, R"({"id": 4, "volume": 0})", "{}");
    addReply("getPlays", PlaybackCommand::GetPlays, "{}", R"({"list": [{"playbackId": 4,
        "playlistId": 20, "trackId": 30, "volume": 0, "playing": true, "targetPlaying": "list",
        "repeats": 0, "actionIfEnd": "stop", "timeshift": 1, "devices": [5], "zones": [],
        "activeDevices": [5]}]})");
    addReply("list", PlaybackCommand::List, "{}", R"({"playlists": [{"id": 20, "title": "Morning",
        "parentId": 2, "position": 0, "duration": 200, "volume": 0, "groupId": 2}], "tracks":
        [{"id": 30, "parentId": 20, "title": "Birds", "position": 0, "duration": 100}]})");
    addPush(R"({"action": "playNext", "playbackId": 4, "trackId": 30, "playlistId": 20,
                "timeshift": 1, "playing": true})");
}

/// The mirror holds what the good message says already. What a spoilt one takes away, such as a
/// playback that its list no longer names, may go.
void SpoiltSoundTest::spoiltFieldBringsNothingNew()
{
    QFETCH(int, command);
    QFETCH(QJsonObject, message);
    QFETCH(QJsonObject, reply);
    QVector<std::pair<QJsonObject, QJsonObject>> cases;
    for (const QJsonObject& spoilt : Rights::spoiltVersions(message)) {
        cases.append({spoilt, reply});
    }
    for (const QJsonObject& spoilt : Rights::spoiltVersions(reply)) {
        cases.append({message, spoilt});
    }
    QVERIFY(cases.size() > 5);
    for (const auto& [asked, told] : cases) {
        SessionFixture session;
        Sound::addLibrary();
        Sound::addCarrier(5, Sound::addPlayback(4, 20, 30));
        session.page.take();
        give(command, asked, told);
        const QString text = QJsonDocument(asked).toJson(QJsonDocument::Compact) +
                             QJsonDocument(told).toJson(QJsonDocument::Compact);
        QVERIFY2(Data::playbackList.size() <= 1, qPrintable(text));
        QVERIFY2(Data::playlistList.size() <= 3 && Data::trackList.size() <= 3, qPrintable(text));
        for (const QString& call : session.page.calls()) {
            QVERIFY2(!call.contains("seven") && !call.contains("7.5"), qPrintable(text + call));
        }
        const QString unit = Sound::devices().value(0);
        QVERIFY2(unit == "5=4/2" || (Data::playbackList.isEmpty() && unit == "5=0/0"),
                 qPrintable(text + unit));
    }
}

QTEST_GUILESS_MAIN(SpoiltSoundTest)
#include "SpoiltSoundTest.moc"
