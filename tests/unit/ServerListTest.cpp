#include "model/ServerList.h"
#include "support/LogRecorder.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/resource.h>

namespace
{

/// A folder with the list's file, and what is logged meanwhile.
struct Place {
    QString path() const { return folder.filePath(QStringLiteral("servers.json")); }
    void write(const QByteArray& text) const
    {
        QFile file(path());
        file.open(QIODevice::WriteOnly);
        file.write(text);
    }
    QByteArray text(const QString& name = QStringLiteral("servers.json")) const
    {
        QFile file(folder.filePath(name));
        file.open(QIODevice::ReadOnly);
        return file.readAll();
    }
    ServerList loaded() const
    {
        ServerList list(path());
        list.loadList();
        return list;
    }

    QTemporaryDir folder;
    LogRecorder log;
};

/// "10.0.0.1/2049", with a star behind a default one.
QStringList shown(const ServerList& list)
{
    QStringList words;
    for (int index = 0; index < list.size(); ++index) {
        const Server& server = list.at(index);
        words.append(server.ip + QLatin1Char('/') + QString::number(server.port) +
                     (server.isDefault ? QStringLiteral("*") : QString()));
    }
    return words;
}

/// No file can grow while it lives.
class FullDisk
{
public:
    FullDisk()
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before);
        rlimit none = before;
        none.rlim_cur = 0;
        setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before); }
    Q_DISABLE_COPY(FullDisk)

private:
    rlimit before{};
};

const QString first = QStringLiteral("10.0.0.1");
const QString second = QStringLiteral("10.0.0.2");

} // namespace

class ServerListTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void fileIsReadEntryByEntry_data();
    void fileIsReadEntryByEntry();
    void brokenFileStaysUntilAChange();
    void savedFormIsFixed();
    void addressAndPortTellServersApart();
    void deletedServerLeavesNoOtherDefault();
    void defaultMovesToTheServerLoggedInTo();
    void unwritableFolderKeepsTheListInMemory();
    void fullDiskKeepsTheOldFile();
    void consolesKeepEachOthersServers();
};

void ServerListTest::fileIsReadEntryByEntry_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("expected");
    const QByteArray good = R"({"ip":"10.0.0.1","port":2049,"isDefault":true})";
    const QStringList read{QStringLiteral("10.0.0.1/2049*")};
    const auto row = [](const char* name, const QByteArray& file, const QStringList& expected) {
        QTest::newRow(name) << file << expected;
    };
    row("empty file", "", {});
    row("no JSON", "servers", {});
    row("array", "[" + good + "]", {});
    row("cut off", R"({"servers":[)" + good, {});
    row("other key", R"({"server":[)" + good + "]}", {});
    row("no array", R"({"servers":)" + good + "}", {});
    row("good", R"({"servers":[)" + good + "]}", read);
    row("missing fields are zero", R"({"servers":[{"ip":"10.0.0.1"},{"port":5},{}]})",
        {QStringLiteral("10.0.0.1/0"), QStringLiteral("/5"), QStringLiteral("/0")});
    for (const char* const bad :
         {"null", "[]", "7", "\"10.0.0.1/2049\"", R"({"ip":7,"port":1})", R"({"ip":null,"port":1})",
          R"({"ip":"10.0.0.9","port":"1"})", R"({"ip":"10.0.0.9","port":-1})",
          R"({"ip":"10.0.0.9","port":65536})", R"({"ip":"10.0.0.9","port":1.5})",
          R"({"ip":"10.0.0.9","port":1e300})", R"({"ip":"10.0.0.9","port":1,"isDefault":1})"}) {
        row(bad, QByteArray(R"({"servers":[)") + bad + "," + good + "]}", read);
    }
}

void ServerListTest::fileIsReadEntryByEntry()
{
    QFETCH(QByteArray, file);
    QFETCH(QStringList, expected);
    const Place place;
    place.write(file);
    QCOMPARE(shown(place.loaded()), expected);
    QCOMPARE(place.text(), file);
}

void ServerListTest::brokenFileStaysUntilAChange()
{
    const Place place;
    place.write("servers");
    ServerList list = place.loaded();
    QVERIFY(place.log.hasLineWith(QStringLiteral("Server list not valid")));
    QCOMPARE(place.text(), QByteArray("servers"));
    QVERIFY(list.addServer({first, 2049, false}));
    QCOMPARE(shown(place.loaded()), QStringList{QStringLiteral("10.0.0.1/2049")});
    QCOMPARE(place.text("servers.json.broken"), QByteArray("servers"));
}

void ServerListTest::savedFormIsFixed()
{
    const Place place;
    ServerList list(place.path());
    list.saveList();
    QCOMPARE(place.text(), QByteArray("{\n    \"servers\": [\n    ]\n}\n"));
    list.addServer({first, 2049, true});
    QCOMPARE(place.text(), QByteArray("{\n"
                                      "    \"servers\": [\n"
                                      "        {\n"
                                      "            \"ip\": \"10.0.0.1\",\n"
                                      "            \"isDefault\": true,\n"
                                      "            \"port\": 2049\n"
                                      "        }\n"
                                      "    ]\n"
                                      "}\n"));
}

void ServerListTest::addressAndPortTellServersApart()
{
    const Place place;
    ServerList list(place.path());
    QVERIFY(list.addServer({first, 2049, false}));
    QVERIFY(list.addServer({first, 2050, false}));
    QVERIFY(list.addServer({second, 2049, false}));
    QVERIFY(!place.log.contains(QStringLiteral("Server already exist")));
    QVERIFY(!list.addServer({first, 2049, true}));
    QVERIFY(place.log.contains(QStringLiteral("Server already exist")));
    const QStringList expected{QStringLiteral("10.0.0.1/2049"), QStringLiteral("10.0.0.1/2050"),
                               QStringLiteral("10.0.0.2/2049")};
    QCOMPARE(shown(list), expected);
    QCOMPARE(shown(place.loaded()), expected);
}

void ServerListTest::deletedServerLeavesNoOtherDefault()
{
    const Place place;
    place.write(R"({"servers":[{"ip":"10.0.0.1","port":1},
                               {"ip":"10.0.0.2","port":1,"isDefault":true},
                               {"ip":"10.0.0.2","port":2},
                               {"ip":"10.0.0.2","port":1}]})");
    ServerList list = place.loaded();
    QCOMPARE(list.getDefault()->ip, second);
    list.deleteServer(second, 1);
    const QStringList expected{QStringLiteral("10.0.0.1/1"), QStringLiteral("10.0.0.2/2")};
    QCOMPARE(shown(list), expected);
    QCOMPARE(shown(place.loaded()), expected);
    QVERIFY(!list.getDefault());
}

void ServerListTest::defaultMovesToTheServerLoggedInTo()
{
    const Place place;
    ServerList list(place.path());
    list.addServer({first, 2049, true});
    list.addServer({second, 2049, true});
    list.addServer({second, 2050, false});
    list.setDefault(second, 2050);
    const QStringList expected{QStringLiteral("10.0.0.1/2049"), QStringLiteral("10.0.0.2/2049"),
                               QStringLiteral("10.0.0.2/2050*")};
    QCOMPARE(shown(place.loaded()), expected);
    QCOMPARE(list.getDefault()->port, 2050);
}

void ServerListTest::unwritableFolderKeepsTheListInMemory()
{
    const Place place;
    ServerList list(place.folder.filePath(QStringLiteral("missing/servers.json")));
    list.loadList();
    QVERIFY(list.addServer({first, 2049, false}));
    QCOMPARE(list.size(), 1);
    QVERIFY(place.log.hasLineWith(QStringLiteral("Server list not saved")));
}

void ServerListTest::fullDiskKeepsTheOldFile()
{
    const Place place;
    ServerList list(place.path());
    list.addServer({first, 2049, true});
    const QByteArray before = place.text();
    QCOMPARE(QFile::permissions(place.path()) & (QFile::ReadGroup | QFile::ReadOther),
             QFile::Permissions());
    {
        const FullDisk full;
        list.addServer({second, 2049, false});
    }
    QCOMPARE(place.text(), before);
    list.setDefault(second, 2049); // there is room again
    QCOMPARE(shown(place.loaded()), QStringList{QStringLiteral("10.0.0.1/2049")});
}

void ServerListTest::consolesKeepEachOthersServers()
{
    const Place place;
    ServerList one(place.path());
    ServerList other(place.path());
    one.addServer({first, 2049, true});
    other.addServer({second, 2049, false});
    one.setDefault(second, 2049);
    const QStringList both{QStringLiteral("10.0.0.1/2049"), QStringLiteral("10.0.0.2/2049*")};
    QCOMPARE(shown(place.loaded()), both);
    QVERIFY(!one.addServer({second, 2049, false})); // the other has it already
    other.deleteServer(first, 2049);
    one.addServer({first, 2050, false});
    const QStringList expected{QStringLiteral("10.0.0.2/2049*"), QStringLiteral("10.0.0.1/2050")};
    QCOMPARE(shown(place.loaded()), expected);
}

QTEST_GUILESS_MAIN(ServerListTest)
#include "ServerListTest.moc"
