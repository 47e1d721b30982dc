#include "support/PageRecorder.h"

#include "page/ScriptCall.h"

#include <utility>

PageRecorder::PageRecorder()
{
    Page::setSink([this](const Page::Call& call) {
        // Behind every reply; a test of its own looks at it.
        if (!call.script().startsWith("wrapperInput_global_answered")) {
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
