#pragma once

#include "io/dwg/container/DwgFile.h"

#include <vector>

/// A DWG file up to version 2000: its sections are stretches of the file, objects stand anywhere.
class FlatFile final : public DwgFile
{
public:
    FlatFile(const std::shared_ptr<const FileImage>& image, DwgVersion version);

    QByteArrayView section(DwgSection section) const override;

    /// Where a section stands.
    struct Locator
    {
        int number;
        quint32 offset;
        quint32 size;
    };
    const std::vector<Locator>& locators() const { return m_locators; }

private:
    std::vector<Locator> m_locators;
};
