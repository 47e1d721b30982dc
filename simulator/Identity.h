#pragma once

#include <QSslCertificate>
#include <QSslKey>
#include <QString>

#include <optional>

namespace simulator
{

/// What the server shows of itself in the TLS handshake.
struct Identity {
    QSslCertificate certificate;
    QSslKey key;
};

/// The identity kept in the folder, made there at the first start by the `openssl` tool: a
/// self-signed certificate and a 2048 bit RSA key of its own, in one file that only the owner
/// reads. A file that does not hold both is made anew. On failure nothing, and `problem` says why.
std::optional<Identity> loadOrMakeIdentity(const QString& folder, QString* problem);

} // namespace simulator
