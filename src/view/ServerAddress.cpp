#include "view/ServerAddress.h"

#include <QRegularExpression>

QString addressText(const QString& ip, int port)
{
    return ip + QLatin1Char('/') + QString::number(port);
}

std::pair<QString, int> splitAddress(const QString& address)
{
    return {address.section(QLatin1Char('/'), 0, 0),
            address.section(QLatin1Char('/'), 1, 1).toInt()};
}

bool isServerAddress(const QString& ip)
{
    static const QRegularExpression pattern(QStringLiteral("^(?:[0-9]{1,3}.){3}[0-9]{1,3}\\z"));
    return pattern.match(ip).hasMatch();
}

bool isPort(int port)
{
    return port > 0 && port <= 0xFFFF;
}
