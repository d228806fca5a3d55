#pragma once

#include "database/objects/OdDbObject.h"

#include <QByteArrayView>

#include <vector>

/// The tables of a drawing.
enum class OdDbTableKind : quint8 {
    Layer,
    Linetype,
    Block,
    Style,
    DimStyle,
    View,
    Viewport,
    RegApp,
    Ucs,
    Other
};
inline constexpr int kOdDbTableKindCount = 10;

class NameIndex;

/// A named record of a symbol table.
class OdDbSymbolTableRecord : public OdDbObject
{
public:
    static constexpr const char* kClassName = "OdDbSymbolTableRecord";
    static bool isKind(OdDbObjectKind kind)
    {
        return kind == OdDbObjectKind::Layer || kind == OdDbObjectKind::Linetype
            || kind == OdDbObjectKind::BlockTableRecord
            || kind == OdDbObjectKind::SymbolTableRecord;
    }

    virtual QString getName() const = 0;
    /// True for records that come from an external reference ("xref|name").
    virtual bool isDependent() const = 0;
};

/// A symbol table: records in file order, found by name under Unicode case folding.
class OdDbSymbolTable : public OdDbObject
{
public:
    static constexpr const char* kClassName = "OdDbSymbolTable";
    static bool isKind(OdDbObjectKind kind)
    {
        return kind == OdDbObjectKind::SymbolTable || kind == OdDbObjectKind::LayerTable;
    }

    explicit OdDbSymbolTable(OdDbTableKind tableKind);
    ~OdDbSymbolTable() override;

    OdDbObjectKind kind() const override { return OdDbObjectKind::SymbolTable; }
    OdDbTableKind tableKind() const { return m_tableKind; }

    /// The record of that name, or a null id. Erased records are not found.
    OdDbObjectId getAt(const QString& name) const;
    bool has(const QString& name) const { return !getAt(name).isNull(); }
    /// All records in table order, erased ones left out.
    std::vector<OdDbObjectId> records() const;
    /// Number of records, erased ones left out.
    int count() const;

    /// Slots of all records in table order, erased ones included.
    const std::vector<quint32>& slotsInOrder() const { return m_slots; }
    /// Names by position in slotsInOrder().
    const NameIndex& names() const { return *m_names; }
    /// Position of a record in slotsInOrder(), or -1.
    int positionOf(quint32 slot) const;
    void reserve(std::size_t records);

    /// Adds a record under its name. Undoable. Raises OdError with InvalidKey (empty name) or
    /// DuplicateKey.
    OdDbObjectId addRecord(std::unique_ptr<OdDbSymbolTableRecord> record);

    // For codecs and the records themselves
    void appendRecord(quint32 slot, QByteArrayView foldedName);
    void recordRenamed(quint32 slot, const QString& name);
    void recordErased(quint32 slot, bool erased);

protected:
    /// Called when the set of names changed.
    virtual void namesChanged() { }

private:
    OdDbTableKind m_tableKind;
    std::vector<quint32> m_slots;
    std::unique_ptr<NameIndex> m_names;
    int m_erasedCount = 0;
};
