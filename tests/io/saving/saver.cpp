// Saves drawings as a process of its own, to be killed, starved and locked out by the tests.
//   saver loop FILE   edits and saves in turns until it is killed; prints "ready" before
//   saver once FILE   edits and saves; prints the error, if any, and answers 4 then
//   saver keep FILE   keeps a backup and edits and saves, as "once"
//   saver lock FILE   takes the drawing's lock, prints its state and waits for the input to end

#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/DrawingFile.h"
#include "io/files/DrawingLock.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

namespace {

void lockLayers(OdDbDatabase& drawing)
{
    drawing.startUndoRecord();
    for (const OdDbObjectId id : drawing.layerTable().records())
        id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsLocked(true);
}

void say(const QByteArray& line)
{
    std::puts(line.constData());
    std::fflush(stdout);
}

void saveForever(const QString& path)
{
    const auto drawing = readDrawing(path);
    say("ready");
    const SaveOptions options{true};
    for (;;) {
        lockLayers(*drawing);
        writeDrawing(*drawing, path, {}, options);
        drawing->undo();
        writeDrawing(*drawing, path, {}, options);
    }
}

void saveOnce(const QString& path, const SaveOptions& options)
{
    const auto drawing = readDrawing(path);
    lockLayers(*drawing);
    for (const QString& warning : writeDrawing(*drawing, path, {}, options).warnings)
        say(warning.toUtf8());
}

void holdLock(const QString& path)
{
    const DrawingLock lock(path);
    say(lock.state() == DrawingLock::State::Held ? "held" : "not held");
    while (std::getchar() != EOF) {
    }
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc != 3)
        return 1;
    const QByteArray mode = argv[1];
    const QString path = QFile::decodeName(argv[2]);
    try {
        if (mode == "loop")
            saveForever(path);
        else if (mode == "once")
            saveOnce(path, {});
        else if (mode == "keep")
            saveOnce(path, {true});
        else if (mode == "lock")
            holdLock(path);
        else
            return 1;
    } catch (const OdError& error) {
        say(error.description().toUtf8());
        return 4;
    }
    return 0;
}
