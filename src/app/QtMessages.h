#pragma once

#include <QtGlobal>

/// Takes the messages of Qt, of its TLS and of the web engine into the program's log while it
/// lives; before and behind it they go where they went.
class QtMessages
{
public:
    QtMessages();
    ~QtMessages();
    Q_DISABLE_COPY(QtMessages)

private:
    QtMessageHandler former;
};
