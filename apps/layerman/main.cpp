#include "ListCommand.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

namespace {
constexpr int kOk = 0;
constexpr int kUsage = 1;

const char* const kUsageText =
    QT_TRANSLATE_NOOP("layerman",
                      "Usage: layerman list [--inches] FILE...\n"
                      "       layerman --help | --version\n"
                      "\n"
                      "Prints the layers of drawings.\n"
                      "\n"
                      "  --inches   print lineweights in inches instead of millimetres\n"
                      "\n"
                      "Exit codes: 0 done, 1 wrong usage, 3 a drawing cannot be read.\n");

void write(std::FILE* stream, const QString& text)
{
    std::fputs(text.toUtf8().constData(), stream);
}

int usageError(const QString& sentence)
{
    write(stderr,
          QStringLiteral("layerman: %1\n").arg(sentence)
              + QCoreApplication::translate("layerman", kUsageText));
    return kUsage;
}

int runList(const QStringList& arguments)
{
    bool millimetres = true;
    QStringList files;
    bool optionsEnded = false;
    for (const QString& argument : arguments) {
        if (optionsEnded || !argument.startsWith(QLatin1String("--")))
            files << argument;
        else if (argument == QLatin1String("--"))
            optionsEnded = true;
        else if (argument == QLatin1String("--inches"))
            millimetres = false;
        else
            return usageError(
                QCoreApplication::translate("layerman", "There is no option %1.").arg(argument));
    }
    if (files.isEmpty())
        return usageError(QCoreApplication::translate("layerman", "list needs a drawing."));
    return listLayers(files, millimetres);
}
} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QFile::decodeName(argv[i]);
    if (arguments.isEmpty())
        return usageError(QCoreApplication::translate("layerman", "A command is needed."));
    const QString command = arguments.takeFirst();
    if (command == QLatin1String("--help") || command == QLatin1String("-h")) {
        write(stdout, QCoreApplication::translate("layerman", kUsageText));
        return kOk;
    }
    if (command == QLatin1String("--version")) {
        write(stdout, QStringLiteral("layerman " KEST_VERSION "\n"));
        return kOk;
    }
    if (command == QLatin1String("list"))
        return runList(arguments);
    return usageError(
        QCoreApplication::translate("layerman", "There is no command \"%1\".").arg(command));
}
