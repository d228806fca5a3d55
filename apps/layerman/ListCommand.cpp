#include "ListCommand.h"

#include "host/text/LayerTableText.h"
#include "io/DrawingFile.h"

#include <cstdio>

namespace {
constexpr int kOk = 0;
constexpr int kBadInput = 3;

void write(std::FILE* stream, const QString& text)
{
    std::fputs(text.toUtf8().constData(), stream);
}
} // namespace

int listLayers(const QStringList& files, bool millimetres)
{
    int result = kOk;
    for (const QString& file : files) {
        try {
            const auto drawing = readDrawing(file);
            if (files.size() > 1)
                write(stdout, QStringLiteral("%1:\n").arg(file));
            write(stdout, layerTableText(*drawing, millimetres));
            if (files.size() > 1 && file != files.last())
                write(stdout, QStringLiteral("\n"));
        } catch (const OdError& error) {
            std::fflush(stdout);
            write(stderr, QStringLiteral("layerman: %1\n").arg(error.description()));
            result = kBadInput;
        }
    }
    return result;
}
