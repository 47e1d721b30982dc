#include "media/SoundServer.h"

#include <QStandardPaths>
#include <QTest>

namespace
{

/// The tone and its sink run at another rate than the stream, as a sound card does.
const QStringList modules = {
    "module-native-protocol-unix auth-anonymous=1 socket=%1",
    "module-null-sink sink_name=mic rate=48000",
    "module-null-sink sink_name=spare rate=48000",
    "module-sine sink=mic frequency=1000",
};

} // namespace

SoundServer::SoundServer()
{
    const QString socket = folder.filePath("native");
    for (const char* const name : {"XDG_RUNTIME_DIR", "PULSE_RUNTIME_PATH", "HOME"}) {
        qputenv(name, folder.path().toLocal8Bit());
    }
    qputenv("PULSE_SERVER", "unix:" + socket.toLocal8Bit());
    QStringList arguments{"-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1",
                          "--disable-shm=yes"};
    for (const QString& module : modules) {
        arguments << "-L" << (module.contains("%1") ? module.arg(socket) : module);
    }
    process.setProgram("pulseaudio");
    process.setArguments(arguments);
}

SoundServer::~SoundServer()
{
    process.terminate();
    if (!process.waitForFinished(5000)) {
        process.kill();
        process.waitForFinished(5000);
    }
}

QString SoundServer::start()
{
    for (const char* const tool : {"pulseaudio", "pactl", "ffmpeg", "ffprobe"}) {
        if (QStandardPaths::findExecutable(tool).isEmpty()) {
            return QString("no %1 here").arg(tool);
        }
    }
    process.start();
    const auto hears = [] {
        return output("pactl", {"list", "short", "sources"}).contains("mic.monitor");
    };
    return QTest::qWaitFor(hears, 10000) ? QString() : "no sound server runs here";
}

int SoundServer::captureCount() const
{
    return output("pactl", {"list", "short", "source-outputs"}).count('\n');
}

void SoundServer::pullOutSpare() const
{
    const QByteArray list = output("pactl", {"list", "short", "modules"});
    for (const QByteArray& line : list.split('\n')) {
        if (line.contains("sink_name=spare")) {
            output("pactl", {"unload-module", line.split('\t').constFirst()});
        }
    }
}

QByteArray SoundServer::output(const QString& program, const QStringList& arguments)
{
    QProcess tool;
    tool.start(program, arguments, QIODevice::ReadOnly);
    tool.waitForFinished(20000);
    return tool.readAllStandardOutput();
}
