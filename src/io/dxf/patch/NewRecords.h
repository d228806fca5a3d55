#pragma once

#include "database/objects/OdDbDictionary.h"
#include "io/dxf/text/GroupSpelling.h"
#include "io/records/KeyedHandle.h"

#include <QStringList>

class DxfObjectSource;
struct DictionaryVarState;
struct LayerState;
struct LinetypeState;
struct XrecordState;

/// Records that the file does not have yet, spelled for it.
class NewRecords
{
public:
    explicit NewRecords(const DxfObjectSource& source);

    /// What heads a record: handles are 0 where there is none.
    struct Head
    {
        quint64 handle = 0;
        quint64 owner = 0;
        quint64 extensionDictionary = 0;
        bool ownerReacts = false; ///< the owner is listed as a persistent reactor
    };

    QByteArray layer(const Head& head, const LayerState& state, QStringList& notKept) const;
    QByteArray linetype(const Head& head, const LinetypeState& state) const;
    /// An entity that was made in this session, or nothing.
    QByteArray entity(const Head& head, OdDbObjectId entity) const;
    /// Whether the file's version knows groups of that code in entities.
    bool knowsEntityGroup(int code) const;
    QByteArray application(const Head& head, const QByteArray& name) const;
    QByteArray dictionary(const Head& head, bool hard, const std::vector<KeyedHandle>& entries,
                          const GroupList& xData) const;
    QByteArray xrecord(const Head& head, const XrecordState& state) const;
    QByteArray dictionaryVar(const Head& head, const DictionaryVarState& state) const;
    QByteArray classRecord(const char* dxfName, const char* className) const;
    QByteArray sectionStart(const char* name) const;
    QByteArray sectionEnd() const;
    QByteArray tableStart(const char* name, quint64 handle, int count) const;
    QByteArray tableEnd() const;
    /// An entry of a dictionary.
    void appendEntry(QByteArray& out, const KeyedHandle& entry, int valueCode) const;
    void appendExtension(QByteArray& out, quint64 dictionary) const;
    static QByteArray handleText(quint64 handle);

private:
    void append(QByteArray& out, int code, QByteArrayView value) const
    {
        m_spelling.append(out, code, value);
    }
    void appendGroups(QByteArray& out, const GroupList& groups) const;
    /// Type name, handle, extension dictionary, reactors, owner.
    QByteArray begin(const char* type, const Head& head) const;
    /// The same of a table's record, with its subclass marks.
    QByteArray beginOfTable(const char* type, const char* subclass, Head head) const;

    const DxfObjectSource& m_source;
    GroupSpelling m_spelling;
    bool m_hasSubclasses; ///< versions from R13 on
    bool m_hasTableOwners; ///< versions from 2000 on
    bool m_hasCloningFlags; ///< of dictionaries and records of free groups
};
