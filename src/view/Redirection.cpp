#include "view/WebView.h"

#include "app/Data.h"
#include "log/Log.h"
#include "protocol/Request.h"
#include "view/DeviceIds.h"
#include "view/SlotLog.h"

#include <QSettings>

void WebView::playback_startRedirection(const QString& devices, const QString& type,
                                        const QString& strategy)
{
    const int level = type == QLatin1String("alarm") ? LogLevel::AlarmBroadcasting
                                                     : LogLevel::MicrophoneBroadcasting;
    const SlotLog log("playback_startRedirection", QStringLiteral("Type: ") + type, level);
    Log::message(QStringLiteral("playback_startRedirectionDevices: ") + devices, level);
    const QJsonArray targets = readDeviceIds(devices);
    if (targets.isEmpty()) {
        // To the server a broadcast without targets goes to all units.
        Log::message("Ignored broadcast: no units");
        return;
    }
    send(PlaybackCommand::StartRedirection,
         {{QStringLiteral("type"), type},
          {QStringLiteral("strategy"), strategy},
          {QStringLiteral("volume"),
           Data::settings->value(QStringLiteral("volume/microphone"), 50).toInt()},
          {QStringLiteral("zones"), QJsonArray()},
          {QStringLiteral("devices"), targets}});
}

void WebView::playback_stopRedirection()
{
    const SlotLog log("playback_stopRedirection");
    send(PlaybackCommand::StopRedirection);
}
