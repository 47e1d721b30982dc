#pragma once

#include <QNetworkAccessManager>
#include <QWebPage>

/// A network that reaches the program's resources and nothing else: the web engine gets no security
/// support any more, so no page may load anything from outside.
class LocalNetwork : public QNetworkAccessManager
{
    Q_OBJECT
public:
    using QNetworkAccessManager::QNetworkAccessManager;

    /// Whether the address is one of the program's resources.
    static bool isLocal(const QUrl& url);

protected:
    /// Answers a request for anything but a resource as a resource that doesn't exist.
    QNetworkReply* createRequest(Operation operation, const QNetworkRequest& request,
                                 QIODevice* outgoing) override;
};

/// A page that goes nowhere but to the two top pages, opens no windows, and whose script messages
/// go to the log: faults always, the others in debug mode.
class LocalPage : public QWebPage
{
    Q_OBJECT
public:
    static const QUrl loginUrl;
    static const QUrl sessionUrl;

    explicit LocalPage(QObject* parent = nullptr);

protected:
    bool acceptNavigationRequest(QWebFrame* frame, const QNetworkRequest& request,
                                 NavigationType type) override;
    QWebPage* createWindow(WebWindowType type) override;
    void javaScriptAlert(QWebFrame* frame, const QString& message) override;

private:
    void closeSocketDoor(QWebFrame* frame);
    void logMessage(MessageSource origin, MessageLevel level, const QString& message, int line,
                    const QString& source);
};
