#pragma once

#include "page/Console.h"

#include <QObject>

/// A text that would do harm as mark-up or as script.
extern const QString hostileText;

/// The session frame with one of its pages open, for tests of what the page shows and asks for.
class PageFixture : public QObject
{
    Q_OBJECT

protected:
    /// Opens the frame, then the page by `open`; ready once `isThere` is true. From then on slots
    /// are recorded, not called.
    void openPage(const QString& open, const QString& isThere);
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

private:
    mutable std::unique_ptr<Console> theConsole;
};
