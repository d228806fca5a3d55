#include "io/dxf/DxfCodec.h"

#include "database/OdDbDatabase.h"
#include "io/dxf/DxfAssembler.h"
#include "io/dxf/DxfIndexer.h"
#include "io/dxf/DxfObjectSource.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

/// First bytes of the binary form, the closing zero left out.
constexpr char kBinarySentinel[] =
    "\x41\x75\x74\x6F\x43\x41\x44\x20\x42\x69\x6E\x61\x72\x79\x20\x44\x58\x46\r\n\x1A";

QByteArrayView headerValue(const DxfIndex& index, QByteArrayView name)
{
    const auto it = std::find_if(index.header.begin(), index.header.end(),
                                 [&](const DxfIndex::HeaderVariable& v) { return v.name == name; });
    return it == index.header.end() ? QByteArrayView() : it->value.trimmed();
}

} // namespace

bool DxfCodec::recognises(QByteArrayView head) const
{
    if (head.startsWith(kBinarySentinel))
        return true;
    const QByteArrayView start = head.trimmed();
    // Enough to tell a text from other formats; the indexer says what is wrong with a broken one.
    return start.startsWith("0\n") || start.startsWith("0\r\n") || start.startsWith("999\n")
        || start.startsWith("999\r\n") || (start.size() <= 3 && (start == "0" || start == "999"));
}

std::unique_ptr<OdDbDatabase> DxfCodec::read(std::shared_ptr<const FileImage> image,
                                             const IoProgress& progress) const
{
    if (image->view(0, std::min<quint64>(image->size(), sizeof kBinarySentinel))
            .startsWith(kBinarySentinel))
        throw OdError_InvalidDrawing(
            image->name(), 0,
            QCoreApplication::translate(
                "DxfCodec",
                "this is a binary DXF drawing; only text (ASCII) DXF can be opened yet."));
    auto database = std::make_unique<OdDbDatabase>();
    const DxfIndex index = DxfIndexer(*image, database->store(), progress).run();
    image->waitFor(image->size());
    const QByteArrayView version = headerValue(index, "$ACADVER");
    const DxfText text(version, headerValue(index, "$DWGCODEPAGE"));
    auto source = std::make_unique<DxfObjectSource>(image, *database, text, dxfVersion(version));
    DxfObjectSource& reader = *source;
    database->setSource(std::move(source));
    DxfAssembler(*image, *database, index, reader).run();
    return database;
}
