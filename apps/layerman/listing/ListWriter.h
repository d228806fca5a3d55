#pragma once

#include "layerman/listing/ColumnTable.h"

#include <QString>

#include <memory>
#include <vector>

class OdDbDatabase;
class Output;

/// Prints lists of layers, one drawing after the other.
class ListWriter
{
public:
    virtual ~ListWriter() = default;

    /// A drawing and its layers, which are in the order to be printed.
    virtual void drawing(const QString& file, const std::vector<OdDbObjectId>& layers,
                         const LayerCellContext& context) = 0;
    /// A drawing that failed; complaints are told elsewhere.
    virtual void failed(const QString& file, const QString& sentence) = 0;
    virtual void finish() = 0;

    /// `format` is one of the command's. `several`: more than one drawing may come.
    static std::unique_ptr<ListWriter> make(const QString& format, const ListColumns& columns,
                                            bool several, Output& output);
};
