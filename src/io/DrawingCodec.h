#pragma once

#include "database/drawing/OdDbObjectSource.h"
#include "io/FileImage.h"

#include <QByteArrayView>

#include <deque>
#include <memory>
#include <vector>

class WrittenBytes;

/// A drawing file as a sequence of byte runs: long stretches of the image it was read from, with
/// new bytes between. The views stay valid as long as this object and the image live.
struct DrawingPieces
{
    /// A record that was edited: where it stands in the new file, or begin == end when it was
    /// erased. Records that only the file has carry the slot OdDbObjectId::kNoSlot.
    struct ChangedRecord
    {
        quint32 slot;
        quint64 begin;
        quint64 end;
    };

    std::vector<QByteArrayView> parts;
    std::deque<QByteArray> owned;
    std::vector<ChangedRecord> changed;
    /// For the codec's own verify(): what it means to write.
    std::shared_ptr<const void> meant;
    SaveReport report;

    quint64 size() const;
};

/// The source of a drawing that was read by a codec; it can also write it back.
class DrawingSource : public OdDbObjectSource
{
public:
    /// The drawing as it is now. Raises OdError for what the format cannot hold.
    virtual DrawingPieces write(const OdDbDatabase& database) const = 0;
    /// Compares the records that changed with what was read back from the disk, before the new file
    /// takes the place of the old. Raises OdError_FileAccess for one that does not say what the
    /// drawing says.
    virtual void verify(const OdDbDatabase& /*database*/, const DrawingPieces& /*pieces*/,
                        const WrittenBytes& /*written*/) const
    { }
    /// The ending of files of this format: "dxf".
    virtual QString suffix() const = 0;
    /// Why the drawing must not be written over, in sentences; empty where it can be.
    virtual QString refusal() const { return {}; }
    /// The refusal, and what can be done with such a drawing all the same.
    QString readOnlySentence() const;
    /// The bytes that the drawing was read from; DrawingPieces are views into them.
    virtual const FileImage& image() const = 0;

    /// The source of that drawing; raises OdError_FileAccess when it has none that can write.
    static const DrawingSource& of(const OdDbDatabase& database);
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
