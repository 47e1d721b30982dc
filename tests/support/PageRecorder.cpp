#include "support/PageRecorder.h"

#include "page/ScriptCall.h"

#include <utility>

PageRecorder::PageRecorder()
{
    Page::setSink([this](const Page::Call& call) {
        // These come behind every reply, and with every alarm; tests of their own look at them.
        if (call.function != "wrapperInput_global_answered" &&
            call.function != "wrapperInput_global_setAlarmUnits") {
            texts.append(call.script());
        }
    });
}

PageRecorder::~PageRecorder()
{
    Page::setSink({});
}

QStringList PageRecorder::take()
{
    return std::exchange(texts, {});
}
