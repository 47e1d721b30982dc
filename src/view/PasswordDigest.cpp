#include "view/PasswordDigest.h"

#include <QCryptographicHash>

#include <algorithm>

namespace
{

/// Overwrites the text in place. A text that is shared, such as a constant, stays.
void wipe(const QString& text)
{
    if (text.isDetached()) {
        std::fill_n(const_cast<QChar*>(text.constData()), text.size(), QChar());
    }
}

} // namespace

QString passwordDigest(const QString& password)
{
    QByteArray bytes = password.toUtf8();
    const QByteArray digest = QCryptographicHash::hash(bytes, QCryptographicHash::Md5);
    bytes.fill('\0');
    wipe(password);
    return QString::fromLatin1(digest.toHex());
}
