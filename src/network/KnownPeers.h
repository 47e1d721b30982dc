#pragma once

#include <QByteArray>
#include <QString>

/// The certificates that servers have shown, by address: their fingerprints in a file that its
/// owner alone may read. Nobody is turned away by it; a change is told.
class KnownPeers
{
public:
    enum class Met {
        First,   ///< nothing was known of this address
        Again,   ///< the same as last time
        Changed, ///< another certificate than last time
    };

    /// The JSON file, which is made with the first server; without one nothing is kept.
    explicit KnownPeers(QString filePath = {});

    /// Compares a fingerprint with the one kept for `host` and `port`, and keeps it in its place.
    /// The file is read afresh, since another console may write it too. One that can't be read is
    /// taken for empty, one that can't be written stays as it was, each with a log line.
    Met meet(const QString& host, int port, const QByteArray& fingerprint) const;

private:
    QString path;
};
