#include "model/ServerSettings.h"

#include "page/ScriptCall.h"

#include <algorithm>

namespace
{

template <class Value> void change(Value& field, const Value& value, const char* script)
{
    if (field != value) {
        Page::call(script, value);
        field = value;
    }
}

} // namespace

const NetworkInterface* ServerSettings::getSelectedInterface() const
{
    const auto found = std::find_if(interfaces.begin(), interfaces.end(),
                                    [](const NetworkInterface& each) { return each.selected; });
    return found == interfaces.end() ? nullptr : &*found;
}

void ServerSettings::setSelectedInterface(const QString& ip)
{
    for (NetworkInterface& each : interfaces) {
        each.selected = each.ip == ip;
        if (each.selected) {
            Page::call("wrapperInput_server_selectInterface", ip);
        }
    }
}

void ServerSettings::setMulticastIp(const QString& ip)
{
    change(multicastIp, ip, "wrapperInput_server_editMulticastAddress");
}

void ServerSettings::setCommandPort(int port)
{
    change(commandPort, port, "wrapperInput_server_editCommandPort");
}

void ServerSettings::setServerVersion(const QString& version)
{
    change(serverVersion, version, "wrapperInput_server_setServerVersion");
}

void ServerSettings::setAvailableServerVersion(const QString& version)
{
    change(availableServerVersion, version, "wrapperInput_server_setAvailableServerVersion");
}

void ServerSettings::setInternetStatus(bool reachable)
{
    change(internetStatus, reachable, "wrapperInput_server_setInternetStatus");
}
