#pragma once

#include "io/dwg/sections/ObjectMap.h"
#include "io/dwg/support/MadeDrawing.h"
#include "io/dwg/support/MadeRecords.h"
#include "io/dwg/support/MadeSections.h"

#include <map>

/// Makes a small but complete DWG file from nothing, in any version that can be written.
class DwgMaker
{
public:
    explicit DwgMaker(const MadeDrawing& drawing);

    QByteArray bytes() const;
    /// Turns bits of the header variables, the classes or a record, by the number of that part and
    /// the place in it, both of which start over at the end; the part's sum is right all the same.
    void damage(std::size_t part, std::size_t place, quint8 bits);
    /// The number of a record as a part.
    std::size_t partOf(quint64 handle) const;
    /// The sample of a version.
    static QByteArray sample(DrawingVersion version);

private:
    QByteArray flat() const;
    QByteArray paged() const;
    QByteArray pagedWith(const std::map<QByteArray, QByteArray>& sections) const;
    /// Appends all records; `places` gets where each stands, `base` is where `out` will stand.
    void appendRecords(QByteArray& out, quint64 base, std::vector<ObjectMap::Entry>& places) const;
    QByteArray head(qsizetype size) const;
    /// A file with pages that has all sections, and nothing in them.
    QByteArray emptyPaged(const std::map<QByteArray, QByteArray>& sections) const;

    const MadeDrawing& m_drawing;
    DwgFormat m_format;
    MadeSections m_sections;
    std::map<quint64, QByteArray> m_records; ///< by handle
    quint64 m_seed = 0;
    QByteArray m_header;
    QByteArray m_classes;
};
