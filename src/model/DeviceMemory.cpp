#include "model/DeviceMemory.h"

#include "page/ScriptCall.h"

void Message::addToPage(int playing) const
{
    Page::call("wrapperInput_device_addMessage", deviceId, position, title, size, playing);
}

void Scenario::addToPage(int playing) const
{
    Page::call("wrapperInput_device_addScenario", deviceId, position, title, priority,
               positionGong + 1, positionMessage + 1, repeat, playing);
}
