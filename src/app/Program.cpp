#include "app/Program.h"

#include "app/Configuration.h"
#include "app/Data.h"
#include "log/Log.h"
#include "network/TcpClient.h"
#include "page/ScriptCall.h"
#include "protocol/DeviceMemoryEditing.h"
#include "protocol/ProtocolLog.h"
#include "protocol/Protocols.h"
#include "protocol/SessionHooks.h"

#include <QApplication>
#include <QFile>

namespace
{

void readCommandLine(const QStringList& arguments)
{
    for (const QString& argument : arguments) {
        Log::message(QStringLiteral("Command line argument: ") + argument);
        if (argument == QLatin1String("--debug")) {
            Log::message("Debug mode enabled");
            Data::debugMode = true;
        }
    }
}

void logStart(const QSettings& settings)
{
    Log::message("Program started");
    Log::message("Program started debug", LogLevel::Debug);
    Log::message(QStringLiteral("Program version: ") + Data::clientVersion);
    Log::message(QStringLiteral("Load config: ") + settings.fileName());
}

void readConfiguration(QSettings& settings, LogSettings& switches)
{
    Configuration::completeSettings(settings);
    Data::blockStatus = settings.value(QStringLiteral("admin/block_enable"), false).toBool();
    Configuration::readLogSwitches(settings, switches);
}

void joinLog(QSettings* settings, const LogSettings* switches)
{
    Logger& logger = Log::logger();
    logger.setPort(&Data::localPort);
    logger.setConfig(settings);
    logger.setDebug(&Data::debugMode);
    logger.setSettings(switches);
}

QString configurationFile()
{
    Configuration::makeFolders();
    return Configuration::configFile();
}

} // namespace

Program::Basis::Basis(const QStringList& arguments)
    : settings(configurationFile(), QSettings::IniFormat)
{
    Q_INIT_RESOURCE(web);
    Data::app = qApp;
    Data::debugMode = false;
    settings.setIniCodec("UTF-8");
    Data::settings = &settings;
    Data::logSettings = &logSettings;
    joinLog(&settings, &logSettings);
    readCommandLine(arguments);
    logStart(settings);
    readConfiguration(settings, logSettings);
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Пульт управления вещанием"));
}

Program::Basis::~Basis()
{
    Log::message("Program finished");
    Log::message(QString(82, QLatin1Char('-')));
    joinLog(nullptr, nullptr);
    Data::settings = nullptr;
    Data::logSettings = nullptr;
}

Program::Program(const QStringList& arguments)
    : basis(arguments),
      serverList(Configuration::serverFile()),
      webView({scriptPipe, discovery, idleLock, folderBrowser, upload, fileWork, logFeed})
{
    if (!QFile::exists(Configuration::serverFile())) {
        serverList.saveList();
    }
    serverList.loadList();
    Data::serverList = &serverList;
    Data::audioManager = &audioManager;
    Data::webView = &webView;
    joinProtocols();
    Data::tcpClient.setFingerprintFile(Configuration::fingerprintFile());
    audioManager.join();
    upload.join();
    joinView();
}

Program::~Program()
{
    audioManager.part();
    Data::tcpClient.close();
    Data::tcpClient.setReadHook({});
    Data::tcpClient.setSessionEndHook({});
    sessionHooks() = {};
    serverLogHooks() = {};
    memoryImageHooks() = {};
    Page::setSink({});
    Page::setBatchHook({});
    Data::clearSession();
    Data::webView = nullptr;
    Data::audioManager = nullptr;
    Data::serverList = nullptr;
}

void Program::joinView()
{
    const auto gather = [this](bool begins) { scriptPipe.gather(begins); };
    Page::setSink([this](const Page::Call& call) { scriptPipe.add(call); });
    Page::setBatchHook(gather);
    Data::tcpClient.setReadHook(gather);
    playbackUpdater.setUpdateHook(gather);
    Data::tcpClient.setSessionEndHook([this] { endSession(); });
    memoryImageHooks().arrived = [this](const QString& name, const QByteArray& base64) {
        webView.saveMemoryImage(name, base64);
    };
    serverLogHooks().arrived = [this](const QString& date, const QByteArray& text) {
        logFeed.take(date, text);
    };
    serverLogHooks().refused = [this](const QString& date) { logFeed.refuse(date); };
    sessionHooks().loginSucceeded = [this] { webView.login_loginSuccess(); };
    sessionHooks().loginRefused = [this] { webView.login_loginError(); };
    sessionHooks().loginCompleted = [this] { webView.loginCompleted(); };
    sessionHooks().lockOpened = [this] { webView.resetBlockTimer(); };
    sessionHooks().closeProgram = [this] { webView.closeWindow(); };
}

void Program::endSession()
{
    audioManager.release();
    upload.stop();
    folderBrowser.stop();
    logFeed.stop();
    fileWork.stop();
    webView.stopTimers();
    if (Data::tcpClient.hasLostConnection() && !Data::leaving) {
        webView.tellConnectionLost();
    }
    webView.loadLoginPage();
    Data::clearSession();
}
