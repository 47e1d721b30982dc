#pragma once

#include <QObject>
#include <QPointer>
#include <QQueue>
#include <QTimer>
#include <QVector>

#include <functional>
#include <map>
#include <memory>
#include <string>

class QWebFrame;
namespace Page
{
struct Call;
}

/// The road of the script calls into the page on show. Calls that are made while somebody gathers
/// wait for the next picture of the screen and go in one batch; any other call is done when `add`
/// returns, behind all that waited. A call that no page takes is lost without a trace.
///
/// The page gets its calls as data (see calls.js): the engine keeps whatever source it has
/// evaluated, so the text that is evaluated is always the same.
class ScriptPipe : public QObject
{
    Q_OBJECT
public:
    /// What one batch holds at most; the rest goes with the next picture.
    static constexpr int batchCalls = 2000;
    static constexpr int batchCharacters = 256 * 1024;
    /// Entries of a replay that are shown at once. Measured with tiles, which cost most: some
    /// 0.6 ms each, so a click waits 25 ms.
    static constexpr int replayPortion = 40;
    /// A turn takes portions for so long: rows that have no element yet cost a few microseconds.
    static constexpr int replayMilliseconds = 8;

    using Show = std::function<void(int id)>;

    /// Calls that are made while one of these lives go together.
    class Gathering
    {
    public:
        explicit Gathering(ScriptPipe& scripts) : pipe(scripts) { pipe.gather(true); }
        ~Gathering() { pipe.gather(false); }
        Q_DISABLE_COPY(Gathering)

    private:
        ScriptPipe& pipe;
    };

    ScriptPipe();

    /// The frame whose page gets the calls; without one they are dropped.
    void setFrame(QWebFrame* frame);

    void add(const Page::Call& call);
    /// Begins to gather, or ends it; what is gathered twice has to be ended twice.
    void gather(bool begins);
    /// Does all that waits.
    void flush();
    /// Runs script text behind all that waits.
    void runText(const QString& text);
    /// The next batch as JSON, `[["function", arguments…], …]`; for the page alone.
    QString take();

    /// Calls `show` for each id, a portion at once and the others in turns of the event loop: a
    /// thousand tiles take the engine the better part of a second, and a click in between mustn't
    /// wait for the last of them. A replay of the same `list` that is under way ends: its page has
    /// gone, or asks anew.
    void replay(const std::string& list, QVector<int> ids, Show show);
    void endReplays();

private:
    struct Replay {
        QVector<int> waiting; ///< ids still to show, the next one last
        Show show;
    };

    void handOver();
    void nextPicture();
    void showPortion(const std::string& list, const std::shared_ptr<Replay>& replay);

    QPointer<QWebFrame> page;
    QQueue<QString> calls; ///< as JSON
    QTimer pictureTimer;
    int gathering = 0;
    int depth = 0; ///< batches that the page is working on: one may ask for the next
    bool taken = false;
    std::map<std::string, std::shared_ptr<Replay>> replays;
};
