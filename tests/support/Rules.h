#pragma once

#include <QJsonObject>
#include <QStringList>

/// Tests as lists of scenarios in text files. A scenario is a title behind "= " and its lines;
/// empty ones and those with a "#" at the front don't count. What a test program makes of a line is
/// its own affair; these are the parts that all of them share.
namespace Rules
{

/// Adds each scenario of the files below a folder as a row with the column "lines".
///
/// A scenario with a table, whose first line has the names and the others a set of values each,
///
///   | word | dialog
///   | busy | modalBusyShow();
///
/// is as many rows as sets, with `<word>` replaced in its lines. A line "@hall" stands for the
/// lines of the scenario that is titled so, which is no row by itself.
void addRows(const QString& folder);

/// The object of a text, whose keys need no quotes; the empty text gives the empty object. Text
/// that is no object ends the program: it's a mistake in a rule.
QJsonObject object(const QString& text);

/// Whether a value is what a rule expects: an object needs the named fields only, an array the same
/// number of elements, with "some" as its first the named ones somewhere, with "none" nowhere;
/// "<number>", "<text>", "<flag>" and "<list>" (not empty) stand for any value of the type.
bool fits(const QJsonValue& value, const QJsonValue& expected);

QString show(const QJsonObject& object);

} // namespace Rules
