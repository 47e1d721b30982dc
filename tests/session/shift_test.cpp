#include <QtTest>
QTEST_GUILESS_MAIN(QObject)
