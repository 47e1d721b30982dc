#include "simulator/fiction/People.h"

#include <QCryptographicHash>

namespace simulator
{

namespace
{

QString digest(const QString& password)
{
    return QString::fromLatin1(
        QCryptographicHash::hash(password.toUtf8(), QCryptographicHash::Md5).toHex());
}

template <typename Records> QVector<int> idsOf(const Records& records)
{
    QVector<int> ids;
    for (const auto& record : records) {
        ids.append(record.id);
    }
    return ids;
}

Role administrators()
{
    Role role;
    role.name = "admin";
    role.title = "Администраторы";
    role.server = role.users = role.zoneTree = true;
    role.roles = role.devices = role.playback = role.tasks = role.presets = Level::Administration;
    role.microphone = role.alarm = role.seesAll = true;
    return role;
}

Role operators(const Installation& installation)
{
    Role role;
    role.name = "operators";
    role.title = "Дежурные инженеры";
    role.zoneTree = true;
    role.devices = role.playback = role.tasks = role.presets = Level::Administration;
    role.microphone = role.alarm = true;
    role.zoneIds = idsOf(installation.zones);
    role.playlistIds = idsOf(installation.playlists);
    role.presetIds = idsOf(installation.presets);
    role.taskIds = idsOf(installation.tasks);
    return role;
}

Role guards()
{
    Role role;
    role.name = "guards";
    role.title = "Охрана";
    role.devices = role.playback = Level::Control;
    role.tasks = role.presets = Level::Read;
    role.microphone = role.alarm = true;
    role.zoneIds = {2, 3, 4, 6, 7, 10};
    role.playlistIds = {1, 21, 29, 4, 26, 34, 6, 27, 35, 7, 28};
    role.presetIds = {1};
    role.taskIds = {2};
    return role;
}

Role viewers()
{
    Role role;
    role.name = "viewers";
    role.title = "Наблюдатели";
    role.zoneIds = {2, 3, 4, 5, 8};
    role.playlistIds = {1, 21, 2, 22};
    role.taskIds = {1};
    return role;
}

} // namespace

void addPeople(Installation& installation)
{
    installation.roles = {administrators(), operators(installation), guards(), viewers()};
    const QString alarm = digest("alarm");
    for (const Account& account : {Account{"admin", "Администратор", "admin", {}, {}},
                                   Account{"operator", "Дежурный инженер", "operators", {}, {}},
                                   Account{"guard", "Охрана, пост 1", "guards", {}, {}},
                                   Account{"viewer", "Наблюдатель", "viewers", {}, {}}}) {
        installation.accounts.append(account);
        installation.accounts.last().password = digest(account.name);
        installation.accounts.last().alarmPassword = alarm;
    }
}

} // namespace simulator
