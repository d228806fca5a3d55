// Writes the seeds of the DWG fuzzer: a small drawing of each version that can be written.
// Usage: make_dwg_seeds FOLDER

#include "io/dwg/support/DwgMaker.h"

#include <QFile>

#include <cstdio>

int main(int count, char** arguments)
{
    if (count != 2) {
        std::fprintf(stderr, "make_dwg_seeds: one folder, please\n");
        return 2;
    }
    for (const DrawingVersion version : MadeDrawing::kVersions) {
        const QString path = QStringLiteral("%1/AC%2.dwg")
                                 .arg(QFile::decodeName(arguments[1]))
                                 .arg(static_cast<int>(version));
        const QByteArray bytes = DwgMaker::sample(version);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
            std::fprintf(stderr, "make_dwg_seeds: %s: %s\n", qPrintable(path),
                         qPrintable(file.errorString()));
            return 1;
        }
    }
    return 0;
}
