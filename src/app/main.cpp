#include "app/BuildMoment.h"
#include "app/Data.h"
#include "app/Program.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    Data::clientVersion = Build::version();
    const Program program;
    QApplication::exec();
    return 0;
}
