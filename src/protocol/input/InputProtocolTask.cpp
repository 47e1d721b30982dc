#include "protocol/input/InputProtocolTask.h"

#include "protocol/Request.h"

void inputProtocolTaskCommandAdd(const QJsonObject&)
{
    send(TaskCommand::List);
}

void inputProtocolTaskCommandEnable(const QJsonObject&)
{
    send(TaskCommand::List);
}

void inputProtocolTaskCommandEdit(const QJsonObject&)
{
    send(TaskCommand::List);
}
