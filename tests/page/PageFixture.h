#pragma once

#include "page/Console.h"

#include <QApplication>
#include <QtTest>

/// The session frame with one of its pages open, for tests of what the page shows and asks for.
class PageFixture : public QObject
{
    Q_OBJECT

protected:
    enum class Slots { Recorded, Real };

    /// Opens a session with what `fill` puts into the mirror, then the page by `open`; ready once
    /// `isThere` is true. The page's calls of slots are noted in place of them, unless it's to have
    /// the real ones.
    void openPage(const QString& open, const QString& isThere, Slots calls = Slots::Recorded,
                  const std::function<void()>& fill = {});
    /// The slots that the page has called since the last look, as "name(1,text)", joined by blanks.
    QString takeCalls();
    void pressEscape() const;
    /// Whether no text has become mark-up or script.
    bool isHarmless() const;
    /// Runs a script for what it does; its value, often a whole set of elements, isn't wanted.
    void run(const QString& script) const { console().value(script + "; null"); }
    bool is(const QString& script) const { return console().value(script).toBool(); }
    QString text(const QString& script) const { return console().text(script); }
    Console& console() const;
    /// Some units, zones and their relations for the cards: unit 1 is online and plays 3, unit 2 is
    /// online and idle, unit 3 is connecting, unit 4 is off and plays 3; 1 and 3 are in zone 5.
    void addUnits();
    /// Two tracks, 11 and 12.
    void addTracks(int playlist);
    /// A unit, a zone 5, a track 11 and a folder 12 with hostile titles, and new ones for them.
    void addHostileItems(int playlist);
    /// The ids of the cards that can be seen, joined by commas.
    QString shownUnits() const;

private:
    mutable std::unique_ptr<Console> theConsole;
};

/// The `main` of a test of pages.
template <class Test> int runPageTest(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

#define VANTORDESK_PAGE_TEST(Test)                                                                 \
    int main(int argc, char* argv[])                                                               \
    {                                                                                              \
        return runPageTest<Test>(argc, argv);                                                      \
    }
