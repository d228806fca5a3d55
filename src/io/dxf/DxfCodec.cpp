#include "io/dxf/DxfCodec.h"

#include "database/drawing/OdDbDatabase.h"
#include "io/dxf/read/DxfAssembler.h"
#include "io/dxf/read/DxfObjectSource.h"
#include "io/dxf/scan/DxfIndexer.h"

#include <algorithm>

namespace {

/// First bytes of the binary form; the closing zero counts in.
constexpr char kBinarySentinel[] =
    "\x41\x75\x74\x6F\x43\x41\x44\x20\x42\x69\x6E\x61\x72\x79\x20\x44\x58\x46\r\n\x1A";

bool isBinary(QByteArrayView bytes)
{
    static_assert(sizeof kBinarySentinel == BinaryScanner::kHeadSize);
    return bytes.startsWith(QByteArrayView(kBinarySentinel, sizeof kBinarySentinel));
}

QByteArrayView headerValue(const DxfIndex& index, QByteArrayView name)
{
    const auto it = std::find_if(index.header.begin(), index.header.end(),
                                 [&](const DxfIndex::HeaderVariable& v) { return v.name == name; });
    return it == index.header.end() ? QByteArrayView() : it->value.trimmed();
}

} // namespace

bool DxfCodec::recognises(QByteArrayView head) const
{
    if (isBinary(head))
        return true;
    const QByteArrayView start = head.trimmed();
    // Enough to tell a text from other formats; the indexer says what is wrong with a broken one.
    return start.startsWith("0\n") || start.startsWith("0\r\n") || start.startsWith("999\n")
        || start.startsWith("999\r\n") || (start.size() <= 3 && (start == "0" || start == "999"));
}

std::unique_ptr<OdDbDatabase> DxfCodec::read(std::shared_ptr<const FileImage> image,
                                             const IoProgress& progress) const
{
    const bool binary = isBinary(image->view());
    auto database = std::make_unique<OdDbDatabase>();
    ObjectStore& store = database->store();
    const DxfIndex index = binary ? DxfIndexer<BinaryScanner>(*image, store, progress).run()
                                  : DxfIndexer<PairScanner>(*image, store, progress).run();
    image->waitFor(image->size());
    const QByteArrayView version = headerValue(index, "$ACADVER");
    const DxfText text(version, headerValue(index, "$DWGCODEPAGE"));
    auto source = std::make_unique<DxfObjectSource>(image, *database, text, dxfVersion(version),
                                                    index.landmarks);
    DxfObjectSource& reader = *source;
    database->setSource(std::move(source));
    DxfAssembler(*image, *database, index, reader).run();
    return database;
}
