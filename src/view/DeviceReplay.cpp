#include "view/DeviceReplay.h"

#include "app/Data.h"
#include "model/Device.h"
#include "model/ModelList.h"

#include <QTimer>

#include <algorithm>

void DeviceReplay::start(const Show& show)
{
    stop();
    showDevice = show;
    for (const Device& device : Data::deviceList) {
        waiting.append(device.getId());
    }
    std::reverse(waiting.begin(), waiting.end());
    showPortion();
}

void DeviceReplay::stop()
{
    ++round;
    waiting.clear();
}

void DeviceReplay::showPortion()
{
    for (int shown = 0; shown < portion && !waiting.isEmpty(); ++shown) {
        if (const Device* const device = Data::getDeviceById(waiting.takeLast())) {
            showDevice(*device);
        }
    }
    if (waiting.isEmpty()) {
        return;
    }
    const auto next = [this, turn = round] {
        if (turn == round) {
            showPortion();
        }
    };
    QTimer::singleShot(0, this, next); // a posted event would come before what the operator does
}
