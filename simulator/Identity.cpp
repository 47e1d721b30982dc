#include "simulator/Identity.h"

#include "simulator/EventLog.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSaveFile>
#include <QTemporaryDir>

namespace simulator
{

namespace
{

constexpr int toolLimit = 60000; // milliseconds; a slow machine may look long for its primes

std::optional<QByteArray> contentOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    return file.readAll();
}

/// Certificate and key stand in one file, so they can't come from two different runs.
std::optional<Identity> readIdentity(const QString& path)
{
    const auto content = contentOf(path);
    if (!content) {
        return std::nullopt;
    }
    Identity identity{QSslCertificate(*content, QSsl::Pem), QSslKey(*content, QSsl::Rsa)};
    if (identity.certificate.isNull() || identity.key.isNull()) {
        qCWarning(events).noquote() << path << "is broken and is made anew";
        return std::nullopt;
    }
    return identity;
}

bool runTool(const QStringList& arguments, QString* problem)
{
    QProcess tool;
    tool.setStandardInputFile(QProcess::nullDevice());
    tool.start("openssl", arguments);
    if (!tool.waitForStarted()) {
        *problem =
            "The tool openssl, which makes the certificate, did not start: " + tool.errorString();
        return false;
    }
    if (!tool.waitForFinished(toolLimit) || tool.exitStatus() != QProcess::NormalExit ||
        tool.exitCode() != 0) {
        *problem = "The tool openssl made no certificate: " +
                   QString::fromLocal8Bit(tool.readAllStandardError()).trimmed();
        return false;
    }
    return true;
}

std::optional<QByteArray> makeIdentity(QString* problem)
{
    const QTemporaryDir work;
    const QString key = work.filePath("key.pem");
    const QString certificate = work.filePath("certificate.pem");
    if (!runTool({"req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "3650", "-subj",
                  "/CN=vantordesk-simulator", "-keyout", key, "-out", certificate},
                 problem)) {
        return std::nullopt;
    }
    const auto keyText = contentOf(key);
    const auto certificateText = contentOf(certificate);
    if (!keyText || !certificateText) {
        *problem = "The tool openssl left no certificate behind";
        return std::nullopt;
    }
    return *certificateText + *keyText;
}

} // namespace

std::optional<Identity> loadOrMakeIdentity(const QString& folder, QString* problem)
{
    const QString path = QDir(folder).filePath("identity.pem");
    if (auto identity = readIdentity(path)) {
        return identity;
    }
    const auto content = makeIdentity(problem);
    if (!content) {
        return std::nullopt;
    }
    QDir().mkpath(folder);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) ||
        !file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner) ||
        file.write(*content) != content->size() || !file.commit()) {
        *problem = path + " could not be written: " + file.errorString();
        return std::nullopt;
    }
    auto identity = readIdentity(path);
    if (!identity) {
        *problem = path + " does not hold a certificate and its key";
    }
    return identity;
}

} // namespace simulator
