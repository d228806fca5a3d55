#pragma once

#include "io/DrawingCodec.h"

#include <QHash>

#include <utility>

struct DictionaryState;
struct DictionaryVarState;
struct LayerState;
struct ViewportState;
struct XrecordState;

/// A source that finds each record by itself, so that a save can tell what became of it.
class RecordSource : public DrawingSource
{
public:
    // Records as the file has them, whatever the objects say now.
    virtual LayerState readLayer(quint32 slot) const = 0;
    virtual DictionaryState readDictionary(quint32 slot) const = 0;
    virtual DictionaryVarState readDictionaryVar(quint32 slot) const = 0;
    virtual XrecordState readXrecord(quint32 slot) const = 0;
    virtual ViewportState readViewport(quint32 slot) const = 0;

    OdDbDatabase& database() const { return m_database; }
    /// The handle of a record that is made when the drawing is written: the same at every save.
    /// `purpose` tells records that hang on one object apart.
    quint64 handleOfMade(quint32 slot, const QString& purpose) const;

protected:
    explicit RecordSource(OdDbDatabase& database)
        : m_database(database)
    { }

private:
    OdDbDatabase& m_database;
    mutable QHash<std::pair<quint32, QString>, quint64> m_madeHandles;
};
