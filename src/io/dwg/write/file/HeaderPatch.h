#pragma once

#include "io/dwg/read/DwgObjectSource.h"
#include "io/dwg/sections/HeaderSection.h"
#include "io/dwg/sections/SectionStreams.h"
#include "io/dwg/write/RecordPatch.h"

#include <map>

/// Edits of the section of header variables.
class HeaderPatch
{
public:
    explicit HeaderPatch(const DwgObjectSource& source);

    /// Gives a variable a value as DXF has it; false where the section has no place for it.
    bool setValue(const QString& name, const QString& value);
    bool setReference(const QString& name, quint64 handle,
                      DwgReference kind = DwgReference::HardPointer);
    bool isEmpty() const { return m_patch.isEmpty() && m_flags.empty(); }
    /// The whole section, marks and sum included.
    QByteArray result();

private:
    bool setFlag(const QString& name, const QString& value);

    const DwgObjectSource& m_source;
    HeaderSection m_header;
    SectionStreams m_section;
    RecordPatch m_patch;
    std::map<quint32, quint32> m_flags; ///< new bits by their mask
};
