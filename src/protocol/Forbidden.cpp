#include "protocol/Forbidden.h"

#include "app/Data.h"
#include "network/NetworkParser.h"
#include "page/ScriptCall.h"
#include "protocol/Reply.h"

#include <algorithm>
#include <array>

namespace Forbidden
{

namespace
{

/// How the names begin of commands that only read.
constexpr std::array readingPrefixes = {"get", "list", "check", "load"};

bool hasOwnDialog(const QString& protocol, const QString& command)
{
    return (protocol == QLatin1String("role") && command.startsWith(QLatin1String("set"))) ||
           (protocol == QLatin1String("playback") && command == QLatin1String("stopRedirection"));
}

} // namespace

bool isTold(const QString& protocol, const QString& command)
{
    const bool reads =
        std::any_of(readingPrefixes.begin(), readingPrefixes.end(),
                    [&](const char* prefix) { return command.startsWith(QLatin1String(prefix)); });
    return !reads && !hasOwnDialog(protocol, command);
}

bool isAnswer(const QJsonObject& reply)
{
    return response(reply) == QLatin1String("forbidden");
}

void tell(const QJsonObject& reply)
{
    if (isAnswer(reply) && Data::parser.currentCause() == Cause::Operator) {
        Page::call("modalForbiddenShow");
    }
}

} // namespace Forbidden
