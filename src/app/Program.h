#pragma once

#include "app/InterruptWatch.h"
#include "app/QtMessages.h"
#include "files/FileWork.h"
#include "files/FolderBrowser.h"
#include "files/Upload.h"
#include "log/LogSettings.h"
#include "media/AudioManager.h"
#include "media/PlaybackUpdater.h"
#include "model/ServerList.h"
#include "view/Discovery.h"
#include "view/IdleLock.h"
#include "view/LogFeed.h"
#include "view/ScriptPipe.h"
#include "view/WebView.h"

#include <QCoreApplication>
#include <QSettings>
#include <QStringList>

/// The console, put together: configuration, log, network, microphone, and the window, which begins
/// to load the login page. Wants an application, and an event loop to run in. Everything that it
/// joins is parted again when it goes; one at a time.
class Program
{
public:
    explicit Program(const QStringList& arguments = QCoreApplication::arguments());
    ~Program();
    Q_DISABLE_COPY(Program)

    WebView& view() { return webView; }
    ScriptPipe& scripts() { return scriptPipe; }
    ServerList& servers() { return serverList; }
    AudioManager& audio() { return audioManager; }
    IdleLock& lock() { return idleLock; }

private:
    /// Everything that has to stand before the first of the parts below.
    struct Basis {
        explicit Basis(const QStringList& arguments);
        ~Basis();

        QSettings settings;
        LogSettings logSettings;
        InterruptWatch interruptWatch;
        QtMessages qtMessages;
    };

    void joinView();
    void endSession();

    Basis basis;
    AudioManager audioManager;
    PlaybackUpdater playbackUpdater;
    ServerList serverList;
    ScriptPipe scriptPipe;
    Discovery discovery;
    IdleLock idleLock;
    FolderBrowser folderBrowser;
    Upload upload;
    FileWork fileWork;
    LogFeed logFeed;
    WebView webView;
};
