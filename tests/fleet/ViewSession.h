#pragma once

#include "app/Data.h"
#include "fleet/Fleet.h"
#include "support/SessionFixture.h"
#include "view/WebView.h"

#include <QSettings>
#include <QTemporaryDir>

/// A session with the slots of the pages and a configuration of its own; what the pages are told is
/// recorded in place of being shown.
struct ViewSession {
    ViewSession()
    {
        Data::settings = &config;
        session.page.take();
        Fleet::takeRequests();
    }
    ~ViewSession() { Data::settings = nullptr; }
    ViewSession(const ViewSession&) = delete;
    ViewSession& operator=(const ViewSession&) = delete;

    SessionFixture session;
    QTemporaryDir folder;
    QSettings config{folder.filePath("config.ini"), QSettings::IniFormat};
    WebView view;
};
