#pragma once

#include <QString>

class LogSettings;
class QSettings;

/// Folders, files and first-start values of the configuration.
namespace Configuration
{

QString dataFolder();      ///< the program's folder in the generic data location
QString configFile();      ///< config.ini
QString serverFile();      ///< servers.json
QString fingerprintFile(); ///< fingerprints.json, of the servers' certificates

/// Makes the program's folders where they are missing. One that can't be made is not reported.
void makeFolders();
/// Writes the first-start values into a config.ini that has no key: it is new, or a disk that was
/// full has emptied it. Keeps the file from other users.
void completeSettings(QSettings& settings);
/// Writes every key that has a first-start value.
void writeFirstStartValues(QSettings& settings);
/// Takes the log switches from their keys; a missing key is off.
void readLogSwitches(const QSettings& settings, LogSettings& switches);

} // namespace Configuration
