#pragma once

#include "io/DrawingCodec.h"
#include "io/dwg/sections/ObjectMap.h"
#include "io/dwg/write/DwgMeant.h"

#include <QStringList>

#include <utility>
#include <vector>

class DwgObjectSource;
class FlatFile;
class HeaderSection;
class PagedFile;

/// Puts a DWG file together from its records and settings: the section of objects with the edited
/// ones in their places and new ones behind, the object map, the header variables, and what else
/// tells of handles and addresses.
class DwgFileBuilder
{
public:
    DwgFileBuilder(const DwgObjectSource& source, const OdDbDatabase& database,
                   const DwgMeant& meant);

    /// `highestNew` is the highest handle that was given out since the drawing was read, or 0.
    DrawingPieces build(quint64 highestNew);
    quint64 settingsChanged() const { return m_settingsChanged; }
    const QStringList& notKept() const { return m_notKept; }

private:
    /// Records of the file by their place in it.
    std::vector<std::pair<quint64, quint32>> recordsInOrder() const;
    /// Appends all records, noting where each stands; `base` is where `out` will stand.
    void appendRecords(QByteArray& out, quint64 base, quint64 end);
    QByteArray headerSection(quint64 seed);
    QByteArray auxHeader(QByteArray section, quint64 seed) const;
    DrawingPieces buildPaged(PagedFile& file, quint64 seed);
    DrawingPieces buildFlat(const FlatFile& file, quint64 seed);

    const DwgObjectSource& m_source;
    const OdDbDatabase& m_database;
    const DwgMeant& m_meant;
    std::vector<ObjectMap::Entry> m_places; ///< of the new file
    quint64 m_oldSeed = 0;
    quint64 m_settingsChanged = 0;
    QStringList m_notKept;
};
