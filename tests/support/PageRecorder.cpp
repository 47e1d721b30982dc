#include "support/PageRecorder.h"

#include "page/ScriptCall.h"

#include <utility>

PageRecorder::PageRecorder()
{
    Page::setSink([this](const Page::Call& call) { texts.append(call.script()); });
}

PageRecorder::~PageRecorder()
{
    Page::setSink({});
}

QStringList PageRecorder::take()
{
    return std::exchange(texts, {});
}
