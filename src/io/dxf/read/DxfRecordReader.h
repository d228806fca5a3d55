#pragma once

#include "database/values/OdDbObjectId.h"
#include "io/dxf/read/DxfCursor.h"

class DxfObjectSource;
class GroupList;
struct BlockState;
struct DictionaryState;
struct DictionaryVarState;
struct LayerState;
struct LayoutState;
struct LinetypeState;
struct NamedRecordState;
struct ViewportState;
struct XrecordState;

/// Parses records into states. A cursor stands before the first group behind the type name.
class DxfRecordReader
{
public:
    explicit DxfRecordReader(const DxfObjectSource& source)
        : m_source(source)
    { }

    /// What the record itself holds; `extension` becomes its extension dictionary, or a null id.
    LayerState layer(DxfCursor groups, OdDbObjectId& extension) const;
    BlockState block(DxfCursor groups) const;
    LinetypeState linetype(DxfCursor groups) const;
    NamedRecordState namedRecord(DxfCursor groups) const;
    DictionaryState dictionary(DxfCursor groups) const;
    DictionaryVarState dictionaryVar(DxfCursor groups) const;
    XrecordState xrecord(DxfCursor groups) const;
    LayoutState layout(DxfCursor groups) const;
    ViewportState viewport(DxfCursor groups) const;
    /// Name of the layer of an entity, "0" where the record tells none.
    QString entityLayer(DxfCursor groups) const;
    static bool opensExtension(const DxfCursor& group)
    {
        return group.bytes().trimmed() == "{ACAD_XDICTIONARY";
    }

private:
    OdDbObjectId object(const DxfCursor& group) const;
    /// Takes the group in the form that GroupList keeps.
    void appendCanonical(const DxfCursor& group, GroupList& groups) const;

    const DxfObjectSource& m_source;
};
