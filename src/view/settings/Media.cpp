#include "view/WebView.h"

#include "app/Data.h"
#include "log/LogSettings.h"
#include "media/AudioManager.h"
#include "media/SoundInputs.h"
#include "page/ScriptCall.h"
#include "view/SlotLog.h"

#include <QAudioDeviceInfo>
#include <QSettings>

namespace
{

void showInputs()
{
    QVector<SoundInput> inputs;
    for (const QAudioDeviceInfo& device : QAudioDeviceInfo::availableDevices(QAudio::AudioInput)) {
        inputs.append({device.deviceName(), device.realm()});
    }
    for (const QString& name : microphonesAmong(std::move(inputs))) {
        Page::call("wrapperInput_settings_addMediaInput", name);
    }
}

void showOutputs()
{
    for (const QAudioDeviceInfo& device : QAudioDeviceInfo::availableDevices(QAudio::AudioOutput)) {
        Page::call("wrapperInput_settings_addMediaOutput", device.deviceName());
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
    const SlotLog log("settings_media_init", {}, LogLevel::ClientSettings);
    showInputs();
    Page::call("wrapperInput_settings_mediaInputSelect", storedText(QStringLiteral("audio/input")));
    showOutputs();
    Page::call("wrapperInput_settings_mediaOutputSelect",
               storedText(QStringLiteral("audio/output")));
}

void WebView::settings_media_start(QString device)
{
    const SlotLog log("settings_media_start", {}, LogLevel::ClientSettings);
    Data::audioManager->startTest(device);
}

void WebView::settings_media_stop()
{
    const SlotLog log("settings_media_stop", {}, LogLevel::ClientSettings);
    Data::audioManager->stopTest();
}

void WebView::settings_media_save(const QString& device)
{
    const SlotLog log("settings_media_save", QStringLiteral("_input ") + device,
                      LogLevel::ClientSettings);
    Data::settings->setValue(QStringLiteral("audio/input"), device);
}

void WebView::settings_volume_init()
{
    const SlotLog log("settings_volume_init", {}, LogLevel::ClientSettings);
    Page::call("loadVolumeWarning", storedVolume(QStringLiteral("volume/warning")));
    Page::call("loadVolumeMicrophone", storedVolume(QStringLiteral("volume/microphone")));
}

void WebView::settings_volume_save(int microphone, int warning)
{
    const SlotLog log("settings_volume_save", QStringLiteral(" %1 %2").arg(microphone).arg(warning),
                      LogLevel::ClientSettings);
    Data::settings->setValue(QStringLiteral("volume/microphone"), microphone);
    Data::settings->setValue(QStringLiteral("volume/warning"), warning);
}
