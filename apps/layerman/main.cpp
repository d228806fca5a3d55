#include "base/StandardStreams.h"
#include "layerman/Program.h"

#include <QCoreApplication>

int main(int argc, char** argv)
{
    occupyStandardStreams();
    const QCoreApplication application(argc, argv);
    return runCompanion({argv + qMin(argc, 1), argv + argc}, stdout, stderr);
}
