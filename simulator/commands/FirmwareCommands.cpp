#include "simulator/Server.h"
#include "simulator/commands/CommandTable.h"
#include "simulator/commands/UnitRequest.h"
#include "simulator/state/UnitWork.h"

#include <QCryptographicHash>
#include <QJsonArray>

#include <algorithm>

namespace simulator
{

namespace
{

constexpr int upgradeSeconds = 6;
constexpr int shortestFile = 532; // bytes
constexpr int firstNewMain = 3;

QJsonObject listFirmware(Context& context, const QJsonObject&)
{
    QJsonArray list;
    for (const FirmwareImage& image : context.installation().firmware) {
        list.append(QJsonObject{{"fileName", image.fileName}, {"version", image.version}});
    }
    return success({{"list", list}});
}

int byteAt(const QByteArray& file, int place)
{
    return uchar(file.at(place));
}

/// What the units make of a signed pair of bytes, low one first.
int wordAt(const QByteArray& file, int place)
{
    return quint16(int(qint8(file.at(place))) + 256 * int(qint8(file.at(place + 1))));
}

QString version(int a, int b, int c)
{
    return QString("%1.%2.%3").arg(a).arg(b).arg(c);
}

QString binaryVersion(const QByteArray& file)
{
    if (byteAt(file, 0x120) == 1) {
        return version(1, byteAt(file, 0x121), quint16(qint8(file.at(0x123))));
    }
    const int main = byteAt(file, 0x210);
    return main == 2 || main == 3 ? version(main, byteAt(file, 0x211), wordAt(file, 0x212))
                                  : QString();
}

/// By the header of its kind, empty for what is no firmware.
QString versionOf(const QString& fileName, const QByteArray& file)
{
    if (file.size() < shortestFile) {
        return {};
    }
    if (fileName.endsWith(".fc")) {
        return byteAt(file, 0x0c) == 1 ? version(1, byteAt(file, 0x0d), wordAt(file, 0x0e))
                                       : QString();
    }
    const bool isBinary = fileName.endsWith(".bin") || fileName.endsWith(".eff");
    return isBinary ? binaryVersion(file) : QString();
}

QByteArray contentIn(const QJsonObject& request)
{
    return QByteArray::fromBase64(request.value("firmware").toString().toLatin1());
}

QByteArray digestOf(const QByteArray& content)
{
    return QCryptographicHash::hash(content, QCryptographicHash::Sha256);
}

template <class Known> FirmwareImage* findImage(Context& context, Known isMeant)
{
    auto& all = context.installation().firmware;
    const auto place = std::find_if(all.begin(), all.end(), isMeant);
    return place == all.end() ? nullptr : &*place;
}

FirmwareImage* imageNamed(Context& context, const QString& name)
{
    return findImage(context,
                     [&name](const FirmwareImage& image) { return image.fileName == name; });
}

/// A file of the same name takes the place of the older one.
QJsonObject saveFirmware(Context& context, const QJsonObject& request)
{
    const QString name = request.value("fileName").toString();
    const QByteArray content = contentIn(request);
    const FirmwareImage image{name, versionOf(name, content), digestOf(content)};
    if (image.version.isEmpty() || name.contains('/')) {
        return refusal("error");
    }
    if (FirmwareImage* old = imageNamed(context, name)) {
        *old = image;
    } else {
        context.installation().firmware.append(image);
    }
    return success();
}

QJsonObject deleteFirmware(Context& context, const QJsonObject& request)
{
    const FirmwareImage* image = imageNamed(context, request.value("fileName").toString());
    if (!image) {
        return refusal("error");
    }
    context.installation().firmware.removeAt(int(image - context.installation().firmware.data()));
    return success();
}

/// A console saves what it sends, so what isn't known here is no firmware.
const FirmwareImage* imageIn(Context& context, const QJsonObject& request)
{
    if (request.contains("fileName")) {
        return imageNamed(context, request.value("fileName").toString());
    }
    const QByteArray digest = digestOf(contentIn(request));
    return findImage(context,
                     [&digest](const FirmwareImage& image) { return image.digest == digest; });
}

/// Starts the upgrade of one unit and gives its word.
const char* upgrade(Unit* unit, const FirmwareImage& image)
{
    if (!unit || unit->upgrade || unit->applying) {
        return "error";
    }
    const bool isNew = image.version.section('.', 0, 0).toInt() >= firstNewMain;
    if (isNew != unit->isNewGeneration()) {
        return "wrongVersion";
    }
    unit->upgradeFailed = false;
    unit->upgrade = Upgrade{beginWork(*unit, upgradeSeconds), image.version};
    return "success";
}

QJsonObject upgradeFirmware(Context& context, const QJsonObject& request)
{
    const QJsonArray ids = request.value("ids").toArray();
    const FirmwareImage* image = imageIn(context, request);
    QJsonArray list;
    for (const QJsonValue& id : ids) {
        Unit* unit = reachableUnitIn(context, {{"id", id}});
        list.append(QJsonObject{{"id", id},
                                {"response", image ? upgrade(unit, *image) : "incorrectFirmware"}});
    }
    if (ids.size() == 1) {
        return {{"response", list.first()["response"]}};
    }
    return ids.isEmpty() ? refusal("error") : success({{"list", list}});
}

QJsonObject getProgressOfUpgrading(Context& context, const QJsonObject& request)
{
    Unit* unit = unitIn(context, request);
    if (!unit) {
        return refusal("error");
    }
    const QDateTime now = QDateTime::currentDateTimeUtc();
    if (settleUpgrade(*unit, now)) {
        context.later(0, [id = unit->id](Server& server) { server.tellUnits({id}); });
    }
    if (unit->upgrade) {
        return {{"response", "progress"}, {"progress", unit->upgrade->work.percent(now)}};
    }
    return unit->upgradeFailed ? refusal("error") : success();
}

} // namespace

Commands firmwareCommands()
{
    const QLatin1String device("device");
    const Need administration{Right::Devices, Level::Administration};
    return {
        {device, QLatin1String("listFirmware"), {Right::Session}, listFirmware},
        {device, QLatin1String("saveFirmware"), administration, saveFirmware},
        {device, QLatin1String("deleteFirmware"), administration, deleteFirmware},
        {device, QLatin1String("upgradeFirmware"), administration, upgradeFirmware},
        {device, QLatin1String("getProgressOfUpgrading"), administration, getProgressOfUpgrading},
    };
}

} // namespace simulator
