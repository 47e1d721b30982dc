#include "simulator/commands/CommandTable.h"

#include "simulator/EventLog.h"

#include <QHash>

namespace simulator
{

namespace
{

using Key = QPair<QString, QString>;

QHash<Key, Command> makeTable()
{
    QHash<Key, Command> table;
    for (const auto& protocol :
         {userCommands(),          userEditingCommands(),     roleCommands(),
          roleEditingCommands(),   helperCommands(),          serverCommands(),
          logCommands(),           deviceCommands(),          deviceSettingsCommands(),
          deviceServiceCommands(), deviceMemoryCommands(),    memoryEditingCommands(),
          memoryImageCommands(),   firmwareCommands(),        zoneCommands(),
          playbackCommands(),      playbackControlCommands(), libraryCommands(),
          redirectionCommands(),   presetCommands(),          taskCommands()}) {
        for (const Command& command : protocol) {
            table.insert({command.protocol, command.action}, command);
        }
    }
    return table;
}

QJsonObject refuse(Context& context, const Key& names, const char* word, const char* why)
{
    qCInfo(events) << "Session" << context.session().number() << why << names.first << names.second;
    return refusal(word);
}

} // namespace

QJsonObject answer(Context& context, const QJsonObject& request)
{
    static const QHash<Key, Command> table = makeTable();
    const Key names{request.value("request").toString(), request.value("action").toString()};
    const auto command = table.constFind(names);
    if (command == table.constEnd()) {
        return refuse(context, names, "error", "asked for an unknown command");
    }
    if (command->need.right != Right::Anyone) {
        if (context.session().account().isEmpty()) {
            return refuse(context, names, "error", "is not logged in and asked for");
        }
        if (!context.role() || !context.access().allows(command->need)) {
            return refuse(context, names, "forbidden", "has no right to");
        }
    }
    return command->handle(context, request);
}

QJsonObject success(QJsonObject fields)
{
    fields.insert("response", "success");
    return fields;
}

QJsonObject refusal(const char* word)
{
    return {{"response", QLatin1String(word)}};
}

bool isTitle(const QString& title)
{
    constexpr int longest = 32;
    return !title.isEmpty() && title.size() <= longest;
}

} // namespace simulator
