#pragma once

#include "layermanager/layers/operations/LayerOperations.h"

#include <QStringList>

#include <optional>
#include <span>
#include <vector>

/// How a property's value is read and given.
enum class PropertyKind {
    Name,
    Flag,
    Color,
    Linetype,
    Lineweight,
    PlotStyle,
    Description,
    Reconciled,
    Current,
};

/// What "layerman set" can give to layers.
struct PropertyInfo
{
    const char* name;
    const char* value; ///< placeholder for the help
    PropertyKind kind;
    std::optional<LayerColumn> column; ///< of the grid; none for what has no column there
    const char* text;

    bool isOfViewport() const { return column && layerColumnInfo(*column).layoutsOnly; }
    /// Name and current make sense for one layer at a time.
    bool isForOneLayer() const
    {
        return kind == PropertyKind::Name || kind == PropertyKind::Current;
    }
};

/// A property with its value.
struct PropertyEdit
{
    const PropertyInfo* info;
    QString text; ///< as typed
    /// What the grid's column holds; linetypes are looked up in each drawing.
    LayerValue value;
};

std::span<const PropertyInfo> properties();

/// Whether an operand is PROPERTY=VALUE and not a file: letters before its first equals sign.
bool looksLikeProperty(const QString& operand);
/// Raises UsageError for an unknown property, a value that is none whatever the drawing, and a
/// property that is given twice.
std::vector<PropertyEdit> propertiesFrom(const QStringList& operands);
