#include "simulator/commands/CommandTable.h"
#include "simulator/commands/MemoryEdit.h"
#include "simulator/commands/UnitRequest.h"
#include "simulator/state/Transport.h"
#include "simulator/state/UnitWork.h"

#include <algorithm>
#include <utility>

namespace simulator
{

namespace
{

constexpr int longestTitle = 32;
constexpr int applySeconds = 4;
constexpr int highestPriority = 100;
constexpr int longestRepeat = 86400; // seconds
constexpr int id3Header = 10;
constexpr int bitsOfSize = 7; // of each byte

template <class Entries> bool hasTitle(const Entries& entries, const QString& title)
{
    return std::any_of(entries.begin(), entries.end(),
                       [&title](const auto& entry) { return entry.title == title; });
}

uchar byteAt(const QByteArray& data, int place)
{
    return place < data.size() ? uchar(data.at(place)) : 0;
}

/// Where the sound begins behind the tags of an MP3.
int soundStart(const QByteArray& track)
{
    if (!track.startsWith("ID3")) {
        return 0;
    }
    int size = 0;
    for (int place = 6; place < id3Header; ++place) {
        size = (size << bitsOfSize) + (byteAt(track, place) & 0x7f);
    }
    return id3Header + size;
}

/// Whether a unit can play it: an MP3 of another rate than 44100 Hz isn't taken.
bool hasRightRate(const QByteArray& track)
{
    const int start = soundStart(track);
    const bool isFrame = byteAt(track, start) == 0xff && (byteAt(track, start + 1) & 0xe0) == 0xe0;
    return !isFrame ||
           ((byteAt(track, start + 1) & 0x18) == 0x18 && (byteAt(track, start + 2) & 0x0c) == 0);
}

const char* messageRefusal(const UnitMemory& memory, const QString& title, int size,
                           const QByteArray& track)
{
    if (!isTitle(title)) {
        return "error";
    }
    if (hasTitle(memory.messages, title)) {
        return "titleExists";
    }
    if (size <= 0 || size != track.size()) {
        return "incorrectSize";
    }
    if (size > memory.available) {
        return "littleMemory";
    }
    return hasRightRate(track) ? nullptr : "incorrectSampleRate";
}

QJsonObject addMessage(Context& context, const QJsonObject& request)
{
    Unit* unit = reachableUnitIn(context, request);
    const QString title = request.value("title").toString();
    const int size = request.value("size").toInt();
    const QByteArray track = QByteArray::fromBase64(request.value("track").toString().toLatin1());
    const char* word = editRefusal(context, unit);
    if (!word) {
        word = messageRefusal(unit->memory, title, size, track);
    }
    if (word) {
        return refusal(word);
    }
    beginEdit(context, *unit);
    unit->memory.messages.append({title, size});
    unit->memory.available -= size;
    return success({{"position", unit->memory.messages.size() - 1}, {"size", size}});
}

const char* scenarioRefusal(const UnitMemory& memory, const MemoryScenario& scenario)
{
    if (!isScenario(memory, scenario)) {
        return "error";
    }
    if (hasTitle(memory.scenarios, scenario.title)) {
        return "titleExists";
    }
    return memory.available < scenarioSize ? "littleMemory" : nullptr;
}

QJsonObject addScenario(Context& context, const QJsonObject& request)
{
    Unit* unit = reachableUnitIn(context, request);
    const MemoryScenario scenario{
        request.value("title").toString(), request.value("priority").toInt(-1),
        request.value("positionGong").toInt(-1), request.value("positionMessage").toInt(-1),
        request.value("repeat").toInt(-1)};
    const char* word = editRefusal(context, unit);
    if (!word) {
        word = scenarioRefusal(unit->memory, scenario);
    }
    if (word) {
        return refusal(word);
    }
    beginEdit(context, *unit);
    unit->memory.scenarios.append(scenario);
    unit->memory.available -= scenarioSize;
    return success({{"position", unit->memory.scenarios.size() - 1}});
}

bool isUsed(const UnitMemory& memory, int position)
{
    return std::any_of(memory.scenarios.begin(), memory.scenarios.end(),
                       [position](const MemoryScenario& scenario) {
                           return scenario.positionGong == position ||
                                  scenario.positionMessage == position;
                       });
}

/// The announcements follow the fragments that move up.
void takeMessage(UnitMemory& memory, int position)
{
    memory.available += memory.messages.takeAt(position).size;
    for (MemoryScenario& scenario : memory.scenarios) {
        scenario.positionGong -= int(scenario.positionGong > position);
        scenario.positionMessage -= int(scenario.positionMessage > position);
    }
}

/// Why the entry at a position of one of the lists can't be deleted, null when it can.
template <class Entry>
const char* deleteRefusal(Context& context, const Unit* unit, int position,
                          QVector<Entry> UnitMemory::*list)
{
    if (const char* word = editRefusal(context, unit)) {
        return word;
    }
    return position < 0 || position >= (unit->memory.*list).size() ? "error" : nullptr;
}

QJsonObject deleteMessage(Context& context, const QJsonObject& request)
{
    Unit* unit = reachableUnitIn(context, request);
    const int position = request.value("position").toInt(-1);
    if (const char* word = deleteRefusal(context, unit, position, &UnitMemory::messages)) {
        return refusal(word);
    }
    if (isUsed(unit->memory, position)) {
        return refusal("entry");
    }
    beginEdit(context, *unit);
    takeMessage(unit->memory, position);
    return success();
}

QJsonObject deleteScenario(Context& context, const QJsonObject& request)
{
    Unit* unit = reachableUnitIn(context, request);
    const int position = request.value("position").toInt(-1);
    if (const char* word = deleteRefusal(context, unit, position, &UnitMemory::scenarios)) {
        return refusal(word);
    }
    beginEdit(context, *unit);
    unit->memory.scenarios.remove(position);
    unit->memory.available += scenarioSize;
    return success();
}

QJsonObject applyToDevice(Context& context, const QJsonObject& request)
{
    Unit* unit = reachableUnitIn(context, request);
    if (const char* word = editRefusal(context, unit)) {
        return refusal(word);
    }
    unit->applyFailed = false;
    unit->applying = beginWork(*unit, applySeconds);
    return success();
}

QJsonObject getProgressOfApplying(Context& context, const QJsonObject& request)
{
    Unit* unit = unitIn(context, request);
    if (!unit) {
        return refusal("error");
    }
    const QDateTime now = QDateTime::currentDateTimeUtc();
    settleApplying(*unit, now);
    if (unit->applying) {
        return {{"response", "progress"}, {"progress", unit->applying->percent(now)}};
    }
    return unit->applyFailed ? refusal("error") : success();
}

QJsonObject revertChanges(Context& context, const QJsonObject& request)
{
    Unit* unit = reachableUnitIn(context, request);
    if (!unit) {
        return refusal("error");
    }
    if (unit->applying || unit->upgrade) {
        return refusal("busy");
    }
    if (unit->unedited) {
        beginEdit(context, *unit);
        unit->memory = *std::exchange(unit->unedited, std::nullopt);
    }
    return success();
}

} // namespace

bool isScenario(const UnitMemory& memory, const MemoryScenario& scenario)
{
    const auto isMessage = [&memory](int position) {
        return position >= 0 && position < memory.messages.size();
    };
    return isTitle(scenario.title) && isMessage(scenario.positionGong) &&
           isMessage(scenario.positionMessage) && scenario.priority >= 0 &&
           scenario.priority <= highestPriority && scenario.repeat >= 0 &&
           scenario.repeat <= longestRepeat;
}

const char* editRefusal(Context& context, const Unit* unit)
{
    if (!unit) {
        return "error";
    }
    if (unit->applying || unit->upgrade) {
        return "busy";
    }
    if (rankOn(context.installation(), unit->id) >= memoryRank) {
        return "playing";
    }
    const auto& presets = context.installation().presets;
    const bool isLocked = std::any_of(presets.begin(), presets.end(), [unit](const Preset& preset) {
        return (preset.type == "message" || preset.type == "scenario") &&
               preset.targets.units.contains(unit->id);
    });
    return isLocked ? "lockedByPreset" : nullptr;
}

void beginEdit(Context& context, Unit& unit)
{
    if (!unit.unedited) {
        unit.unedited = unit.memory;
    }
    Push push = makePush("device", "reloadChanges", {{"id", unit.id}});
    push.aboutUnit = unit.id;
    context.pushToOthers(std::move(push));
}

Commands memoryEditingCommands()
{
    const QLatin1String device("device");
    const Need administration{Right::Devices, Level::Administration};
    return {
        {device, QLatin1String("addMessage"), administration, addMessage},
        {device, QLatin1String("addScenario"), administration, addScenario},
        {device, QLatin1String("deleteMessage"), administration, deleteMessage},
        {device, QLatin1String("deleteScenario"), administration, deleteScenario},
        {device, QLatin1String("applyToDevice"), administration, applyToDevice},
        {device, QLatin1String("getProgressOfApplying"), administration, getProgressOfApplying},
        {device, QLatin1String("revertChanges"), administration, revertChanges},
    };
}

} // namespace simulator
