#pragma once

#include "simulator/commands/Context.h"

#include <QJsonObject>

#include <vector>

namespace simulator
{

/// One command of the wire: its two names, the right it takes, and what answers it. The handler
/// gives the whole reply but its order.
struct Command {
    QLatin1String protocol;
    QLatin1String action;
    Need need;
    QJsonObject (*handle)(Context& context, const QJsonObject& request);
};

using Commands = std::vector<Command>;

/// The commands of each protocol, in a file of its own.
Commands userCommands();
Commands userEditingCommands();
Commands roleCommands();
Commands roleEditingCommands();
Commands helperCommands();
Commands serverCommands();
Commands logCommands();
Commands deviceCommands();
Commands deviceSettingsCommands();
Commands deviceServiceCommands();
Commands deviceMemoryCommands();
Commands memoryEditingCommands();
Commands memoryImageCommands();
Commands firmwareCommands();
Commands zoneCommands();
Commands playbackCommands();
Commands playbackControlCommands();
Commands libraryCommands();
Commands redirectionCommands();
Commands presetCommands();
Commands taskCommands();

/// The reply to a request: "error" for an unknown command and for all but the login before the
/// login, "forbidden" without the right, else what the command's handler says.
QJsonObject answer(Context& context, const QJsonObject& request);

/// A reply with `response` "success" and these fields.
QJsonObject success(QJsonObject fields = {});
/// A reply that says nothing but this word.
QJsonObject refusal(const char* word);

/// Whether something may be called so: 1 to 32 characters.
bool isTitle(const QString& title);

} // namespace simulator
