#include "base/StandardStreams.h"
#include "host/application/HostOptions.h"
#include "host/batch/BatchProgram.h"
#include "host/batch/ExitCode.h"
#include "host/window/WindowProgram.h"
#include "kest/Completion.h"
#include "kest/ManPage.h"
#include "usage/ShellCompletion.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

namespace {
void write(std::FILE* stream, const QString& text)
{
    std::fputs(text.toUtf8().constData(), stream);
}

QStringList decodedArguments(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QFile::decodeName(argv[i]);
    return arguments;
}

int writeCompletion(const QString& shell)
{
    const QString script = shellCompletion(shell, completedHost());
    write(stdout, script);
    return static_cast<int>(script.isEmpty() ? ExitCode::Usage : ExitCode::Ok);
}
} // namespace

int main(int argc, char** argv)
{
    occupyStandardStreams();
    QCoreApplication::setApplicationName(QStringLiteral("kest"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KEST_VERSION));
    const HostOptions options = HostOptions::parse(decodedArguments(argc, argv));
    switch (options.mode) {
    case HostOptions::Mode::Help:
        write(stdout, HostOptions::usage());
        return static_cast<int>(ExitCode::Ok);
    case HostOptions::Mode::Version:
        write(stdout, QStringLiteral("kest " KEST_VERSION "\n"));
        return static_cast<int>(ExitCode::Ok);
    case HostOptions::Mode::Error:
        write(stderr, QStringLiteral("kest: %1\n%2").arg(options.error, HostOptions::usage()));
        return static_cast<int>(ExitCode::Usage);
    case HostOptions::Mode::ManPage:
        write(stdout, hostManPage());
        return static_cast<int>(ExitCode::Ok);
    case HostOptions::Mode::Completion:
        return writeCompletion(options.shell);
    case HostOptions::Mode::Batch: {
        const QCoreApplication application(argc, argv);
        return runBatchProgram(options);
    }
    case HostOptions::Mode::Window:
    case HostOptions::Mode::Screenshot:
        break;
    }
    return runWindowProgram(argc, argv, options);
}
