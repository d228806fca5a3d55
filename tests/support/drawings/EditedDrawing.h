#pragma once

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTableRecord.h"

#include <QByteArray>
#include <QStringList>

#include <functional>
#include <memory>
#include <string>

/// A drawing in text form that a test edits, and records of what is written then.
class EditedDrawing
{
public:
    explicit EditedDrawing(const QByteArray& text);

    OdDbDatabase* operator->() const { return m_database.get(); }
    OdDbDatabase& operator*() const { return *m_database; }
    /// Open for write; raises OdError where there is none.
    OdDbLayerTableRecordPtr layer(const char* name) const;
    OdDbObjectId object(quint64 handle) const;

    QByteArray original() const { return m_text; }
    /// What is written now; a failure where the audit finds a fault.
    QByteArray saved() const;
    /// The sentences about what was not kept.
    QStringList notKept() const;
    /// What is written now, read again.
    std::unique_ptr<OdDbDatabase> reread() const;
    /// The groups of the first record of that type with that group, "code=value code=value ...",
    /// its type left out; empty where there is none.
    std::string record(const char* type, const char* codeAndValue) const;

    /// The same in any text.
    static std::string record(const QByteArray& text, const char* type, const char* codeAndValue);
    /// Number of records of that type.
    static int count(const QByteArray& text, const char* type);
    /// The value behind the name of a header variable, empty where there is none.
    static std::string variable(const QByteArray& text, const char* name);

    using Edit = std::function<void(OdDbDatabase&)>;
    /// Whether the edit gives the binary form of the edited text, with codes of that many bytes.
    static bool isSameInBinary(const QByteArray& text, int codeBytes, const Edit& edit);

private:
    QByteArray m_text;
    std::unique_ptr<OdDbDatabase> m_database;
};
