#include "view/WindowPlace.h"

#include "app/Data.h"

#include <QApplication>
#include <QDesktopWidget>
#include <QScreen>
#include <QSettings>
#include <QWidget>

#include <algorithm>

namespace WindowPlace
{

namespace
{

constexpr QSize smallestWindow{1280, 800};

/// The screen that shows a part of the window's bar, or null.
const QScreen* screenOf(const QRect& window)
{
    const QRect bar(window.topLeft(), QSize(window.width(), 1));
    const QList<QScreen*> screens = QGuiApplication::screens();
    const auto screen = std::find_if(screens.begin(), screens.end(), [&](const QScreen* each) {
        return each->availableGeometry().intersects(bar);
    });
    return screen == screens.end() ? nullptr : *screen;
}

/// The size as it fits on the screen; no smaller than the pages need.
QSize fitted(const QSize& size, const QScreen& screen)
{
    return size.boundedTo(screen.availableSize()).expandedTo(smallestWindow);
}

void restoreNormal(QWidget& window, const QSettings& stored)
{
    const QSize wanted(
        stored.value(QStringLiteral("screen/width"), smallestWindow.width()).toInt(),
        stored.value(QStringLiteral("screen/height"), smallestWindow.height()).toInt());
    const QRect place(stored.value(QStringLiteral("screen/x")).toInt(),
                      stored.value(QStringLiteral("screen/y")).toInt(), wanted.width(),
                      wanted.height());
    const QScreen* const screen =
        stored.contains(QStringLiteral("screen/x")) ? screenOf(place) : nullptr;
    const QSize size = fitted(wanted, screen ? *screen : *QGuiApplication::primaryScreen());
    const QSize desktop = QApplication::desktop()->size();
    const QPoint centred((desktop.width() - size.width()) / 2,
                         (desktop.height() - size.height()) / 2);
    window.resize(size);
    if (!screen) {
        window.move(centred);
    } else {
        window.move(size == wanted ? place.topLeft() : screen->availableGeometry().topLeft());
    }
}

} // namespace

void restore(QWidget& window)
{
    const QSettings& stored = *Data::settings;
    window.setMinimumSize(smallestWindow);
    if (stored.value(QStringLiteral("screen/ifFullScreen"), false).toBool()) {
        window.showFullScreen();
    }
    if (stored.value(QStringLiteral("screen/isMaximized"), false).toBool()) {
        window.showMinimized();
        window.showMaximized();
        return;
    }
    window.show();
    restoreNormal(window, stored);
}

void save(const QWidget& window)
{
    QSettings& stored = *Data::settings;
    stored.setValue(QStringLiteral("screen/ifFullScreen"), window.isFullScreen());
    stored.setValue(QStringLiteral("screen/isMaximized"), window.isMaximized());
    stored.setValue(QStringLiteral("screen/width"), window.width());
    stored.setValue(QStringLiteral("screen/height"), window.height());
    stored.setValue(QStringLiteral("screen/x"), window.x());
    stored.setValue(QStringLiteral("screen/y"), window.y());
}

} // namespace WindowPlace
