#pragma once

#include "layerman/listing/ColumnTable.h"

#include <QHash>
#include <QStringList>

class OdDbDatabase;
class Output;

/// The cells of all layers of a drawing as they were, to tell later what has changed.
class LayerChanges
{
public:
    /// Takes nothing down, and tells nothing, unless `isWanted`.
    LayerChanges(OdDbDatabase& drawing, const QString& file, bool isWanted);

    /// A line for every cell that is another by now; layers in the order of the drawing.
    void tell(Output& output) const;

private:
    QHash<quint32, QStringList> cells() const;

    OdDbDatabase& m_drawing;
    ListColumns m_columns;
    QString m_file;
    bool m_isWanted;
    QHash<quint32, QStringList> m_before; ///< by slot
};
