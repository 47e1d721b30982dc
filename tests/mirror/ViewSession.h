#pragma once

#include "app/Data.h"
#include "app/Program.h"
#include "mirror/Fleet.h"
#include "support/DataFolder.h"
#include "support/LogRecorder.h"
#include "support/PageRecorder.h"

#include <QSettings>
#include <QWebFrame>

/// The program with its slots; what the pages are told is recorded in place of being shown.
struct ViewSession {
    ViewSession() { Fleet::takeRequests(); }
    ViewSession(const ViewSession&) = delete;
    ViewSession& operator=(const ViewSession&) = delete;

    /// Runs a slot, "name(1, 'text')", as a page does: the bridge converts the arguments.
    void runSlot(const QString& call) const
    {
        view.frame()->addToJavaScriptWindowObject(QStringLiteral("wrapper"), &view);
        view.frame()->evaluateJavaScript(QStringLiteral("wrapper.") + call);
    }

    DataFolder folder;
    Program program{QStringList()};
    PageRecorder page;
    LogRecorder log;
    WebView& view = program.view();
    QSettings& config = *Data::settings;
};
