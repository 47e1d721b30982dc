#pragma once

#include <QStringList>

/// Stands in for the page: keeps the text of every script call, in order, while it lives.
class PageRecorder
{
public:
    PageRecorder();
    ~PageRecorder();
    PageRecorder(const PageRecorder&) = delete;
    PageRecorder& operator=(const PageRecorder&) = delete;

    const QStringList& calls() const { return texts; }
    /// The calls so far; the next ones are recorded afresh.
    QStringList take();

private:
    QStringList texts;
};
