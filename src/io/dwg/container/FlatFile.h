#pragma once

#include "io/dwg/container/DwgFile.h"

#include <vector>

/// A DWG file up to version 2000: its sections are stretches of the file, objects stand anywhere.
class FlatFile final : public DwgFile
{
public:
    FlatFile(const std::shared_ptr<const FileImage>& image, DrawingVersion version);

    QByteArrayView section(DwgSection section) const override;

    /// Where a section stands.
    struct Locator
    {
        int number;
        quint32 offset;
        quint32 size;
    };
    const std::vector<Locator>& locators() const { return m_locators; }
    static constexpr int kFreeSpace = 3; ///< number of the record of free space
    static constexpr int kAuxHeader = 5; ///< number of the auxiliary header
    static constexpr quint64 kPreviewAt = 0x0D; ///< its address
    static constexpr quint64 kLocatorsAt = 0x19;
    static constexpr quint64 kLocatorSize = 9;
    quint64 previewAt() const; ///< 0: there is none
    /// The section with that number, or nothing.
    QByteArrayView locatedBytes(int number) const;

private:
    std::vector<Locator> m_locators;
};
