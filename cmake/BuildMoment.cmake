# cmake -D FILE=... -D VERSION=... -P BuildMoment.cmake: writes the source that knows the moment.
string(TIMESTAMP moment "%d.%m.%Y %H:%M:%S")
file(WRITE "${FILE}" "#include \"app/BuildMoment.h\"

#include <QString>

QString Build::version()
{
    return QStringLiteral(\"${VERSION} (${moment})\");
}
")
