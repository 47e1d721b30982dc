#include "simulator/Client.h"
#include "simulator/ServerFixture.h"

#include <QJsonArray>
#include <QtTest>

/// Users, roles and zones are changed by rules, and every other console hears of it.
class TestEditing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void refusals_data();
    void refusals();
    void newAccountLogsInWithItsPassword();
    void passwordCountsAtTheNextCheck();
    void lostRoleEndsTheSession_data();
    void lostRoleEndsTheSession();
    void rightTakenAwayCountsAtOnce();
    void roleSeesWhatItsListsName();
    void administratorsStayStrong();
    void zoneIsSeenByTheOthers();
    void membershipFollowsTheRules();
    void unitIsDeletedOnlyWhenNothingNeedsIt();

private:
    QString word(const QString& request, const QString& action, const QJsonObject& fields)
    {
        return admin->ask(request, action, fields).value("response").toString();
    }
    QJsonArray unitsOfZone(int zone);
    QJsonObject account(const QString& name, const QString& title)
    {
        return {{"name", name},
                {"title", title},
                {"password", digestOf("secret")},
                {"passwordForAlarm", digestOf("siren")}};
    }

    std::unique_ptr<ServerFixture> server;
    std::unique_ptr<Client> admin;
    std::unique_ptr<Client> other;
};

void TestEditing::init()
{
    admin.reset();
    other.reset();
    server = std::make_unique<ServerFixture>();
    admin = std::make_unique<Client>((*server)->port());
    other = std::make_unique<Client>((*server)->port());
    QVERIFY(other->logIn("operator"));
    QVERIFY(admin->logIn("admin"));
    QVERIFY(!other->takePush("reloadChanges").isEmpty());
}

QJsonArray TestEditing::unitsOfZone(int zone)
{
    QJsonArray units;
    for (const QJsonValue& entry : other->ask("zone", "list").value("devices").toArray()) {
        if (entry["parentId"] == zone) {
            units.append(entry["id"]);
        }
    }
    return units;
}

void TestEditing::refusals_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QJsonObject>("fields");
    QTest::addColumn<QString>("response");
    const auto row = [](const char* name, const char* request, const char* action,
                        const QJsonObject& fields, const char* response) {
        QTest::newRow(name) << request << action << fields << response;
    };
    row("name taken", "user", "add", account("guard", "Новый"), "error");
    row("title taken", "user", "add", account("new", "Охрана, пост 1"), "titleExists");
    row("blank in a name", "user", "add", account("a b", "Новый"), "error");
    row("no password", "user", "add", {{"name", "new"}, {"title", "Новый"}}, "error");
    row("title of another", "user", "edit", {{"name", "guard"}, {"title", "Наблюдатель"}},
        "titleExists");
    row("empty password", "user", "edit",
        {{"name", "guard"}, {"title", "Охрана"}, {"password", ""}}, "error");
    row("delete the administrator", "user", "delete", {{"name", "admin"}}, "error");
    row("delete nobody", "user", "delete", {{"name", "nobody"}}, "error");
    row("administrator without role", "role", "exclude", {{"user", "admin"}}, "error");
    row("into no role", "role", "include", {{"user", "guard"}, {"role", "kings"}}, "error");
    row("role taken", "role", "add", {{"name", "guards"}, {"title", "Новая"}}, "error");
    row("role's title taken", "role", "add", {{"name", "new"}, {"title", "Охрана"}}, "titleExists");
    row("delete the own role", "role", "delete", {{"name", "admin"}}, "error");
    row("half of the rights", "role", "setServer", {{"role", "guards"}, {"userManagement", true}},
        "error");
    row("list that is none", "role", "setZones", {{"role", "guards"}, {"zones", 3}}, "error");
    row("zone without title", "zone", "add", {{"title", ""}, {"parentId", 0}, {"type", "physical"}},
        "error");
    row("zone of no kind", "zone", "add", {{"title", "Крыша"}, {"parentId", 0}, {"type", "odd"}},
        "error");
    row("zone under none", "zone", "add", {{"title", "Крыша"}, {"parentId", 99}, {"type", "logic"}},
        "error");
    row("zone with zones", "zone", "delete", {{"id", 2}}, "nestedZones");
    row("zone of a task", "zone", "delete", {{"id", 4}}, "includedInTasks");
    row("zone of a preset", "zone", "delete", {{"id", 3}}, "includedInPresets");
    row("zone that plays", "zone", "delete", {{"id", 9}}, "busyPlaying");
    row("zone with units", "zone", "delete", {{"id", 8}}, "nestedDevices");
    row("the root zone", "zone", "delete", {{"id", 1}}, "error");
    row("twice in a zone", "zone", "includeDevice", {{"zoneId", 3}, {"deviceId", 1}},
        "alreadyIncluded");
    row("two physical zones", "zone", "includeDevice", {{"zoneId", 4}, {"deviceId", 1}},
        "onePhysical");
    row("not in the zone", "zone", "excludeDevice", {{"zoneId", 4}, {"deviceId", 1}},
        "notIncluded");
    row("playing unit", "zone", "excludeDevice", {{"zoneId", 3}, {"deviceId", 2}}, "hasPlayback");
}

void TestEditing::refusals()
{
    QFETCH(QString, request);
    QFETCH(QString, action);
    QFETCH(QJsonObject, fields);
    const auto lists = [this] {
        return QVector<QJsonValue>{
            admin->ask("user", "list").value("users"), admin->ask("role", "list").value("roles"),
            admin->ask("zone", "list").value("zones"), admin->ask("zone", "list").value("devices")};
    };
    const QVector<QJsonValue> before = lists();
    QTEST(word(request, action, fields), "response");
    QCOMPARE(lists(), before);
    other->ask("user", "getInfo");
    QVERIFY(other->pushes.isEmpty());
    if (request != "zone") { // operators edit zones themselves
        QCOMPARE(other->ask(request, action, fields).value("response"), QJsonValue("forbidden"));
    }
}

void TestEditing::newAccountLogsInWithItsPassword()
{
    QCOMPARE(word("user", "add", account("new", "Новый")), QString("success"));
    QCOMPARE(other->takePush().value("request"), QJsonValue("user"));
    Client fresh((*server)->port());
    const QJsonObject wrong{{"user", "new"}, {"password", digestOf("new")}, {"version", 9}};
    QJsonObject right = wrong;
    right.insert("password", digestOf("secret"));
    QCOMPARE(fresh.ask("user", "login", wrong).value("response"), QJsonValue("error"));
    QCOMPARE(fresh.ask("user", "login", right).value("response"), QJsonValue("success"));
    // Without a role it may nothing, not even ask about itself.
    QCOMPARE(fresh.ask("user", "getInfo").value("response"), QJsonValue("forbidden"));
    QCOMPARE(word("role", "include", {{"user", "new"}, {"role", "guards"}}), QString("success"));
    QCOMPARE(fresh.ask("user", "getInfo").value("role"), QJsonValue("guards"));
}

void TestEditing::passwordCountsAtTheNextCheck()
{
    const auto check = [this](const QString& target, const QString& password) {
        return other
            ->ask("user", "checkAccess", {{"target", target}, {"password", digestOf(password)}})
            .value("response")
            .toString();
    };
    QCOMPARE(word("user", "edit",
                  {{"name", "operator"}, {"title", "Смена"}, {"password", digestOf("secret")}}),
             QString("success"));
    QCOMPARE(check("login", "operator"), QString("forbidden"));
    QCOMPARE(check("login", "secret"), QString("success"));
    QCOMPARE(check("alarm", "alarm"), QString("success"));
    QVERIFY(!Client((*server)->port()).logIn("operator"));
    // The administrator keeps his title, but takes a password.
    QCOMPARE(
        word("user", "edit", {{"name", "admin"}, {"title", ""}, {"password", digestOf("secret")}}),
        QString("success"));
    QCOMPARE(admin->ask("user", "getInfo").value("title"), QJsonValue("Администратор"));
    QVERIFY(!Client((*server)->port()).logIn("admin"));
}

void TestEditing::lostRoleEndsTheSession_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QJsonObject>("fields");
    QTest::newRow("account deleted") << "user"
                                     << "delete" << QJsonObject{{"name", "operator"}};
    QTest::newRow("role taken") << "role"
                                << "exclude" << QJsonObject{{"user", "operator"}};
    QTest::newRow("role deleted") << "role"
                                  << "delete" << QJsonObject{{"name", "operators"}};
}

void TestEditing::lostRoleEndsTheSession()
{
    QFETCH(QString, request);
    QFETCH(QString, action);
    QFETCH(QJsonObject, fields);
    QCOMPARE(word(request, action, fields), QString("success"));
    QCOMPARE(other->takePush("reloadChanges").value("request"), QJsonValue("user"));
    QCOMPARE(other->ask("user", "getInfo").value("response"), QJsonValue("forbidden"));
}

void TestEditing::rightTakenAwayCountsAtOnce()
{
    const QJsonObject volume{{"id", 3}, {"volume", 41}};
    QCOMPARE(other->ask("device", "setVolume", volume).value("response"), QJsonValue("success"));
    QJsonObject rights = other->ask("role", "getServer");
    rights.remove("response");
    rights.insert("role", "operators");
    rights.insert("deviceManagement", "read");
    QCOMPARE(word("role", "setServer", rights), QString("success"));
    QCOMPARE(other->takePush("reloadChanges").value("name"), QJsonValue("operators"));
    QCOMPARE(other->ask("role", "getServer").value("deviceManagement"), QJsonValue("read"));
    QCOMPARE(other->ask("device", "setVolume", volume).value("response"), QJsonValue("forbidden"));
}

void TestEditing::roleSeesWhatItsListsName()
{
    QCOMPARE(word("role", "setZones", {{"role", "operators"}, {"zones", QJsonArray{9}}}),
             QString("success"));
    QCOMPARE(word("role", "setTasks",
                  {{"role", "operators"},
                   {"tasks", QJsonArray{QJsonObject{{"id", 3}, {"permission", "control"}}}}}),
             QString("success"));
    const QJsonArray devices = other->ask("device", "getDevices").value("devices").toArray();
    QCOMPARE(devices.size(), 3);
    QCOMPARE(devices.first()["id"], QJsonValue(21));
    QCOMPARE(other->ask("task", "list").value("tasks").toArray().size(), 1);
}

void TestEditing::administratorsStayStrong()
{
    QJsonObject rights = admin->ask("role", "getServer");
    rights.remove("response");
    rights.insert("role", "admin");
    QCOMPARE(word("role", "setServer", rights), QString("success"));
    rights.insert("userManagement", false);
    QCOMPARE(word("role", "setServer", rights), QString("forbidden"));
    QCOMPARE(admin->ask("role", "getServer").value("userManagement"), QJsonValue(true));
}

void TestEditing::zoneIsSeenByTheOthers()
{
    const QJsonObject reply =
        other->ask("zone", "add", {{"title", "Крыша"}, {"parentId", 5}, {"type", "logic"}});
    const int id = reply.value("newId").toInt();
    QCOMPARE(admin->takePush("reloadChanges").value("request"), QJsonValue("zone"));
    const QJsonObject added = admin->ask("zone", "list").value("zones").toArray().last().toObject();
    QCOMPARE(added,
             (QJsonObject{{"id", id}, {"title", "Крыша"}, {"type", "logic"}, {"parentId", 5}}));
    // Who made it has it in his role.
    QCOMPARE(other->ask("zone", "edit", {{"id", id}, {"title", "Чердак"}}).value("response"),
             QJsonValue("success"));
    QCOMPARE(word("zone", "includeDevice", {{"zoneId", id}, {"deviceId", 3}}), QString("success"));
    const QJsonObject push = other->takePush("includeDevice");
    QCOMPARE(push.value("zoneId"), QJsonValue(id));
    QCOMPARE(push.value("deviceId"), QJsonValue(3));
    QCOMPARE(unitsOfZone(id), QJsonArray{3});
    QCOMPARE(word("zone", "excludeDevice", {{"zoneId", id}, {"deviceId", 3}}), QString("success"));
    QCOMPARE(word("zone", "delete", {{"id", id}}), QString("success"));
    QVERIFY(unitsOfZone(id).isEmpty());
}

void TestEditing::membershipFollowsTheRules()
{
    // A unit that leaves its last zone is in the root zone, and everybody hears of both.
    QCOMPARE(word("zone", "excludeDevice", {{"zoneId", 3}, {"deviceId", 3}}), QString("success"));
    QCOMPARE(admin->takePush("includeDevice").value("zoneId"), QJsonValue(1));
    QCOMPARE(other->takePush().value("action"), QJsonValue("includeDevice"));
    QCOMPARE(other->takePush().value("action"), QJsonValue("excludeDevice"));
    QVERIFY(unitsOfZone(1).contains(3));
    // From there it goes into another physical zone.
    QCOMPARE(word("zone", "includeDevice", {{"zoneId", 4}, {"deviceId", 3}}), QString("success"));
    QCOMPARE(word("zone", "excludeDevice", {{"zoneId", 1}, {"deviceId", 3}}), QString("success"));
    QVERIFY(unitsOfZone(4).contains(3));
    QVERIFY(!unitsOfZone(1).contains(3));
}

void TestEditing::unitIsDeletedOnlyWhenNothingNeedsIt()
{
    const auto erase = [this](int unit, bool force) {
        return word("zone", "excludeDevice",
                    {{"zoneId", 0}, {"deviceId", unit}, {"force", force}, {"recursively", true}});
    };
    QCOMPARE(erase(21, true), QString("hasPlayback"));
    QCOMPARE(erase(1, false), QString("forbiddenDeviceInPreset"));
    QCOMPARE(erase(15, false), QString("forbiddenDeviceInTask"));
    QVERIFY(other->pushes.isEmpty());
    QCOMPARE(erase(1, true), QString("success"));
    QCOMPARE(other->takePush("excludeDevice").value("zoneId"), QJsonValue(0));
    QVERIFY(!unitsOfZone(3).contains(1));
    QCOMPARE(admin->ask("device", "getState", {{"id", 1}}).value("response"), QJsonValue("error"));
    QCOMPARE(admin->ask("device", "getState", {{"id", 24}}).value("id"), QJsonValue(24));
}

QTEST_GUILESS_MAIN(TestEditing)
#include "tst_editing.moc"
