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
    /// The sample of a version.
    static QByteArray sample(DrawingVersion version);

private:
    QByteArray flat() const;
    QByteArray paged() const;
    /// Appends all records; `places` gets where each stands, `base` is where `out` will stand.
    void appendRecords(QByteArray& out, quint64 base, std::vector<ObjectMap::Entry>& places) const;
    QByteArray head(qsizetype size) const;
    /// A file with pages that has all sections, and nothing in them.
    QByteArray emptyPaged(const std::map<QByteArray, QByteArray>& sections) const;

    const MadeDrawing& m_drawing;
    DwgFormat m_format;
    MadeRecords m_records;
    MadeSections m_sections;
};
