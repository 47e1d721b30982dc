#include "app/Wiring.h"

#include "app/Data.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"
#include "page/ScriptCall.h"
#include "protocol/Protocols.h"
#include "protocol/Request.h"
#include "protocol/SessionHooks.h"
#include "protocol/input/Pushes.h"
#include "view/WebView.h"

#include <QWebView>

namespace Wiring
{

void joinNetwork()
{
    Data::parser.setPacketPrefix(QStringLiteral("order"));
    Data::parser.setProtocolPrefix(QStringLiteral("request"));
    Data::parser.setCommandPrefix(QStringLiteral("action"));
    initProtocols(&Data::parser);
    Data::parser.setPushHandler(routePush);
    Data::parser.setForbiddenHook([] { send(UserCommand::GetInfo); });
    Data::tcpClient.addParser(&Data::parser);
}

void joinView()
{
    WebView* const view = Data::webView;
    Page::setSink([view](const QString& script) { view->runJavascript(script); });
    Data::tcpClient.setSessionEndHook([view] {
        view->stopTimers();
        view->loadLoginPage();
        Data::clearSession();
    });
    sessionHooks().loginSucceeded = [view] { view->login_loginSuccess(); };
    sessionHooks().loginRefused = [view] { view->login_loginError(); };
    sessionHooks().closeProgram = [view] { view->getView()->close(); };
}

} // namespace Wiring
