#include "model/MemoryEntries.h"

#include "app/Data.h"
#include "page/ScriptCall.h"

#include <algorithm>

namespace
{

template <class Entry> QVector<Entry> entriesOfDevice(const QVector<Entry>& list, int deviceId)
{
    QVector<Entry> result;
    std::copy_if(list.begin(), list.end(), std::back_inserter(result),
                 [=](const Entry& entry) { return entry.deviceId == deviceId; });
    return result;
}

template <class Entry>
void deleteEntry(QVector<Entry>& list, int deviceId, int position, const char* renumberScript)
{
    list.erase(std::remove_if(list.begin(), list.end(),
                              [=](const Entry& entry) {
                                  return entry.deviceId == deviceId && entry.position == position;
                              }),
               list.end());
    for (Entry& entry : list) {
        if (entry.deviceId == deviceId && entry.position >= position) {
            Page::call(renumberScript, deviceId, entry.position, entry.position - 1);
            --entry.position;
        }
    }
}

template <class Entry>
void deleteEntries(QVector<Entry>& list, int deviceId, const char* deleteScript,
                   const char* renumberScript)
{
    const auto ofDevice = [=](const Entry& entry) { return entry.deviceId == deviceId; };
    auto entry = std::find_if(list.begin(), list.end(), ofDevice);
    while (entry != list.end()) {
        const int position = entry->position;
        Page::call(deleteScript, deviceId, position);
        deleteEntry(list, deviceId, position, renumberScript);
        entry = std::find_if(list.begin(), list.end(), ofDevice);
    }
}

} // namespace

QVector<Message> MemoryEntries::getDeviceMessages(int deviceId)
{
    return entriesOfDevice(Data::messageList, deviceId);
}

QVector<Scenario> MemoryEntries::getDeviceScenarios(int deviceId)
{
    return entriesOfDevice(Data::scenarioList, deviceId);
}

void MemoryEntries::deleteDeviceMessage(int deviceId, int position)
{
    deleteEntry(Data::messageList, deviceId, position, "wrapperInput_device_setMessageId");
}

void MemoryEntries::deleteDeviceScenario(int deviceId, int position)
{
    deleteEntry(Data::scenarioList, deviceId, position, "wrapperInput_device_setScenarioId");
}

void MemoryEntries::deleteDeviceMessages(int deviceId)
{
    deleteEntries(Data::messageList, deviceId, "wrapperInput_device_deleteMessage",
                  "wrapperInput_device_setMessageId");
}

void MemoryEntries::deleteDeviceScenarios(int deviceId)
{
    deleteEntries(Data::scenarioList, deviceId, "wrapperInput_device_deleteScenario",
                  "wrapperInput_device_setScenarioId");
}
