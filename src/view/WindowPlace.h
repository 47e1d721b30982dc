#pragma once

class QWidget;

/// Where the window stands between two runs of the program: the keys `screen/…` of config.ini.
namespace WindowPlace
{

/// Shows the window as it was stored, on a screen of today: one that is larger is fitted into the
/// screen, one that none shows comes to the middle.
void restore(QWidget& window);
void save(const QWidget& window);

} // namespace WindowPlace
