#pragma once

#include "database/store/HeaderVariables.h"
#include "io/DrawingCodec.h"
#include "io/dwg/sections/ObjectMap.h"
#include "io/dwg/write/DwgMeant.h"

#include <QStringList>

#include <map>
#include <optional>
#include <utility>
#include <vector>

class DwgObjectSource;
class FlatFile;
class HeaderPatch;
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
    /// Header variables as they were written.
    const std::map<QString, QString>& settings() const { return m_settings; }
    const QStringList& notKept() const { return m_notKept; }

private:
    using Records = std::vector<std::pair<quint64, quint32>>; ///< offsets and slots
    /// Records of the file by their place in it.
    Records recordsInOrder() const;
    /// Appends all records, noting where each stands; `base` is where `out` will stand.
    void appendRecords(const Records& records, QByteArray& out, quint64 base, quint64 end);
    QByteArray headerSection(quint64 seed);
    /// Puts a changed variable into its place. What HeaderSection will read there; nothing where
    /// there is no place for it.
    std::optional<QString> setVariable(HeaderPatch& patch,
                                       const HeaderVariables::Variable& variable);
    QByteArray auxHeader(QByteArray section, quint64 seed) const;
    /// The section of free space of a file whose records begin elsewhere now.
    static QByteArray freeSpace(const FlatFile& file, quint64 objects, quint64 moved);
    DrawingPieces buildPaged(const PagedFile& file, quint64 seed);
    DrawingPieces buildFlat(const FlatFile& file, quint64 seed);

    const DwgObjectSource& m_source;
    const OdDbDatabase& m_database;
    const DwgMeant& m_meant;
    std::vector<ObjectMap::Entry> m_places; ///< of the new file
    QByteArray m_template; ///< the section as it is to be, empty: as it was
    quint64 m_oldSeed = 0;
    quint64 m_settingsChanged = 0;
    std::map<QString, QString> m_settings;
    QStringList m_notKept;
};
