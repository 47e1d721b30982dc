#pragma once

#include <QByteArray>
#include <QTemporaryDir>

/// A temporary folder in which a program that starts while it lives has its data.
class DataFolder
{
public:
    DataFolder() { qputenv("XDG_DATA_HOME", folder.path().toLocal8Bit()); }
    ~DataFolder() { qputenv("XDG_DATA_HOME", former); }
    Q_DISABLE_COPY(DataFolder)

    /// A file of the program, "config.ini".
    QString path(const QString& name) const
    {
        return folder.filePath(QStringLiteral("Quorlex/Vantordesk/") + name);
    }
    QString root() const { return folder.path(); }

private:
    QTemporaryDir folder;
    QByteArray former = qgetenv("XDG_DATA_HOME");
};
