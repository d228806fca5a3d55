#pragma once

#include "database/OdDbObjectSource.h"
#include "io/FileImage.h"

#include <QByteArrayView>

#include <deque>
#include <memory>
#include <vector>

/// A drawing file as a sequence of byte runs: long stretches of the image it was read from, with
/// new bytes between. The views stay valid as long as this object and the image live.
struct DrawingPieces
{
    std::vector<QByteArrayView> parts;
    std::deque<QByteArray> owned;
    SaveReport report;

    quint64 size() const;
};

/// The source of a drawing that was read by a codec; it can also write it back.
class DrawingSource : public OdDbObjectSource
{
public:
    /// The drawing as it is now. Raises OdError for what the format cannot hold.
    virtual DrawingPieces write(const OdDbDatabase& database) const = 0;
};

/// A file format.
class DrawingCodec
{
public:
    virtual ~DrawingCodec() = default;
    /// By the first bytes of the file.
    virtual bool recognises(QByteArrayView head) const = 0;
    virtual std::unique_ptr<OdDbDatabase> read(std::shared_ptr<const FileImage> image,
                                               const IoProgress& progress) const = 0;
};
