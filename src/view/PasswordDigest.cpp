#include "view/PasswordDigest.h"

#include <QCryptographicHash>

QString passwordDigest(const QString& password)
{
    const QByteArray digest = QCryptographicHash::hash(password.toUtf8(), QCryptographicHash::Md5);
    return QString::fromLatin1(digest.toHex());
}
