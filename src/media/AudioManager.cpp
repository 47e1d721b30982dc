#include "media/AudioManager.h"

#include "app/Data.h"
#include "log/Log.h"
#include "media/CaptureOptions.h"
#include "media/CapturePlayer.h"
#include "page/ScriptCall.h"
#include "protocol/Redirection.h"
#include "protocol/Reply.h"
#include "protocol/Request.h"

#include <QSettings>

#include <algorithm>

namespace
{

constexpr int highestPort = 65535;
constexpr int inputWatchMilliseconds = 1000;
constexpr int fullVolume = 100;

int storedVolume(const QString& key)
{
    const int volume = static_cast<int>(Data::settings->value(key, 50.0).toDouble());
    return std::clamp(volume, 0, fullVolume);
}

int microphoneVolume()
{
    return storedVolume(QStringLiteral("volume/microphone"));
}

} // namespace

AudioManager::AudioManager()
{
    inputWatch.setInterval(inputWatchMilliseconds);
}

AudioManager::~AudioManager() = default;

void AudioManager::join()
{
    redirectionHooks().started = [this](const QJsonObject& reply) { start(reply); };
    redirectionHooks().stopped = [this] {
        if (isPlayed()) {
            stop();
        }
    };
    redirectionHooks().endedElsewhere = [this] {
        const bool spoke = isPlayed();
        if (spoke) {
            setPlayed(false);
        }
        return spoke;
    };
}

void AudioManager::part()
{
    redirectionHooks() = {};
    release();
}

void AudioManager::start(const QJsonObject& reply)
{
    Log::message("Translation start");
    setPlayed(false);
    const int port = reply.value(QLatin1String("port")).toInt();
    if (port <= 0 || port > highestPort) {
        Log::message("Translation without a port");
        streamFailed();
        return;
    }
    const bool isAlarm =
        request(reply).value(QLatin1String("type")).toString() == QLatin1String("alarm");
    const QString input = Data::settings->value(QStringLiteral("audio/input")).toString();
    stream = CapturePlayer::open(Capture::stream(input, Data::ip, port),
                                 isAlarm ? storedVolume(QStringLiteral("volume/warning"))
                                         : microphoneVolume());
    if (!stream) {
        streamFailed();
        return;
    }
    connect(stream.get(), &CapturePlayer::failed, this, &AudioManager::streamFailed);
    played = true;
    watchInput(input);
    Page::call("modalAudioTranslationStarted");
    Page::call("wrapperInput_playback_setMicrophoneVolume", microphoneVolume());
}

void AudioManager::stop()
{
    setPlayed(false);
    Log::message("Translation stop");
    Page::call("modalAudioTranslationStoped");
}

void AudioManager::startTest(QString& device)
{
    Log::message("Sound test start");
    test.reset();
    test = CapturePlayer::open(Capture::test(device), fullVolume);
    if (!test) {
        testFailed();
        return;
    }
    connect(test.get(), &CapturePlayer::failed, this, &AudioManager::testFailed);
}

void AudioManager::stopTest()
{
    test.reset();
    Log::message("Sound test stop");
}

void AudioManager::setPlayed(bool value)
{
    played = value;
    if (!played) {
        inputWatch.stop();
        stream.reset();
    }
}

void AudioManager::release()
{
    setPlayed(false);
    test.reset();
}

// The media library doesn't tell when the sound server takes a source away: it goes on, silent.
void AudioManager::watchInput(const QString& input)
{
    if (!Capture::isPresent(input)) {
        return;
    }
    inputWatch.disconnect();
    connect(&inputWatch, &QTimer::timeout, this, [this, input] {
        if (!Capture::isPresent(input)) {
            streamFailed();
        }
    });
    inputWatch.start();
}

void AudioManager::streamFailed()
{
    Log::message("Translation failed");
    setPlayed(false);
    Page::call("modalAudioTranslationStartError");
    send(PlaybackCommand::StopRedirection);
}

void AudioManager::testFailed()
{
    Log::message("Sound test failed");
    test.reset();
    Page::call("settingsAudioError");
}
