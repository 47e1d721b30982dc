#include "support/PageRecorder.h"

#include "page/ScriptCall.h"

#include <utility>

PageRecorder::PageRecorder()
{
    Page::setSink([this](const QString& script) { texts.append(script); });
}

PageRecorder::~PageRecorder()
{
    Page::setSink({});
}

QStringList PageRecorder::take()
{
    return std::exchange(texts, {});
}
