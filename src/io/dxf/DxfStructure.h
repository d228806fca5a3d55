#pragma once

#include <QByteArrayView>

#include <optional>

class DxfObjectSource;
class ObjectStore;

/// Where the sections and tables of a file end: places for new records.
class DxfStructure
{
public:
    explicit DxfStructure(const DxfObjectSource& source);

    /// Offset of the ENDSEC record of a section, or nothing where the file has no such section.
    std::optional<quint64> sectionEnd(QByteArrayView name) const;
    /// Offset behind the ENDSEC record of a section.
    std::optional<quint64> behindSection(QByteArrayView name) const;
    /// Offset of the ENDTAB record of the table that the TABLE record in `slot` opens.
    std::optional<quint64> tableEnd(quint32 slot) const;
    /// Whether the CLASSES section declares a class by its DXF name.
    bool hasClass(QByteArrayView dxfName) const;
    /// Offset of the EOF record.
    quint64 endOfFile() const;

private:
    std::optional<quint32> sectionEndSlot(QByteArrayView name) const;

    const DxfObjectSource& m_source;
    const ObjectStore& m_store;
};
