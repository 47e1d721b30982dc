#include "protocol/DeviceState.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "model/DeviceWords.h"
#include "model/ModelList.h"
#include "network/Fields.h"
#include "protocol/Reply.h"
#include "protocol/Request.h"

#include <QSet>
#include <QVector>

namespace DeviceState
{

namespace
{

/// One line as a unit reports it.
struct ReportedLine {
    quint8 id;
    QString title;
    LineControlState state;
    bool isNew;
};

std::optional<ReportedLine> readLine(const QJsonObject& element)
{
    const auto id = Fields::integer(element, "tipId");
    const auto title = Fields::text(element, "title");
    const auto state = Fields::text(element, "state");
    const auto isNew = Fields::boolean(element, "new");
    if (!id || *id < 0 || *id > std::numeric_limits<quint8>::max() || !title || !state || !isNew) {
        return std::nullopt;
    }
    return ReportedLine{static_cast<quint8>(*id), *title,
                        *state == QLatin1String("ok") ? LineControlState::InOrder
                                                      : LineControlState::AtFault,
                        *isNew};
}

/// The address of an element alone keeps a known line from being taken away, even where the rest
/// of the element can't be read.
QSet<int> namedLines(const QJsonArray& elements)
{
    QSet<int> result;
    for (const QJsonValue& element : elements) {
        if (const auto id = Fields::integer(element.toObject(), "tipId")) {
            result.insert(*id);
        }
    }
    return result;
}

void removeLinesExcept(Device& device, const QSet<int>& named)
{
    auto& lines = device.getLines();
    for (auto line = lines.begin(); line != lines.end();) {
        if (named.contains(line->first)) {
            ++line;
            continue;
        }
        Page::call("wrapperInput_deviceLine_delete", device.getId(), line->first);
        line = lines.erase(line);
    }
}

void addLine(Device& device, const ReportedLine& reported)
{
    LineControl line(device.getId());
    line.setId(reported.id);
    line.setName(reported.title);
    line.setState(reported.state);
    line.setNew(reported.isNew);
    device.getLines().emplace(reported.id, line);
    line.addToPage(device.isLinesEditable());
}

void mergeLine(Device& device, const ReportedLine& reported)
{
    const auto known = device.getLines().find(reported.id);
    if (known == device.getLines().end()) {
        addLine(device, reported);
        return;
    }
    LineControl& line = known->second;
    line.setName(reported.title);
    line.setState(reported.state);
    line.setNew(reported.isNew);
}

} // namespace

Device* requested(const QJsonObject& reply)
{
    const auto id = Fields::integer(request(reply), "id");
    Device* const device = id ? Data::getDeviceById(*id) : nullptr;
    if (!device) {
        Log::dropped(QStringLiteral("Ignored reply: unknown device %1").arg(id.value_or(0)));
    }
    return device;
}

void showRead(const Device& device)
{
    if (device.isRead()) {
        Page::call("wrapperInput_device_setRead", device.getId());
    }
}

void readVersions(FieldSetter<Device>& message)
{
    message.text("versionMainText", &Device::setVersionMainText);
    const QString main = Fields::text(message.message(), "versionMain").value_or(QString());
    message.text("versionPSS", [&](const QString& pss) {
        message.object().setVersionMain(main, pss);
        message.object().setVersionPss(pss);
    });
    message.text("versionLC", &Device::setVersionLnCtrl);
}

void readLink(FieldSetter<Device>& message)
{
    message.word("link", DeviceWords::link, &Device::setStatus);
}

void readBattery(FieldSetter<Device>& message)
{
    message.word("battery", DeviceWords::battery, [&](const BatteryReport& report) {
        message.object().setPower(report.power);
        message.object().setBatteryStatus(report.status);
    });
}

void readBatteryLevel(FieldSetter<Device>& message)
{
    message.integer("batteryLevel", &Device::setBatteryLevel, 0, 100);
}

void readVolume(FieldSetter<Device>& message)
{
    message.integer("volume", &Device::setVolume, 0, 100);
}

std::optional<int> readPlayback(FieldSetter<Device>& message)
{
    std::optional<int> category;
    message.word("playback", DeviceWords::playback, [&](int number) { category = number; });
    return category;
}

bool isFromMemory(int playbackCategory)
{
    return playbackCategory == PlaybackCategory::MemoryMessage ||
           playbackCategory == PlaybackCategory::MemoryScenario;
}

void mergeLines(FieldSetter<Device>& message)
{
    Device& device = message.object();
    const auto elements = Fields::array(message.message(), "lines");
    if (!elements) {
        message.logIgnored("lines");
        device.updateLinesStatus(); // it also depends on the link
        return;
    }
    removeLinesExcept(device, namedLines(*elements));
    for (const QJsonValue& element : *elements) {
        if (const auto reported = readLine(element.toObject())) {
            mergeLine(device, *reported);
        } else {
            message.logIgnored("lines, one element");
        }
    }
    // A line that came or went, and the state of a unit without any, nobody has told of yet.
    device.updateLinesStatus();
}

int unreadCount()
{
    int count = 0;
    for (const Device& device : Data::deviceList) {
        count += device.getUnread() == UnreadPart::None ? 0 : 1;
    }
    return count;
}

void requestMemory(int deviceId)
{
    for (const DeviceCommand command :
         {DeviceCommand::GetMemoryStamp, DeviceCommand::GetAvailableMemory,
          DeviceCommand::ListMessages, DeviceCommand::ListScenarios}) {
        send(command, {{QStringLiteral("id"), deviceId}});
    }
}

} // namespace DeviceState
