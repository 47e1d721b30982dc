// From the bytes of the stream to objects in the hands of their handlers, against the JSON reader
// alone on the same objects.

#include "Measure.h"
#include "app/Data.h"
#include "log/Dropped.h"
#include "log/LogSettings.h"
#include "network/JsonStreamSplitter.h"
#include "network/NetworkParser.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSettings>

namespace
{

constexpr int readSize = 8 * 1024; // what the socket usually hands over at once

QJsonObject devicePush(int number)
{
    return {
        {"request", "device"},
        {"action", "setState"},
        {"order", number},
        {"deviceId", number % 1000},
        {"versionMainText", "2.4.18"},
        {"versionPSS", "1.7"},
        {"versionMain", "2.4"},
        {"versionLC", "1.12"},
        {"link", "bidirectional"},
        {"battery", "charging"},
        {"batteryLevel", number % 101},
        {"case", "close"},
        {"lines",
         QJsonArray{QJsonObject{
             {"id", 1}, {"title", QString::fromUtf8("Линия 1")}, {"state", "ok"}, {"new", false}}}},
        {"volume", number % 100},
        {"playback", "none"}};
}

QVector<QByteArray> manyPushes(int count)
{
    QVector<QByteArray> texts;
    for (int number = 0; number < count; ++number) {
        texts.append(QJsonDocument(devicePush(number)).toJson(QJsonDocument::Compact));
    }
    return texts;
}

/// A reply to request 0 with a list that fills the wanted size.
QVector<QByteArray> oneReply(int megabytes)
{
    const QByteArray element = QJsonDocument(devicePush(417)).toJson(QJsonDocument::Compact) + ',';
    QByteArray text = R"({"order":0,"response":"success","devices":[)";
    while (text.size() < megabytes * 1024 * 1024) {
        text += element;
    }
    text += R"({"id":1}]})";
    return {text};
}

/// Counts what arrives, and keeps the compiler from leaving the work out.
struct Arrivals {
    int objects = 0;
    int fields = 0;
};
Arrivals arrivals;

void take(const QJsonObject& message)
{
    ++arrivals.objects;
    arrivals.fields += message.size();
}

void registerHandlers()
{
    NetworkCommand command;
    command.setName(QStringLiteral("getDevices"));
    command.setFunction(take);
    auto protocol = std::make_unique<NetworkProtocol>();
    protocol->setName(QStringLiteral("device"));
    protocol->addNetworkCommand(command);
    Data::parser.addProtocol(std::move(protocol));
    Data::parser.setPushHandler(take);
    Data::parser.setAcknowledgementWriter(
        [](const QByteArray& text) { arrivals.fields += text.size(); });
}

void readOnly(const QVector<QByteArray>& texts)
{
    for (const QByteArray& text : texts) {
        take(QJsonDocument::fromJson(text).object());
    }
}

/// Feeds the stream as it comes off the socket and gives each object to `handle`.
template <class Handle> void split(const QByteArray& stream, Handle handle)
{
    JsonStreamSplitter splitter;
    for (int at = 0; at < stream.size(); at += readSize) {
        const int size = qMin(readSize, stream.size() - at);
        const Log::ReadLog oneRead;
        splitter.feed(QByteArray::fromRawData(stream.constData() + at, size));
        while (splitter.next() == JsonStreamSplitter::Found::Object) {
            handle(splitter.takeObject());
        }
    }
}

void dispatch(const QByteArray& stream)
{
    Data::parser.reset();
    Data::parser.writeJson({});
    split(stream, [](const QByteArray& text) { Data::parser.parse(text); });
}

void splitAndRead(const QByteArray& stream)
{
    split(stream, [](const QByteArray& text) { take(QJsonDocument::fromJson(text).object()); });
}

void readAndLog(const QVector<QByteArray>& texts)
{
    for (const QByteArray& text : texts) {
        take(QJsonDocument::fromJson(text).object());
        Log::message(QStringLiteral("Input packet: "));
    }
}

/// What a line that must be out at once costs at the very least.
void readAndWrite(const QVector<QByteArray>& texts)
{
    constexpr char line[] = "[51234] [18-11-2026 09:05:01.042] Input packet: \n";
    for (const QByteArray& text : texts) {
        take(QJsonDocument::fromJson(text).object());
        if (::write(STDOUT_FILENO, line, sizeof(line) - 1) < 0) {
            return;
        }
    }
}

/// The road without what its log lines add to the bare reader.
Measure::Way withoutLog(const std::vector<Measure::Way>& ways, const Measure::Way& logged)
{
    Measure::Way result{"the same, its log lines taken off", {}};
    for (std::size_t run = 0; run < logged.times.size(); ++run) {
        result.times.push_back(ways[1].times[run] - (logged.times[run] - ways[0].times[run]));
    }
    return result;
}

/// Ends the bench if an object has got lost: the figure of half the work is worth nothing.
double timed(int objects, const std::function<void()>& work)
{
    arrivals = {};
    const double time = Measure::seconds(work);
    if (arrivals.objects != objects) {
        std::fprintf(stderr, "%d of %d objects arrived\n", arrivals.objects, objects);
        std::exit(1);
    }
    return time;
}

std::vector<Measure::Way> streamWays(const QVector<QByteArray>& texts, const QByteArray& stream)
{
    const int count = texts.size();
    return {
        {"JSON reader alone", [=] { return timed(count, [&] { readOnly(texts); }); }},
        {"stream to handlers", [=] { return timed(count, [&] { dispatch(stream); }); }},
        {"splitter and JSON reader", [=] { return timed(count, [&] { splitAndRead(stream); }); }}};
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const int objects = Measure::option(argc, argv, "--objects", 100000);
    const int megabytes = Measure::option(argc, argv, "--megabytes", 50);
    const int repetitions = Measure::option(argc, argv, "--repetitions", 9);
    Measure::Report report;
    QSettings settings(report.path() + QStringLiteral("/config.ini"), QSettings::IniFormat);
    settings.setValue(QStringLiteral("path/log"), report.path());
    LogSettings switches;
    for (int level = LogLevel::Connect; level < LogLevel::End; ++level) {
        switches.set(level, true);
    }
    Log::logger().setConfig(&settings);
    Log::logger().setSettings(&switches);
    Log::logger().setDebug(&Data::debugMode);
    Log::logger().setPort(&Data::localPort);
    Data::localPort = 51234;
    registerHandlers();

    const QVector<QByteArray> pushes = manyPushes(objects);
    const QByteArray pushStream = pushes.toList().join();
    std::vector<Measure::Way> ways = streamWays(pushes, pushStream);
    ways.push_back({"JSON reader and the log line of a push",
                    [&] { return timed(objects, [&] { readAndLog(pushes); }); }});
    ways.push_back({"JSON reader and a bare write of that line",
                    [&] { return timed(objects, [&] { readAndWrite(pushes); }); }});
    Measure::interleave(ways, repetitions);
    ways.insert(ways.begin() + 2, withoutLog(ways, ways[3]));
    report.table("Many small pushes", ways, objects, "push");
    report.table("The same against a reader that writes the same", {ways.back(), ways[1]}, objects,
                 "push");

    const QVector<QByteArray> reply = oneReply(megabytes);
    std::vector<Measure::Way> largeWays = streamWays(reply, reply.first());
    Measure::interleave(largeWays, repetitions);
    report.table("One large reply", largeWays, megabytes, "MB");
    return 0;
}
