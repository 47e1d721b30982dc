#include "simulator/commands/CommandTable.h"
#include "simulator/commands/MemoryEdit.h"
#include "simulator/commands/UnitRequest.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <numeric>
#include <optional>

// An image is a line of JSON that tells the entries, and behind it as many bytes as they take.

namespace simulator
{

namespace
{

QByteArray imageOf(const UnitMemory& memory)
{
    QJsonArray messages;
    for (const MemoryMessage& message : memory.messages) {
        messages.append(QJsonObject{{"title", message.title}, {"size", message.size}});
    }
    QJsonArray scenarios;
    for (const MemoryScenario& scenario : memory.scenarios) {
        scenarios.append(QJsonArray{scenario.title, scenario.priority, scenario.positionGong,
                                    scenario.positionMessage, scenario.repeat});
    }
    const QJsonObject entries{{"messages", messages}, {"scenarios", scenarios}};
    return QJsonDocument(entries).toJson(QJsonDocument::Compact) + '\n' +
           QByteArray(int(usedBy(memory)), '\0');
}

bool isSound(const UnitMemory& memory)
{
    return std::all_of(memory.messages.begin(), memory.messages.end(),
                       [](const MemoryMessage& message) {
                           return isTitle(message.title) && message.size > 0;
                       }) &&
           std::all_of(
               memory.scenarios.begin(), memory.scenarios.end(),
               [&memory](const MemoryScenario& scenario) { return isScenario(memory, scenario); });
}

/// Nothing for what is no image.
std::optional<UnitMemory> memoryIn(const QByteArray& image)
{
    const int lineEnd = image.indexOf('\n');
    const QJsonDocument entries = QJsonDocument::fromJson(image.left(std::max(0, lineEnd)));
    if (lineEnd < 0 || !entries.object().value("messages").isArray()) {
        return std::nullopt;
    }
    UnitMemory memory;
    const QJsonArray messages = entries["messages"].toArray();
    for (const QJsonValue& message : messages) {
        memory.messages.append({message["title"].toString(), message["size"].toInt()});
    }
    const QJsonArray scenarios = entries["scenarios"].toArray();
    for (const QJsonValue& scenario : scenarios) {
        memory.scenarios.append({scenario[0].toString(), scenario[1].toInt(), scenario[2].toInt(),
                                 scenario[3].toInt(), scenario[4].toInt()});
    }
    const bool isWhole = image.size() - lineEnd - 1 == usedBy(memory);
    return isWhole && isSound(memory) ? std::optional<UnitMemory>(memory) : std::nullopt;
}

QJsonObject downloadImage(Context& context, const QJsonObject& request)
{
    const Unit* unit = reachableUnitIn(context, request);
    if (!unit) {
        return refusal("error");
    }
    if (unit->applying || unit->upgrade) {
        return refusal("busy");
    }
    return success({{"image", QString::fromLatin1(imageOf(unit->memory).toBase64())}});
}

QJsonObject uploadImage(Context& context, const QJsonObject& request)
{
    Unit* unit = reachableUnitIn(context, request);
    if (const char* word = editRefusal(context, unit)) {
        return refusal(word);
    }
    std::optional<UnitMemory> memory =
        memoryIn(QByteArray::fromBase64(request.value("image").toString().toLatin1()));
    if (!memory) {
        return refusal("error");
    }
    const qint64 room = unit->memory.available + usedBy(unit->memory) - usedBy(*memory);
    if (room < 0) {
        return refusal("littleMemory");
    }
    beginEdit(context, *unit);
    memory->available = int(room);
    unit->memory = *memory;
    return success();
}

} // namespace

qint64 usedBy(const UnitMemory& memory)
{
    return std::accumulate(
        memory.messages.begin(), memory.messages.end(),
        qint64(memory.scenarios.size()) * scenarioSize,
        [](qint64 sum, const MemoryMessage& message) { return sum + message.size; });
}

Commands memoryImageCommands()
{
    const QLatin1String device("device");
    const Need administration{Right::Devices, Level::Administration};
    return {
        {device, QLatin1String("downloadImage"), administration, downloadImage},
        {device, QLatin1String("uploadImage"), administration, uploadImage},
    };
}

} // namespace simulator
