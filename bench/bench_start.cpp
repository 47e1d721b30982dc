// From the start of the process until the login page is painted, against a bare web view that
// shows the same page. Each start is a process of its own: this program with a mode.

#include "Measure.h"
#include "app/Program.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWebView>

#include <array>
#include <spawn.h>
#include <sys/wait.h>

/// Outside of any namespace, as its macro wants it.
void initPages()
{
    Q_INIT_RESOURCE(web);
}

namespace
{

constexpr unsigned longestStartSeconds = 30;
const char* const consoleMode = "--console";
const char* const bareMode = "--bare";

bool isChild = false;

/// Ends the process as soon as a web view has been painted. Both programs show theirs when its
/// page has loaded.
class FirstPaint : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && qobject_cast<QWebView*>(watched)) {
            QTimer::singleShot(0, [] { _exit(0); });
        }
        return false;
    }
};

void watchForPaint()
{
    if (isChild) {
        qApp->installEventFilter(new FirstPaint(qApp));
    }
}
Q_COREAPP_STARTUP_FUNCTION(watchForPaint)

int consoleMain(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    const Program program;
    return QApplication::exec();
}

int bareMain(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    initPages();
    QWebView view;
    view.resize(1280, 800);
    QObject::connect(&view, &QWebView::loadFinished, &view, &QWidget::show);
    view.load(QUrl(QStringLiteral("qrc:/Web/login.html")));
    return QApplication::exec();
}

/// Runs one start to its end and takes the time, in seconds.
double start(char* program, const char* mode)
{
    std::string modeText(mode);
    std::array<char*, 3> arguments{program, modeText.data(), nullptr};
    return Measure::seconds([&] {
        pid_t process = 0;
        int status = 0;
        if (posix_spawn(&process, "/proc/self/exe", nullptr, nullptr, arguments.data(), environ) !=
                0 ||
            waitpid(process, &status, 0) != process || status != 0) {
            std::fprintf(stderr, "no page was painted with %s\n", mode);
            std::exit(1);
        }
    });
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc == 2) {
        isChild = true;
        alarm(longestStartSeconds);
        return std::strcmp(argv[1], consoleMode) == 0 ? consoleMain(argc, argv)
                                                      : bareMain(argc, argv);
    }
    const int repetitions = Measure::option(argc, argv, "--repetitions", 15);
    Measure::Report report;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_DATA_HOME", report.path().toLocal8Bit());
    qputenv("XDG_RUNTIME_DIR", report.path().toLocal8Bit());
    std::vector<Measure::Way> ways{{"bare web view", [&] { return start(argv[0], bareMode); }},
                                   {"console", [&] { return start(argv[0], consoleMode); }}};
    Measure::interleave(ways, repetitions);
    report.table("From the start of the process to the painted login page", ways, 1, "start");
    return 0;
}
