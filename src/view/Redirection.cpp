#include "view/WebView.h"

#include "app/Data.h"
#include "log/Log.h"
#include "protocol/Request.h"
#include "view/DeviceIds.h"

#include <QSettings>

void WebView::playback_startRedirection(const QString& devices, const QString& type,
                                        const QString& strategy)
{
    const int level = type == QLatin1String("alarm") ? LogLevel::AlarmBroadcasting
                                                     : LogLevel::MicrophoneBroadcasting;
    Log::message(QStringLiteral("playback_startRedirectionType: ") + type, level);
    Log::message(QStringLiteral("playback_startRedirectionDevices: ") + devices, level);
    send(PlaybackCommand::StartRedirection,
         {{QStringLiteral("type"), type},
          {QStringLiteral("strategy"), strategy},
          {QStringLiteral("volume"),
           Data::settings->value(QStringLiteral("volume/microphone"), 50).toInt()},
          {QStringLiteral("zones"), QJsonArray()},
          {QStringLiteral("devices"), readDeviceIds(devices)}});
}

void WebView::playback_stopRedirection()
{
    send(PlaybackCommand::StopRedirection);
}
