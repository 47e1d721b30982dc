#include "view/WebView.h"

#include "app/Data.h"
#include "log/Log.h"
#include "model/ModelList.h"
#include "model/ServerList.h"
#include "model/Zone.h"
#include "network/TcpClient.h"
#include "page/ScriptCall.h"
#include "protocol/Request.h"
#include "view/IdleLock.h"
#include "view/LocalPage.h"
#include "view/PasswordDigest.h"
#include "view/ServerAddress.h"
#include "view/SlotLog.h"

#include <QSettings>
#include <QWebView>

namespace
{

/// The address that the operator chose, or the default server's for one that is none.
std::optional<Server> serverToLogInTo(const QString& address)
{
    const auto [ip, port] = splitAddress(address);
    if (isServerAddress(ip)) {
        return Server{ip, port, false};
    }
    return Data::serverList->getDefault();
}

void appendAllZones()
{
    auto all = std::make_unique<Zone>();
    all->setName(QStringLiteral("Все зоны"));
    Data::zoneList.append(std::move(all));
}

/// Fills the mirror. The order matters: the role comes before what it limits, units before the
/// zones that refer to them, playlists before the tasks and presets that name them, and the users
/// before the question which of them is ours.
void sendBootstrap()
{
    send(HelperCommand::CheckInternet);
    send(HelperCommand::GetDateTime);
    send(HelperCommand::GetCurrentServerVersion);
    send(HelperCommand::CheckServerUpdate);
    send(RoleCommand::GetInfo);
    send(RoleCommand::GetRedirection);
    send(RoleCommand::GetServer);
    send(RoleCommand::List);
    send(DeviceCommand::GetDevices);
    send(DeviceCommand::ListFirmware);
    send(ZoneCommand::List);
    send(PlaybackCommand::List);
    send(PlaybackCommand::GetPlays);
    send(PresetCommand::List);
    send(TaskCommand::List);
    send(TaskCommand::GetPlays);
    send(UserCommand::List);
    send(UserCommand::GetConnected);
    send(UserCommand::GetInfo);
}

} // namespace

void WebView::login_tryLogin(const QString& name, const QString& password, const QString& address)
{
    const SlotLog log("login_tryLogin");
    const std::optional<Server> server = serverToLogInTo(address);
    if (server) {
        Data::ip = server->ip;
        Data::port = server->port;
        Log::message(QStringLiteral("Server ip: ") + Data::ip);
        Log::message(QStringLiteral("Server port: ") + QString::number(Data::port));
    }
    if (!server || !Data::tcpClient.connectToServer(Data::ip, Data::port)) {
        Page::call("modalErrorShow", QStringLiteral("Произошла ошибка подключения к серверу!"));
        return;
    }
    Data::localPort = Data::tcpClient.getLocalPort();
    if (Data::tcpClient.hasPeerChanged()) {
        Data::loginMessage = QStringLiteral("Сертификат сервера не тот, что в прошлый раз");
        Page::call("wrapperInput_login_setNotice", Data::loginMessage);
    }
    send(UserCommand::Login, {{QStringLiteral("version"), Data::apiVersion},
                              {QStringLiteral("user"), name},
                              {QStringLiteral("password"), passwordDigest(password)}});
}

void WebView::login_loginSuccess()
{
    const SlotLog log("login_loginSuccess");
    Data::serverList->setDefault(Data::ip, Data::port);
    appendAllZones();
    Log::message("Load login index");
    loadPage(LocalPage::sessionUrl);
    // The end of the last session has cleared the flag; every session that wants the lock has it.
    Data::blockStatus = Data::settings->value(QStringLiteral("admin/block_enable"), false).toBool();
    lock.reset();
    sendBootstrap();
}

void WebView::login_loginError()
{
    const SlotLog log("login_loginError");
    Page::call("modalErrorShow", QStringLiteral("Неправильные учетные данные пользователя!"));
}

void WebView::global_logout()
{
    const SlotLog log("global_logout");
    Data::leaving = true;
    send(UserCommand::Logout);
}

void WebView::global_exit()
{
    const SlotLog log("global_exit");
    if (Data::userList.isEmpty()) {
        Data::tcpClient.close();
        view->close();
        return;
    }
    Data::leaving = true;
    Data::waitForExit = true;
    send(UserCommand::Logout);
}

void WebView::tellConnectionLost()
{
    const QString text = QStringLiteral("Соединение с сервером потеряно");
    if (sessionPage) {
        Data::loginMessage = text;
    } else {
        Page::call("wrapperInput_login_lost", text);
    }
}

void WebView::loadLoginPage()
{
    Log::message("Logout redirect");
    // Asked of the page and not of the current user: a connection lost on the login page must not
    // wipe away the dialog of a refusal, and one lost before the bootstrap has made a user must not
    // leave the session page under its loading dialog.
    if (sessionPage) {
        loadPage(LocalPage::loginUrl);
    }
}
