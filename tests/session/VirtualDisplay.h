#pragma once

#include <QImage>
#include <QPoint>
#include <QProcess>
#include <QString>

/// An X display of a test's own, 1280 by 800, with a hand on its keyboard and mouse.
class VirtualDisplay
{
public:
    VirtualDisplay() = default;
    ~VirtualDisplay();
    Q_DISABLE_COPY(VirtualDisplay)

    /// Starts it; what is missing for that on this machine, or nothing where it runs.
    QString start();
    /// ":7"
    const QString& name() const { return number; }

    /// Whether a window with this title is on show; it gets the keyboard.
    bool focusWindow(const QString& title) const;
    void type(const QString& text) const { tell({"type", text}); }
    /// Keys by their X names, "Tab shift+Tab Return".
    void press(const QString& keys) const { tell(QStringList{"key"} + keys.split(' ')); }
    void click(const QPoint& place) const;
    QImage picture() const;

private:
    QByteArray run(const QString& program, const QStringList& arguments) const;
    QByteArray tell(const QStringList& words) const { return run("xdotool", words); }

    QProcess server;
    QString number;
};
