#include "io/dwg/DwgCodec.h"

#include "database/drawing/OdDbDatabase.h"
#include "io/dwg/read/DwgAssembler.h"
#include "io/dwg/read/DwgIndex.h"
#include "io/dwg/read/DwgObjectSource.h"
#include "io/dwg/sections/HeaderSection.h"

bool DwgCodec::recognises(QByteArrayView head) const
{
    // Each file starts with the name of its version.
    return head.startsWith("AC10") || head.startsWith("AC1.") || head.startsWith("AC2.");
}

std::unique_ptr<OdDbDatabase> DwgCodec::read(std::shared_ptr<const FileImage> image,
                                             const IoProgress& progress) const
{
    auto database = std::make_unique<OdDbDatabase>();
    auto made = std::make_unique<DwgObjectSource>(DwgFile::open(image), *database);
    DwgObjectSource& source = *made;
    database->setSource(std::move(made));
    DwgIndex index(source.file(), source.format(), source.classes());
    index.run(progress);
    const HeaderSection header(source.file(), source.format());
    source.setFaults(DwgAssembler(*database, source, index, header).run());
    for (const QString& fault : source.faults())
        database->loadNotes() << fault;
    return database;
}
