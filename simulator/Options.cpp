#include "simulator/Options.h"

#include <QCommandLineParser>
#include <QRandomGenerator>
#include <QStandardPaths>

namespace simulator
{

namespace
{

constexpr quint32 mostDevices = 100000;

/// An option's value as a whole number from 0 to `most`.
std::optional<quint32> number(const QCommandLineParser& parser, const QString& name, quint32 most,
                              QString* problem)
{
    bool valid = false;
    const quint32 value = parser.value(name).toUInt(&valid);
    if (!valid || value > most) {
        *problem = QString("--%1 takes a whole number from 0 to %2").arg(name).arg(most);
        return std::nullopt;
    }
    return value;
}

void describe(QCommandLineParser& parser)
{
    parser.setApplicationDescription(
        "A stand-in for the audio server, with an installation that exists only in it.");
    parser.addOptions({
        {"port", "TCP port of the server, 0 for a free one.", "port", "2049"},
        {"address", "Address to listen on.", "address", "127.0.0.1"},
        {"devices", "Number of units.", "count", "24"},
        {"quiet", "Nothing happens of itself, and no task starts; what plays still ends."},
        {"seed", "Repeats the installation and what happens in it.", "number"},
        {"announce-interface", "Network interface for the announcement.", "name|address",
         "127.0.0.1"},
        {"announce-port", "UDP port of the announcement.", "port",
         QString::number(announcementPort)},
        {"no-announce", "No announcement."},
        {"data", "Folder for the certificate.", "folder",
         QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)},
        {"samples", "Writes five MP3 files into a folder, to be uploaded.", "folder"},
    });
    parser.addHelpOption();
}

} // namespace

std::optional<Options> readOptions(const QStringList& arguments, QString* problem)
{
    QCommandLineParser parser;
    describe(parser);
    if (!parser.parse(arguments)) {
        *problem = parser.errorText();
        return std::nullopt;
    }
    if (parser.isSet("help")) {
        parser.showHelp();
    }
    if (!parser.positionalArguments().isEmpty()) {
        *problem = "Unexpected argument " + parser.positionalArguments().first();
        return std::nullopt;
    }
    Options options;
    const auto port = number(parser, "port", 65535, problem);
    const auto announcePort = number(parser, "announce-port", 65535, problem);
    const auto devices = number(parser, "devices", mostDevices, problem);
    const auto seed = parser.isSet("seed") ? number(parser, "seed", 0xffffffff, problem)
                                           : QRandomGenerator::global()->generate();
    if (!port || !announcePort || !devices || !seed) {
        return std::nullopt;
    }
    if (!options.address.setAddress(parser.value("address"))) {
        *problem = "--address takes an IP address";
        return std::nullopt;
    }
    options.port = quint16(*port);
    options.announcePort = quint16(*announcePort);
    options.devices = int(*devices);
    options.seed = *seed;
    options.quiet = parser.isSet("quiet");
    options.announce = !parser.isSet("no-announce");
    options.announceInterface = parser.value("announce-interface");
    options.dataFolder = parser.value("data");
    options.samplesFolder = parser.value("samples");
    return options;
}

} // namespace simulator
