#include "model/LineControl.h"

#include "app/Data.h"
#include "model/Device.h"
#include "page/ScriptCall.h"

void LineControl::setName(const QString& lineName)
{
    name = lineName;
    Page::call("wrapperInput_deviceLine_setName", deviceId, id, name);
}

void LineControl::setNew(bool isNewLine)
{
    newlyReported = isNewLine;
    if (const Device* const owner = Data::getDeviceById(deviceId)) {
        showRow("wrapperInput_deviceLine_setNew", owner->isLinesEditable());
    }
}

void LineControl::setState(LineControlState lineState)
{
    state = lineState;
    if (const Device* const owner = Data::getDeviceById(deviceId)) {
        showRow("wrapperInput_deviceLine_setState", owner->isLinesEditable());
        owner->updateLinesStatus();
    }
}

void LineControl::addToPage(bool editable) const
{
    Page::call("wrapperInput_deviceLine_add", deviceId, id, name, static_cast<int>(state),
               newlyReported, editable);
}

void LineControl::showRow(const char* script, bool editable) const
{
    Page::call(script, deviceId, id, static_cast<int>(state), newlyReported, editable);
}
