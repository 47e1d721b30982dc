#include "rights/Rights.h"

#include <QTest>

#include <functional>

/// What a role tells the pages when its rights are set.
class RoleTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void newRoleManagesUnitsOnly();
    void setterTellsThePages_data();
    void setterTellsThePages();
    void unchangedRightIsToldAgain_data();
    void unchangedRightIsToldAgain();
    void onlyAdministrationIsARight_data();
    void onlyAdministrationIsARight();
    void listsOpenByTheRightsOfTheOperator();
    void anyManagementRightShowsTheAdministration();
};

namespace
{

using Change = std::function<void(Role&)>;

/// Every setter of a right, in the order of the list below.
const QVector<QPair<QString, Change>> setters{
    {"ServerManagement", [](Role& role) { role.setServerManagement(true); }},
    {"UserManagement", [](Role& role) { role.setUserManagement(true); }},
    {"ZoneManagement", [](Role& role) { role.setZoneManagement(true); }},
    {"RoleManagement", [](Role& role) { role.setRoleManagement("administration"); }},
    {"DeviceManagement", [](Role& role) { role.setDeviceManagement("administration"); }},
    {"PlaybackManagement", [](Role& role) { role.setPlaybackManagement("administration"); }},
    {"ScheduleManagement", [](Role& role) { role.setScheduleManagement("administration"); }},
    {"PresetManagement", [](Role& role) { role.setPresetManagement("administration"); }},
    {"Microphone", [](Role& role) { role.setBroadcastMicrophoneAccess(true); }},
    {"MicrophoneAlarm", [](Role& role) { role.setBroadcastAlarmAccess(true); }},
};

const QString enable = "wrapperInput_roleGlobal_enable();";

/// The two calls of a setter on a role: of any role, and of the operator's own.
QStringList callsOf(const QString& right, const QString& role, bool isOwn)
{
    static const QStringList withLists{"ZoneManagement", "PlaybackManagement", "ScheduleManagement",
                                       "PresetManagement"};
    const bool isBroadcast = right.startsWith("Microphone");
    QStringList calls{QString("wrapperInput_role_edit%1(%2,1%3);")
                          .arg(right, role, withLists.contains(right) ? ",0" : "")};
    if (isOwn) {
        calls.insert(isBroadcast ? 0 : 1,
                     QString("wrapperInput_roleGlobal_edit%1(%2,1);").arg(right, role));
    }
    if (isOwn && !isBroadcast) {
        calls.append(enable);
    }
    return calls;
}

void addSetterRows()
{
    QTest::addColumn<int>("setter");
    for (int index = 0; index < setters.size(); ++index) {
        QTest::newRow(qPrintable(setters.at(index).first)) << index;
    }
}

} // namespace

void RoleTest::newRoleManagesUnitsOnly()
{
    const SessionFixture session;
    const Role role;
    QVERIFY(role.getDeviceManagement());
    for (const bool right :
         {role.getServerManagement(), role.getUserManagement(), role.getRoleManagement(),
          role.getZoneManagement(), role.getPlaybackManagement(), role.getScheduleManagement(),
          role.getPresetManagement(), role.getBroadcastAlarmAccess(),
          role.getBroadcastMicrophoneAccess(), role.getBroadcastExternalAccess()}) {
        QVERIFY(!right);
    }
}

void RoleTest::setterTellsThePages_data()
{
    addSetterRows();
}

void RoleTest::setterTellsThePages()
{
    QFETCH(int, setter);
    SessionFixture session;
    Role& own = Rights::addOwnRole();
    Role& other = Rights::addRole(4, "night");
    session.page.take();
    setters.at(setter).second(own);
    QCOMPARE(session.page.take(), callsOf(setters.at(setter).first, "0,\"guard\"", true));
    setters.at(setter).second(other);
    QCOMPARE(session.page.take(), callsOf(setters.at(setter).first, "4,\"night\"", false));
}

void RoleTest::unchangedRightIsToldAgain_data()
{
    addSetterRows();
}

void RoleTest::unchangedRightIsToldAgain()
{
    QFETCH(int, setter);
    SessionFixture session;
    Role& own = Rights::addOwnRole();
    setters.at(setter).second(own);
    const QStringList first = session.page.take();
    setters.at(setter).second(own);
    // The plain switches keep still, but for the entry of the administration.
    const QStringList bools{"ServerManagement", "UserManagement", "ZoneManagement"};
    QCOMPARE(session.page.take(),
             bools.contains(setters.at(setter).first) ? QStringList{enable} : first);
}

void RoleTest::onlyAdministrationIsARight_data()
{
    QTest::addColumn<QString>("level");
    QTest::addColumn<int>("number");
    for (const char* const level : {"unavailable", "", "Administration", "true"}) {
        QTest::newRow(level) << level << 0;
    }
    QTest::newRow("read") << "read" << 1;
    QTest::newRow("control") << "control" << 2;
    QTest::newRow("administration") << "administration" << 3;
}

void RoleTest::onlyAdministrationIsARight()
{
    QFETCH(QString, level);
    QFETCH(int, number);
    const SessionFixture session;
    Role role;
    role.setRoleManagement(level);
    role.setDeviceManagement(level);
    role.setPlaybackManagement(level);
    role.setScheduleManagement(level);
    role.setPresetManagement(level);
    QCOMPARE(Role::getType(level), number);
    QCOMPARE(role.getRoleManagement(), number == 3);
    QCOMPARE(role.getDeviceManagement(), number == 3);
    QCOMPARE(role.getPlaybackManagement(), number == 3);
    QCOMPARE(role.getScheduleManagement(), number == 3);
    QCOMPARE(role.getPresetManagement(), number == 3);
}

/// The zone right tells of the lists as they were, the others as they are.
void RoleTest::listsOpenByTheRightsOfTheOperator()
{
    SessionFixture session;
    Role& own = Rights::addOwnRole();
    Role& other = Rights::addRole(4, "night");
    own.setPlaybackManagement("administration");
    own.setPresetManagement("administration");
    own.setScheduleManagement("administration");
    session.page.take();
    own.setZoneManagement(true);
    QCOMPARE(session.page.take().first(),
             QString("wrapperInput_role_editZoneManagement(0,\"guard\",1,0);"));
    other.setZoneManagement(true);
    QCOMPARE(session.page.take().first(),
             QString("wrapperInput_role_editZoneManagement(4,\"night\",1,1);"));
    own.setPresetManagement("read");
    QCOMPARE(session.page.take().first(),
             QString("wrapperInput_role_editPresetManagement(0,\"guard\",0,0);"));
}

void RoleTest::anyManagementRightShowsTheAdministration()
{
    SessionFixture session;
    Role& own = Rights::addOwnRole();
    own.setBroadcastAlarmAccess(true);
    own.setDeviceManagement("control");
    QCOMPARE(session.page.take().last(), QString("wrapperInput_roleGlobal_disable();"));
    own.setPresetManagement("administration"); // the last of the eight
    QCOMPARE(session.page.take().last(), enable);
}

QTEST_GUILESS_MAIN(RoleTest)
#include "RoleTest.moc"
