#include "layerman/Program.h"

#include <QCoreApplication>
#include <QFile>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QFile::decodeName(argv[i]);
    return runCompanion(arguments, stdout, stderr);
}
