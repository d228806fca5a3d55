#pragma once

#include "io/dwg/groups/GroupContext.h"

#include <QByteArrayView>

/// The groups of records, each as DXF has them. Types that nothing here knows give none of their
/// own.
namespace RecordGroups {

/// Groups that all entities have, from the mark "AcDbEntity" on; those with their standard value
/// are left out.
void common(const GroupContext& context);

/// The own groups of an entity; `name` is the DXF name of a type from a class.
void entity(const GroupContext& context, QByteArrayView name);

/// The own groups of a table's record or a layout.
void object(const GroupContext& context, QByteArrayView name);

} // namespace RecordGroups
