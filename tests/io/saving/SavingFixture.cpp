#include "SavingFixture.h"

#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "generator/DrawingGenerator.h"
#include "io/DrawingFile.h"

#include <QDir>
#include <QFile>

QStringList SavingFixture::names(const QString& subfolder) const
{
    return QDir(m_folder.filePath(subfolder))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                   QDir::Name);
}

QByteArray SavingFixture::contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

void SavingFixture::put(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

QByteArray SavingFixture::generated(int layers, int entities)
{
    DrawingOptions options;
    options.layers = layers;
    options.entities = entities;
    return QByteArray::fromStdString(generateDrawingBytes(options));
}

std::unique_ptr<OdDbDatabase> SavingFixture::edited(const QByteArray& bytes)
{
    auto drawing = readDrawing(bytes, QStringLiteral("plan.dxf"));
    drawing->startUndoRecord();
    for (const OdDbObjectId id : drawing->layerTable().records())
        id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsLocked(true);
    return drawing;
}

void SavingFixture::start(QProcess& process, const char* mode, const QString& drawing)
{
    process.start(QStringLiteral(KEST_SAVER), {QString::fromLatin1(mode), drawing});
    ASSERT_TRUE(process.waitForStarted());
}

std::unique_ptr<SavingFixture::Outcome> SavingFixture::runWithMounts(const char* script,
                                                                     const QStringList& arguments)
{
    constexpr int kNotPermitted = 77;
    QProcess process;
    process.start(QStringLiteral("unshare"),
                  QStringList{QStringLiteral("-rm"), QStringLiteral("sh"), QStringLiteral("-c"),
                              QString::fromLatin1(script), QStringLiteral("sh"),
                              QStringLiteral(KEST_SAVER)}
                      + arguments);
    if (!process.waitForStarted() || !process.waitForFinished())
        return nullptr;
    auto outcome = std::make_unique<Outcome>();
    outcome->exitCode = process.exitCode();
    outcome->output = process.readAllStandardOutput();
    // unshare itself answers 1 when it is forbidden.
    const bool isForbidden = outcome->output.isEmpty() && process.exitCode() == 1;
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() == kNotPermitted
        || isForbidden)
        return nullptr;
    return outcome;
}
