#include "view/WebView.h"

#include "app/Data.h"
#include "log/Log.h"
#include "media/AudioManager.h"
#include "page/ScriptCall.h"

#include <QAudioDeviceInfo>
#include <QSettings>

namespace
{

void showNames(QAudio::Mode mode, const char* function)
{
    const auto devices = QAudioDeviceInfo::availableDevices(mode);
    for (const QAudioDeviceInfo& device : devices) {
        Page::call(function, device.deviceName());
    }
}

QString storedText(const QString& key)
{
    return Data::settings->value(key).toString();
}

double storedVolume(const QString& key)
{
    return Data::settings->value(key, 50.0).toDouble();
}

} // namespace

void WebView::settings_media_init()
{
    showNames(QAudio::AudioInput, "wrapperInput_settings_addMediaInput");
    Page::call("wrapperInput_settings_mediaInputSelect", storedText(QStringLiteral("audio/input")));
    showNames(QAudio::AudioOutput, "wrapperInput_settings_addMediaOutput");
    Page::call("wrapperInput_settings_mediaOutputSelect",
               storedText(QStringLiteral("audio/output")));
}

void WebView::settings_media_start(QString device)
{
    Log::message("settings_media_start");
    Data::audioManager->startTest(device);
}

void WebView::settings_media_stop()
{
    Log::message("settings_media_stop");
    Data::audioManager->stopTest();
}

void WebView::settings_media_save(const QString& device)
{
    Log::message(QStringLiteral("settings_media_save_input ") + device, LogLevel::ClientSettings);
    Data::settings->setValue(QStringLiteral("audio/input"), device);
}

void WebView::settings_volume_init()
{
    Page::call("loadVolumeWarning", storedVolume(QStringLiteral("volume/warning")));
    Page::call("loadVolumeMicrophone", storedVolume(QStringLiteral("volume/microphone")));
}

void WebView::settings_volume_save(int microphone, int warning)
{
    Log::message(QStringLiteral("settings_volume_save %1 %2").arg(microphone).arg(warning),
                 LogLevel::ClientSettings);
    Data::settings->setValue(QStringLiteral("volume/microphone"), microphone);
    Data::settings->setValue(QStringLiteral("volume/warning"), warning);
}
