#include "files/FileWork.h"

#include "storage/SafeFile.h"

#include <QFile>
#include <QFutureWatcher>
#include <QtConcurrent>

namespace
{

constexpr int pieceOfThrees = 3 * 256 * 1024; // bytes: three become four, without a rest

} // namespace

FileWork::FileWork()
{
    pool.setMaxThreadCount(1);
}

FileWork::~FileWork()
{
    pool.waitForDone();
}

void FileWork::start(std::function<QByteArray()> work, std::function<void(const QByteArray&)> done)
{
    auto* const watcher = new QFutureWatcher<QByteArray>(this);
    connect(watcher, &QFutureWatcherBase::finished, this,
            [this, watcher, asked = session, done = std::move(done)] {
                watcher->deleteLater();
                if (asked == session) {
                    done(watcher->result());
                }
            });
    watcher->setFuture(QtConcurrent::run(&pool, std::move(work)));
}

QByteArray FileWork::readEncoded(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > longestFile) {
        return {};
    }
    QByteArray encoded("");
    encoded.reserve(static_cast<int>((file.size() + 2) / 3 * 4));
    while (qint64(encoded.size()) / 4 * 3 < longestFile) {
        const QByteArray piece = file.read(pieceOfThrees);
        if (piece.isEmpty()) {
            break;
        }
        encoded += piece.toBase64();
    }
    return file.error() == QFile::NoError && file.atEnd() ? encoded : QByteArray();
}

bool FileWork::writeDecoded(const QString& path, QByteArray base64)
{
    const auto decoded = QByteArray::fromBase64Encoding(
        std::move(base64), QByteArray::Base64Encoding | QByteArray::AbortOnBase64DecodingErrors);
    return decoded && SafeFile::replace(path, *decoded, "An image can't be written: ");
}
