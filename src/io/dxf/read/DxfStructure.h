#pragma once

#include <QByteArrayView>

#include <optional>

class DxfObjectSource;
class ObjectStore;

/// Places for new records in a file. Nothing where the file has no such section or table.
class DxfStructure
{
public:
    explicit DxfStructure(const DxfObjectSource& source);

    /// Offsets before the section's ENDSEC.
    std::optional<quint64> headerEnd() const;
    std::optional<quint64> tablesEnd() const;
    std::optional<quint64> entitiesEnd() const;
    std::optional<quint64> objectsEnd() const;
    std::optional<quint64> classesEnd() const;
    /// Offset of what follows the HEADER section; of the file's first record where there is none.
    quint64 behindHeader() const;
    /// The same for the CLASSES section, which follows the HEADER section.
    quint64 behindClasses() const;
    /// Offset before the ENDTAB of a table.
    std::optional<quint64> tableEnd(QByteArrayView name) const;
    /// Offset before the OBJECTS section; of the EOF record where there is none.
    quint64 beforeObjects() const;
    /// Offset of the EOF record.
    quint64 endOfFile() const;
    /// Whether the CLASSES section declares a class by its DXF name.
    bool hasClass(QByteArrayView dxfName) const;

private:
    /// Slot of the section's ENDSEC.
    quint32 endOfClasses() const;
    std::optional<quint64> beginOf(quint32 slot) const;

    const DxfObjectSource& m_source;
    const ObjectStore& m_store;
};
