#include "rights/Rights.h"

#include <QTest>

/// How user accounts come into the mirror, change and go.
class UsersTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void addedUserHasNoRoleYet();
    void addedUserThatIsKnownAlready();
    void editTellsTheNewTitle_data();
    void editTellsTheNewTitle();
    void deletedUserLeavesItsRoles();
    void shorterListTakesUsersOut();
    void listOfTheSameLengthRefreshesTheKnown();
    void longerListTakesUsersIn();
    void listThatIsShorterAndNew();
    void idsStayUnique();
    void everyUserIsToldWhetherConnected();
    void valuesAreKept();
    void refusals_data();
    void refusals();
};

void UsersTest::addedUserHasNoRoleYet()
{
    SessionFixture session;
    Rights::addOwnUser();
    session.page.take();
    Fleet::answer(UserCommand::Add,
                  R"({"name": "boris", "title": "Boris", "password": "0", "role": "night"})", "{}");
    QCOMPARE(Rights::users(), (QStringList{"0 anna", "1 boris"}));
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_user_edit(1,"boris","");
        wrapperInput_user_edit(1,"boris","Boris");
        wrapperInput_user_logout(1);
        wrapperInput_user_add(1,"boris","Boris",0,0);
        modalAdminAddUserHide();)"));
    Fleet::answer(RoleCommand::Include, R"({"user": "boris", "role": "night"})", "{}");
    QCOMPARE(Data::getUserByName("boris")->getRole(), QString("night"));
}

void UsersTest::addedUserThatIsKnownAlready()
{
    SessionFixture session;
    Rights::addUser(4, "boris", "night");
    session.page.take();
    Fleet::answer(UserCommand::Add, R"({"name": "boris", "title": "Boris"})", "{}");
    QCOMPARE(Rights::users(), QStringList{"4 boris"});
    QCOMPARE(session.page.calls(), QStringList{"modalAdminAddUserHide();"});
}

void UsersTest::editTellsTheNewTitle_data()
{
    QTest::addColumn<QStringList>("calls");
    QTest::newRow("boris") << QStringList{"wrapperInput_user_edit(5,\"boris\",\"New\");",
                                          "modalAdminEditUser();"};
    QTest::newRow("anna") << QStringList{"wrapperInput_user_edit(0,\"anna\",\"New\");",
                                         "wrapperInput_userGlobal_edit(\"New\");",
                                         "modalAdminEditUser();"};
    QTest::newRow("admin") << QStringList{"modalAdminEditUser();"};
    QTest::newRow("gone") << QStringList();
}

void UsersTest::editTellsTheNewTitle()
{
    QFETCH(QStringList, calls);
    SessionFixture session;
    Rights::addOwnUser();
    Rights::addUser(5, "boris").setTitle("Boris");
    Rights::addUser(6, "admin").setTitle("Root");
    session.page.take();
    Fleet::answer(UserCommand::Edit,
                  QJsonObject{{"name", QTest::currentDataTag()}, {"title", "New"}}, {});
    QCOMPARE(session.page.calls(), calls);
    QCOMPARE(Data::getUserByName("admin")->getTitle(), QString("Root"));
}

void UsersTest::deletedUserLeavesItsRoles()
{
    SessionFixture session;
    Rights::addUser(5, "boris", "night");
    Rights::addUser(6, "vera", "night");
    Role& night = Rights::addRole(1, "night");
    night.users = QStringList{"vera", "boris"};
    session.page.take();
    for (int twice = 0; twice < 2; ++twice) {
        Fleet::answer(UserCommand::Delete, R"({"name": "boris"})", "{}");
    }
    QCOMPARE(Rights::users(), QStringList{"6 vera"});
    QCOMPARE(night.users, QStringList{"vera"});
    QCOMPARE(session.page.calls(), QStringList{"wrapperInput_user_delete(5);"});
    QVERIFY(session.log.contains("Ignored reply: unknown user boris"));
}

void UsersTest::shorterListTakesUsersOut()
{
    SessionFixture session;
    Rights::addOwnUser();
    Rights::addUser(1, "boris");
    Rights::addUser(2, "vera");
    session.page.take();
    Fleet::answer(UserCommand::List, "{}", R"({"users": [
        {"name": "vera", "title": "Vera", "role": "night"},
        {"name": "anna", "title": "Anna", "role": "guard"}]})");
    QCOMPARE(Rights::users(), (QStringList{"0 anna", "2 vera"}));
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_user_delete(1);
        wrapperInput_user_edit(2,"vera","Vera");
        wrapperInput_role_include(2,"night");
        wrapperInput_userGlobal_edit("Anna");)"));
    QCOMPARE(Data::getUserByName("vera")->getRole(), QString("night"));
    QVERIFY(session.log.contains("Founded user remove"));
    QVERIFY(session.log.contains("Deleted user: 1"));
}

void UsersTest::listOfTheSameLengthRefreshesTheKnown()
{
    SessionFixture session;
    Rights::addUser(1, "boris");
    Rights::addUser(2, "vera");
    session.page.take();
    Fleet::answer(UserCommand::List, "{}", R"({"users": [
        {"name": "gleb", "title": "Gleb", "role": ""},
        {"name": "vera", "title": "", "role": "night"}]})");
    QCOMPARE(Rights::users(), (QStringList{"1 boris", "2 vera"}));
    QCOMPARE(Data::getUserByName("vera")->getRole(), QString("night"));
    QCOMPARE(session.page.calls(), QStringList{R"(wrapperInput_role_include(2,"night");)"});
}

void UsersTest::longerListTakesUsersIn()
{
    SessionFixture session;
    Rights::addUser(0, "vera");
    session.page.take();
    Fleet::answer(UserCommand::List, "{}", R"({"users": [
        {"name": "gleb", "title": "Gleb", "role": "night"},
        {"name": "vera", "title": "Vera", "role": "day"}]})");
    QCOMPARE(Rights::users(), (QStringList{"0 vera", "1 gleb"}));
    QCOMPARE(Data::getUserByName("gleb")->getRole(), QString("night"));
    QCOMPARE(Data::getUserByName("vera")->getRole(), QString("day"));
    // Nothing is told of the row 0 before it is told of as vera's.
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_user_edit(1,"gleb","");
        wrapperInput_user_edit(1,"gleb","Gleb");
        wrapperInput_user_add(1,"gleb","Gleb",0,0);
        wrapperInput_user_edit(0,"vera","Vera");
        wrapperInput_role_include(0,"day");)"));
}

/// Two accounts went and one came: what is left is fewer than the reply's.
void UsersTest::listThatIsShorterAndNew()
{
    const SessionFixture session;
    for (const char* const name : {"anna", "boris", "vera"}) {
        Rights::addUser(Data::userList.size(), name);
    }
    Fleet::answer(UserCommand::List, "{}", R"({"users": [
        {"name": "anna", "title": "", "role": ""}, {"name": "gleb", "title": "", "role": ""}]})");
    QCOMPARE(Rights::users(), (QStringList{"0 anna", "1 gleb"}));
}

void UsersTest::idsStayUnique()
{
    const SessionFixture session;
    const auto add = [](const char* name) {
        Fleet::answer(UserCommand::Add, QJsonObject{{"name", name}, {"title", ""}}, {});
    };
    add("a");
    add("b");
    add("c");
    Fleet::answer(UserCommand::Delete, R"({"name": "a"})", "{}");
    add("d");
    QCOMPARE(Rights::users(), (QStringList{"1 b", "2 c", "3 d"}));
    // The user that the login makes has 0 where that is free.
    const char* const information = R"({"name": "anna", "title": "Anna", "role": "guard"})";
    Fleet::answer(UserCommand::GetInfo, "{}", information);
    QCOMPARE(Rights::users().last(), QString("0 anna"));
    Data::userList.clear();
    add("a");
    Fleet::answer(UserCommand::GetInfo, "{}", information);
    QCOMPARE(Rights::users(), (QStringList{"0 a", "1 anna"}));
}

void UsersTest::everyUserIsToldWhetherConnected()
{
    SessionFixture session;
    Rights::addUser(1, "boris").setStatus(true);
    Rights::addUser(2, "vera");
    session.page.take();
    Fleet::answer(UserCommand::GetConnected, "{}", R"({"users": ["gleb", 7, "vera"]})");
    QCOMPARE(session.page.take(), Fleet::lines(R"(
        wrapperInput_user_logout(1);
        wrapperInput_user_logout(2);
        wrapperInput_user_login(2);)"));
    QVERIFY(!Data::getUserByName("boris")->getStatus());
    QVERIFY(Data::getUserByName("vera")->getStatus());
    Fleet::answer(UserCommand::GetConnected, "{}", R"({"response": "error", "users": []})");
    QCOMPARE(session.page.calls(), QStringList());
}

void UsersTest::valuesAreKept()
{
    const SessionFixture session;
    const User& user = Rights::addOwnUser();
    Fleet::answer(UserCommand::SaveValue, R"({"key": "tab", "value": "zones"})", "{}");
    QCOMPARE(user.getValue("tab"), QString("zones"));
    Fleet::answer(UserCommand::LoadValue, R"({"key": "tab"})", R"({"value": "units"})");
    QCOMPARE(user.getValue("tab"), QString("units"));
    Fleet::answer(UserCommand::SaveValue, R"({"key": "tab", "value": "x"})",
                  R"({"response": "error"})");
    QCOMPARE(user.getValue("tab"), QString("units"));
    Data::userList.clear();
    Fleet::answer(UserCommand::LoadValue, R"({"key": "tab"})", R"({"value": "x"})");
    QVERIFY(session.log.hasLineWith("Ignored value"));
}

void UsersTest::refusals_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QString>("call");
    const auto row = [](const char* name, UserCommand command, const char* call) {
        QTest::newRow(name) << static_cast<int>(command) << call;
    };
    row("add error", UserCommand::Add, "modalAdminAddUserError();");
    row("add titleExists", UserCommand::Add, "modalAdminTitleExists();");
    row("add forbidden", UserCommand::Add, "modalForbiddenShow();");
    row("edit error", UserCommand::Edit, "modalAdminEditUserError();");
    row("edit titleExists", UserCommand::Edit, "modalAdminTitleExists();");
    row("edit forbidden", UserCommand::Edit, "modalForbiddenShow();");
    row("delete error", UserCommand::Delete, "");
    row("list error", UserCommand::List, "");
}

void UsersTest::refusals()
{
    QFETCH(int, command);
    QFETCH(QString, call);
    SessionFixture session;
    Rights::addUser(1, "boris");
    session.page.take();
    const QString word = QString(QTest::currentDataTag()).section(' ', 1);
    Fleet::answer(static_cast<UserCommand>(command), QJsonObject{{"name", "boris"}, {"title", "B"}},
                  {{"response", word}, {"users", QJsonArray()}});
    QCOMPARE(session.page.calls(), call.isEmpty() ? QStringList() : QStringList{call});
    QCOMPARE(Rights::users(), QStringList{"1 boris"});
    QCOMPARE(Data::getUserByName("boris")->getTitle(), QString());
    QCOMPARE(Fleet::takeRequests(), QStringList()); // a "forbidden" here says nothing of rights
}

QTEST_GUILESS_MAIN(UsersTest)
#include "UsersTest.moc"
