#include "CompanionFixture.h"

#include "io/DrawingFile.h"
#include "support/TestFailure.h"

#include <QDir>
#include <QFile>

CompanionFixture::CompanionFixture()
    : environment(environmentWithoutDisplay())
{ }

Finished CompanionFixture::layerman(const QStringList& arguments, const QByteArray& input) const
{
    return runProgram(QStringLiteral(LAYERMAN_PROGRAM), arguments, input, environment,
                      folder.path());
}

Finished CompanionFixture::layerman(const char* words, const QByteArray& input) const
{
    return layerman(QString::fromUtf8(words).split(QLatin1Char(' '), Qt::SkipEmptyParts), input);
}

QString CompanionFixture::write(const char* name, const QByteArray& bytes) const
{
    const QString fileName = QString::fromUtf8(name);
    QFile file(path(fileName));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        reportTestFailure(QStringLiteral("%1 cannot be written.").arg(fileName));
    return fileName;
}

QString CompanionFixture::drawing(const char* name, const Layers& layers) const
{
    return write(name, DrawingText::withLayers(layers));
}

QString CompanionFixture::sheet(const char* name, const Layers& layers) const
{
    QByteArray text = DrawingText::withLayers(layers);
    text.replace("$TILEMODE\n 70\n     1\n", "$TILEMODE\n 70\n     0\n");
    return write(name, text);
}

QString CompanionFixture::styled(const char* name, const Layers& layers) const
{
    Layers withStyles = layers;
    for (DrawingText::Layer& layer : withStyles)
        layer.more += DrawingText::groups({"390", "81"});
    return write(name, DrawingText::withPlotStyles(DrawingText::withLayers(withStyles)));
}

QByteArray CompanionFixture::bytesOf(const QString& name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

std::unique_ptr<OdDbDatabase> CompanionFixture::read(const QString& name) const
{
    return readDrawing(path(name));
}

QStringList CompanionFixture::files() const
{
    return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

QStringList CompanionFixture::changedLines(const QByteArray& before, const QByteArray& after)
{
    const QList<QByteArray> old = before.split('\n');
    const QList<QByteArray> now = after.split('\n');
    if (old.size() != now.size())
        return {QStringLiteral("%1 lines -> %2 lines").arg(old.size()).arg(now.size())};
    QStringList changed;
    for (qsizetype i = 0; i < old.size(); ++i) {
        if (old[i] != now[i])
            changed << QString::fromUtf8(old[i].trimmed() + " -> " + now[i].trimmed());
    }
    return changed;
}
