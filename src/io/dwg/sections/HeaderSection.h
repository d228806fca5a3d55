#pragma once

#include "io/dwg/container/DwgFile.h"
#include "io/dwg/records/DwgFormat.h"
#include "io/dwg/records/DwgRecord.h"
#include "io/dwg/sections/HeaderLayout.h"

#include <QHash>
#include <QString>

#include <vector>

/// The header variables of a DWG file, and the handles of what everything else hangs on.
class HeaderSection
{
public:
    struct Variable
    {
        QString name; ///< "$LTSCALE"
        int code; ///< of its group in DXF
        QString value; ///< as DXF has it, but handles of named records as digits
        bool isReference;
    };

    /// Where a value stands, for an edit of it.
    struct Place
    {
        HeaderField::Kind kind = HeaderField::Bit;
        BitSpan data;
        BitSpan text; ///< in the stream of texts
        BitSpan handles; ///< in the stream of references
    };

    HeaderSection(const DwgFile& file, const DwgFormat& format);

    const std::vector<Variable>& variables() const { return m_variables; }
    /// "*LAYER" the layer table, "*NAMED" the named-object dictionary, "$CLAYER" the current layer
    /// and so on; 0 where there is none.
    quint64 reference(const QString& name) const { return m_references.value(name); }
    /// The place of "$LTSCALE" and so on, or null; settings that share a number stand in "*FLAGS".
    const Place* place(const QString& name) const;
    /// Whether the section and its sum are whole.
    bool isSound() const { return m_sound; }

private:
    struct Reader;
    void add(const char* name, int code, const QString& value);

    std::vector<Variable> m_variables;
    QHash<QString, quint64> m_references;
    QHash<QString, Place> m_places;
    bool m_sound = false;
};
