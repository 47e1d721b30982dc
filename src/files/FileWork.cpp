#include "files/FileWork.h"

#include "storage/SafeFile.h"

#include <QFile>
#include <QFutureWatcher>
#include <QtConcurrent>

FileWork::FileWork()
{
    pool.setMaxThreadCount(1);
}

FileWork::~FileWork()
{
    pool.waitForDone();
}

void FileWork::start(std::function<QString()> work, std::function<void(const QString&)> done)
{
    auto* const watcher = new QFutureWatcher<QString>(this);
    connect(watcher, &QFutureWatcherBase::finished, this,
            [this, watcher, asked = session, done = std::move(done)] {
                watcher->deleteLater();
                if (asked == session) {
                    done(watcher->result());
                }
            });
    watcher->setFuture(QtConcurrent::run(&pool, std::move(work)));
}

QString FileWork::readEncoded(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > longestFile) {
        return {};
    }
    const QByteArray encoded = file.readAll().toBase64();
    return file.error() == QFile::NoError ? QString::fromLatin1(encoded) : QString();
}

bool FileWork::writeDecoded(const QString& path, const QString& base64)
{
    const auto decoded = QByteArray::fromBase64Encoding(
        base64.toLatin1(), QByteArray::Base64Encoding | QByteArray::AbortOnBase64DecodingErrors);
    return decoded && SafeFile::replace(path, *decoded, "An image can't be written: ");
}
