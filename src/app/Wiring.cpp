#include "app/Wiring.h"

#include "app/Data.h"
#include "media/AudioManager.h"
#include "network/TcpClient.h"
#include "page/ScriptCall.h"
#include "protocol/SessionHooks.h"
#include "view/WebView.h"

namespace Wiring
{

void joinView()
{
    WebView* const view = Data::webView;
    Page::setSink([view](const Page::Call& call) { view->runJavascript(call.script()); });
    Data::tcpClient.setReadHook([view](bool isReading) { view->collectScripts(isReading); });
    Data::tcpClient.setSessionEndHook([view] {
        if (Data::audioManager) {
            Data::audioManager->release();
        }
        view->stopTimers();
        view->loadLoginPage();
        Data::clearSession();
    });
    sessionHooks().loginSucceeded = [view] { view->login_loginSuccess(); };
    sessionHooks().loginRefused = [view] { view->login_loginError(); };
    sessionHooks().lockOpened = [view] { view->resetBlockTimer(); };
    sessionHooks().closeProgram = [view] { view->closeWindow(); };
}

} // namespace Wiring
