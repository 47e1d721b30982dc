#include "model/ModelList.h"
#include "model/ServerSettings.h"
#include "model/User.h"
#include "support/PageRecorder.h"

#include <QRandomGenerator>
#include <QTest>

namespace
{

/// An element that tells whether it has been destroyed.
class Item
{
public:
    explicit Item(int itemId) : id(itemId) { ++alive; }
    ~Item() { --alive; }
    Item(const Item&) = delete;
    Item& operator=(const Item&) = delete;
    int getId() const { return id; }

    int id;
    static int alive;
};

int Item::alive = 0;

void append(ModelList<Item>& list, int id)
{
    list.append(std::make_unique<Item>(id));
}

QStringList scripts(std::initializer_list<const char*> texts)
{
    QStringList result;
    for (const char* const text : texts) {
        result.append(QString::fromUtf8(text));
    }
    return result;
}

} // namespace

class ModelTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void listAgreesWithAPlainSearch();
    void listFreesItsObjects();
    void serverSettingsTellChangesOnly();
    void selectedInterfaceIsTheOnlyOne();
    void userSettersTellThePage();
};

void ModelTest::listAgreesWithAPlainSearch()
{
    QRandomGenerator random(20261118);
    ModelList<Item> list;
    for (int step = 0; step < 3000; ++step) {
        const int id = random.bounded(12);
        if (random.bounded(3) > 0) {
            append(list, id);
        } else if (!list.isEmpty()) {
            list.remove(list.at(random.bounded(list.size())));
        }
        if (random.bounded(200) == 0) {
            list.clear();
        }
        QCOMPARE(list.find(id), list.findIf([id](const Item& item) { return item.id == id; }));
    }
}

void ModelTest::listFreesItsObjects()
{
    QCOMPARE(Item::alive, 0);
    {
        ModelList<Item> list;
        append(list, 1);
        append(list, 1);
        append(list, 2);
        list.remove(list.at(0));
        QCOMPARE(Item::alive, 2);
        const Item stranger(1);
        list.remove(&stranger);
        QCOMPARE(list.size(), 2);
        list.clear();
        QCOMPARE(Item::alive, 1);
        QCOMPARE(list.find(1), nullptr);
        QCOMPARE(list.last(), nullptr);
        append(list, 1);
    }
    QCOMPARE(Item::alive, 0);
}

void ModelTest::serverSettingsTellChangesOnly()
{
    PageRecorder page;
    ServerSettings settings;
    for (int round = 0; round < 2; ++round) {
        settings.setMulticastIp(QStringLiteral("224.0.0.9"));
        settings.setCommandPort(11191);
        settings.setServerVersion(QStringLiteral("2.1"));
        settings.setAvailableServerVersion(QStringLiteral("2.2"));
        settings.setInternetStatus(true);
    }
    QCOMPARE(page.take(), scripts({"wrapperInput_server_editMulticastAddress(\"224.0.0.9\");",
                                   "wrapperInput_server_editCommandPort(11191);",
                                   "wrapperInput_server_setServerVersion(\"2.1\");",
                                   "wrapperInput_server_setAvailableServerVersion(\"2.2\");",
                                   "wrapperInput_server_setInternetStatus(1);"}));
    settings.setInternetStatus(false);
    QCOMPARE(page.take(), scripts({"wrapperInput_server_setInternetStatus(0);"}));
    // What a console starts with is no change.
    ServerSettings fresh;
    fresh.setMulticastIp(QStringLiteral("224.0.224.1"));
    fresh.setCommandPort(11190);
    fresh.setInternetStatus(false);
    QCOMPARE(page.take(), QStringList());
}

void ModelTest::selectedInterfaceIsTheOnlyOne()
{
    PageRecorder page;
    ServerSettings settings;
    settings.getInterfaces() = {{QStringLiteral("10.0.0.1"), QString(), false},
                                {QStringLiteral("10.0.0.2"), QString(), false}};
    QCOMPARE(settings.getSelectedInterface(), nullptr);
    settings.setSelectedInterface(QStringLiteral("10.0.0.1"));
    settings.setSelectedInterface(QStringLiteral("10.0.0.2"));
    QCOMPARE(settings.getSelectedInterface()->ip, QStringLiteral("10.0.0.2"));
    QCOMPARE(page.take(), scripts({"wrapperInput_server_selectInterface(\"10.0.0.1\");",
                                   "wrapperInput_server_selectInterface(\"10.0.0.2\");"}));
    settings.setSelectedInterface(QStringLiteral("10.0.0.3"));
    QCOMPARE(settings.getSelectedInterface(), nullptr);
    QCOMPARE(page.take(), QStringList());
}

void ModelTest::userSettersTellThePage()
{
    PageRecorder page;
    User user;
    user.setId(3);
    user.setName(QStringLiteral("anna"));
    user.setTitle(QStringLiteral("Anna \"A\""));
    user.setName(QStringLiteral("anna"));
    user.setTitle(QStringLiteral("Anna \"A\""));
    user.setStatus(true);
    user.setStatus(true);
    user.setStatus(false);
    QCOMPARE(page.take(), scripts({"wrapperInput_user_edit(3,\"anna\",\"\");",
                                   "wrapperInput_user_edit(3,\"anna\",\"Anna \\\"A\\\"\");",
                                   "wrapperInput_user_login(3);", "wrapperInput_user_login(3);",
                                   "wrapperInput_user_logout(3);"}));
    // The header shows the logged-in user's title, changed or not.
    user.setCurrent(true);
    user.setTitle(QStringLiteral("Anna \"A\""));
    QCOMPARE(page.take(), scripts({"wrapperInput_userGlobal_edit(\"Anna \\\"A\\\"\");"}));
}

QTEST_GUILESS_MAIN(ModelTest)
#include "ModelTest.moc"
