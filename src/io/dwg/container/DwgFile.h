#pragma once

#include "io/FileImage.h"
#include "io/dwg/bits/DwgVersion.h"

#include <QStringList>

#include <memory>

/// The sections of a DWG file that this program reads. Those but the objects have their number in
/// flat files.
enum class DwgSection : quint8 { Header, Classes, ObjectMap, Objects, Template };
inline constexpr std::size_t kDwgSections = 5;

/// A DWG file taken apart into its sections. Behind the bytes of a section,
/// BitReader::kPadding more are readable.
class DwgFile
{
public:
    virtual ~DwgFile() = default;

    /// Raises OdError_InvalidDrawing with a sentence for what cannot be taken apart.
    static std::unique_ptr<DwgFile> open(const std::shared_ptr<const FileImage>& image);

    DrawingVersion version() const { return m_version; }
    int maintenanceVersion() const { return m_maintenance; }
    /// The format's own number of the code page of its texts, those before version 2007.
    int codePage() const { return m_codePage; }
    const FileImage& image() const { return *m_image; }
    const std::shared_ptr<const FileImage>& sharedImage() const { return m_image; }
    /// Empty where the file has none. Offsets of the object map count from the start of Objects.
    virtual QByteArrayView section(DwgSection section) const = 0;
    /// Why the file must not be written over, in sentences; none for a sound one.
    const QStringList& faults() const { return m_faults; }

protected:
    DwgFile(const std::shared_ptr<const FileImage>& image, DrawingVersion version);

    /// Raises OdError_InvalidDrawing.
    [[noreturn]] void fail(quint64 offset, const QString& sentence) const;
    /// Bytes of the file; raises where it has fewer.
    QByteArrayView bytes(quint64 offset, quint64 size) const;
    /// Whether that many unpacked bytes can come of the file: no drawing packs better, and one that
    /// says it does would only cost memory.
    bool canHold(quint64 size) const;
    /// The same for these bytes together with all that were claimed before.
    bool claim(quint64 size);
    void addFault(const QString& sentence);

private:
    std::shared_ptr<const FileImage> m_image;
    DrawingVersion m_version;
    int m_maintenance = 0;
    int m_codePage = 0;
    quint64 m_claimed = 0;
    QStringList m_faults;
};
