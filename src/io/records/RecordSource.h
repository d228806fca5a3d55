#pragma once

#include "io/DrawingCodec.h"

#include <QHash>

#include <utility>

struct BlockState;
struct DictionaryState;
struct DictionaryVarState;
struct LayerState;
struct LayoutState;
struct LinetypeState;
struct NamedRecordState;
struct ViewportState;
struct XrecordState;

/// A source that finds each record by itself, so that a save can tell what became of it.
class RecordSource : public DrawingSource
{
public:
    void read(OdDbObject& object) const final;

    // Records as the file has them, whatever the objects say now.
    virtual LayerState readLayer(quint32 slot) const = 0;
    virtual LinetypeState readLinetype(quint32 slot) const = 0;
    virtual NamedRecordState readNamed(quint32 slot) const = 0;
    virtual DictionaryState readDictionary(quint32 slot) const = 0;
    virtual DictionaryVarState readDictionaryVar(quint32 slot) const = 0;
    virtual XrecordState readXrecord(quint32 slot) const = 0;
    virtual LayoutState readLayout(quint32 slot) const = 0;
    virtual ViewportState readViewport(quint32 slot) const = 0;
    virtual BlockState readBlock(quint32 slot) const = 0;

    OdDbDatabase& database() const { return m_database; }
    /// The object of a handle, or a null id.
    OdDbObjectId id(quint64 handle) const;
    /// The handle of a record that is made when the drawing is written: the same at every save.
    /// `purpose` tells records that hang on one object apart.
    quint64 handleOfMade(quint32 slot, const QString& purpose) const;

protected:
    explicit RecordSource(OdDbDatabase& database)
        : m_database(database)
    { }

    /// Takes the records of a layer's extension dictionary into its state. One that belongs to
    /// another record, in a damaged drawing, is not looked into.
    void readLayerExtras(quint32 slot, OdDbObjectId dictionary, LayerState& layer) const;

private:
    OdDbDatabase& m_database;
    mutable QHash<std::pair<quint32, QString>, quint64> m_madeHandles;
};
