#include "view/ScriptPipe.h"

#include "log/Log.h"
#include "page/ScriptCall.h"

#include <QElapsedTimer>
#include <QScopedValueRollback>
#include <QWebFrame>

#include <algorithm>

namespace
{

/// One picture of a screen: what comes faster than that is seen at once.
constexpr int pictureMilliseconds = 16;
/// Pages that answer a call by asking back stand on the stack one in another. Beyond this the call
/// waits, in its order.
constexpr int longestDepth = 16;

QString handOverText()
{
    return QStringLiteral("typeof takeCalls==='function'&&takeCalls()");
}

void logCommand(const QString& text)
{
    Log::message(QStringLiteral("Command to Javascript: ") + text, LogLevel::Debug);
}

} // namespace

ScriptPipe::ScriptPipe()
{
    pictureTimer.setSingleShot(true);
    pictureTimer.setInterval(pictureMilliseconds);
    connect(&pictureTimer, &QTimer::timeout, this, &ScriptPipe::nextPicture);
}

void ScriptPipe::setFrame(QWebFrame* frame)
{
    page = frame;
}

void ScriptPipe::add(const Page::Call& call)
{
    if (Log::isWritten(LogLevel::Debug)) {
        logCommand(call.script());
    }
    calls.enqueue(call.json());
    if (gathering == 0) {
        flush();
    }
}

void ScriptPipe::gather(bool begins)
{
    gathering += begins ? 1 : -1;
    if (gathering == 0 && !calls.isEmpty() && !pictureTimer.isActive()) {
        pictureTimer.start();
    }
}

void ScriptPipe::flush()
{
    pictureTimer.stop();
    while (!calls.isEmpty() && depth < longestDepth) {
        handOver();
    }
}

void ScriptPipe::runText(const QString& text)
{
    if (Log::isWritten(LogLevel::Debug)) {
        logCommand(text);
    }
    flush();
    if (page) {
        page->evaluateJavaScript(text);
    }
}

void ScriptPipe::handOver()
{
    const QScopedValueRollback<int> deeper(depth, depth + 1);
    taken = false;
    if (page) {
        page->evaluateJavaScript(handOverText());
    }
    if (!taken) {
        take(); // the page on show is still being loaded, or is none of ours
    }
}

QString ScriptPipe::take()
{
    taken = true;
    QString batch;
    for (int count = 0; count < batchCalls && batch.size() < batchCharacters && !calls.isEmpty();
         ++count) {
        batch += batch.isEmpty() ? QLatin1Char('[') : QLatin1Char(',');
        batch += calls.dequeue();
    }
    return batch.isEmpty() ? QStringLiteral("[]") : batch + QLatin1Char(']');
}

void ScriptPipe::nextPicture()
{
    handOver();
    if (!calls.isEmpty()) {
        pictureTimer.start();
    }
}

void ScriptPipe::replay(const std::string& list, QVector<int> ids, Show show)
{
    std::reverse(ids.begin(), ids.end());
    const auto replay = std::make_shared<Replay>(Replay{std::move(ids), std::move(show)});
    replays[list] = replay;
    showPortion(list, replay);
}

void ScriptPipe::endReplays()
{
    replays.clear();
}

void ScriptPipe::showPortion(const std::string& list, const std::shared_ptr<Replay>& replay)
{
    const auto isCurrent = [&] {
        const auto current = replays.find(list);
        return current != replays.end() && current->second == replay;
    };
    QElapsedTimer turn;
    turn.start();
    while (isCurrent() && !turn.hasExpired(replayMilliseconds)) {
        {
            const Gathering portion(*this);
            for (int shown = 0; shown < replayPortion && !replay->waiting.isEmpty(); ++shown) {
                replay->show(replay->waiting.takeLast());
            }
        }
        flush();
        if (replay->waiting.isEmpty()) {
            return;
        }
    }
    // A posted event would come before what the operator does.
    QTimer::singleShot(0, this, [this, list, replay] { showPortion(list, replay); });
}
