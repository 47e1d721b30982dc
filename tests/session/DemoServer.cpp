#include "session/DemoServer.h"

#include <QRegularExpression>
#include <QtTest>

namespace
{

constexpr int startMilliseconds = 60000;

}

DemoServer::~DemoServer()
{
    process.terminate();
    process.waitForFinished();
}

bool DemoServer::start(const QString& folder, quint16 port, const QStringList& more)
{
    said.clear();
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral(SIMULATOR),
                  QStringList{"--port", QString::number(port), "--quiet", "--no-announce", "--data",
                              folder + "/simulator"} +
                      more);
    const QRegularExpression listening("Listening on 127\\.0\\.0\\.1:(\\d+)");
    const bool isListening =
        QTest::qWaitFor([&] { return listening.match(output()).hasMatch(); }, startMilliseconds);
    listeningPort = listening.match(said).captured(1).toUShort();
    return isListening;
}

void DemoServer::tell(const QByteArray& command)
{
    process.write(command + '\n');
}

void DemoServer::kill()
{
    process.kill();
    process.waitForFinished();
}

QByteArray DemoServer::output()
{
    said += process.readAll();
    return said;
}
