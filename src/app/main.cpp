#include "app/Configuration.h"
#include "app/Data.h"
#include "app/InterruptWatch.h"
#include "app/Wiring.h"
#include "log/Log.h"
#include "log/LogSettings.h"
#include "media/AudioManager.h"
#include "media/PlaybackUpdater.h"
#include "model/ServerList.h"
#include "model/ZoneType.h"
#include "network/TcpClient.h"
#include "page/ScriptCall.h"
#include "view/WebView.h"

#include <QApplication>
#include <QFile>
#include <QSettings>

namespace
{

void readCommandLine()
{
    const QStringList arguments = QCoreApplication::arguments();
    for (const QString& argument : arguments) {
        Log::message(QStringLiteral("Command line argument: ") + argument);
        if (argument == QLatin1String("--debug")) {
            Log::message("Debug mode enabled");
            Data::debugMode = true;
        }
    }
}

void logStart()
{
    Log::message("Program started");
    Log::message("Program started debug", LogLevel::Debug);
    Log::message(QStringLiteral("Program version: ") + Data::clientVersion);
    Log::message(QStringLiteral("Load config: ") + Data::settings->fileName());
}

void readConfiguration()
{
    Configuration::completeSettings(*Data::settings);
    Data::blockStatus = Data::settings->value(QStringLiteral("admin/block_enable"), false).toBool();
    Configuration::readLogSwitches(*Data::settings, *Data::logSettings);
}

void loadServerList()
{
    if (!QFile::exists(Configuration::serverFile())) {
        Data::serverList->saveList();
    }
    Data::serverList->loadList();
}

} // namespace

int main(int argc, char* argv[])
{
    Q_INIT_RESOURCE(web);
    QApplication application(argc, argv);
    Data::app = &application;
    Configuration::makeFolders();
    QSettings settings(Configuration::configFile(), QSettings::IniFormat);
    settings.setIniCodec("UTF-8");
    Data::settings = &settings;
    LogSettings logSettings;
    Data::logSettings = &logSettings;
    Log::logger().setPort(&Data::localPort);
    Log::logger().setConfig(&settings);
    Log::logger().setDebug(&Data::debugMode);
    Log::logger().setSettings(&logSettings);
    const InterruptWatch interruptWatch;
    readCommandLine();
    logStart();
    readConfiguration();

    const PlaybackUpdater playbackUpdater;
    ServerList serverList(Configuration::serverFile());
    Data::serverList = &serverList;
    loadServerList();
    Data::zoneTypeList = {ZoneType(0, QStringLiteral("physical"), 0),
                          ZoneType(1, QStringLiteral("logical"), 1)};
    Wiring::joinNetwork();
    Data::tcpClient.setFingerprintFile(Configuration::fingerprintFile());
    AudioManager audioManager;
    Data::audioManager = &audioManager;
    Wiring::joinAudio();
    WebView webView;
    Data::webView = &webView;
    Wiring::joinView();

    QApplication::exec();

    audioManager.release();
    Data::tcpClient.close();
    Log::message("Program finished");
    Log::message(QString(82, QLatin1Char('-')));
    Page::setSink({});
    return 0;
}
