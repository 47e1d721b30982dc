#include "app/QtMessages.h"

#include "log/Log.h"

#include <QCoreApplication>
#include <QScopedValueRollback>
#include <QThread>

namespace
{

const char* kindOf(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return "debug";
    case QtInfoMsg:
        return "info";
    case QtWarningMsg:
        return "warning";
    case QtCriticalMsg:
        return "critical";
    case QtFatalMsg:
        return "fatal";
    }
    return "message";
}

/// On the main thread alone, to which the log belongs.
void write(const QString& line, int level)
{
    static bool isWriting = false; // the log's own file may complain
    if (!isWriting) {
        const QScopedValueRollback<bool> inWrite(isWriting, true);
        Log::message(line, level);
    }
}

void toLog(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    const QString category = QLatin1String(context.category ? context.category : "default");
    const QString line =
        QStringLiteral("Qt %1 (%2): %3").arg(QLatin1String(kindOf(type)), category, text);
    const int level = type == QtDebugMsg ? LogLevel::Debug : LogLevel::Always;
    QCoreApplication* const application = QCoreApplication::instance();
    if (application && application->thread() != QThread::currentThread()) {
        QMetaObject::invokeMethod(application, [line, level] { write(line, level); });
    } else {
        write(line, level);
    }
}

} // namespace

QtMessages::QtMessages() : former(qInstallMessageHandler(toLog))
{
}

QtMessages::~QtMessages()
{
    qInstallMessageHandler(former);
}
