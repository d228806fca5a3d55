#pragma once

#include <QString>

#include <exception>
#include <string>

/// Result codes of the database layer.
enum class OdResult {
    Ok,
    InvalidInput,
    NotApplicable = 3, ///< the operation is refused for this object
    InvalidIndex,
    NotThatKindOfClass,
    NullObjectId,
    WasErased,
    NotOpenForWrite,
    NoDatabase,
    KeyNotFound,
    DuplicateKey,
    InvalidKey,
    OutOfRange,
    CantOpenFile,
    CantWriteFile,
    InvalidDrawing,
    Cancelled,
};

/// Root of every error that the database and the codecs raise. description() is a whole sentence
/// that can be shown to the user.
class OdError : public std::exception
{
public:
    OdError(OdResult code, const QString& description)
        : m_code(code)
        , m_description(description)
        , m_utf8(description.toStdString())
    { }

    OdResult code() const { return m_code; }
    const QString& description() const { return m_description; }
    const char* what() const noexcept override { return m_utf8.c_str(); }

private:
    OdResult m_code;
    QString m_description;
    std::string m_utf8;
};

class OdError_NotThatKindOfClass : public OdError
{
public:
    explicit OdError_NotThatKindOfClass(const QString& expected)
        : OdError(OdResult::NotThatKindOfClass,
                  QStringLiteral("The object is not a %1.").arg(expected))
    { }
};

class OdError_InvalidIndex : public OdError
{
public:
    OdError_InvalidIndex()
        : OdError(OdResult::InvalidIndex, QStringLiteral("The index is out of range."))
    { }
};

class OdError_NotOpenForWrite : public OdError
{
public:
    OdError_NotOpenForWrite()
        : OdError(OdResult::NotOpenForWrite, QStringLiteral("The object is not open for write."))
    { }
};

/// A file that cannot be read or written.
class OdError_FileAccess : public OdError
{
public:
    OdError_FileAccess(OdResult code, const QString& sentence)
        : OdError(code, sentence)
    { }
};

/// A drawing whose contents break its format. The description names file, line (in a binary file
/// the byte, from 0) and expectation.
class OdError_InvalidDrawing : public OdError
{
public:
    OdError_InvalidDrawing(const QString& file, qint64 line, const QString& found)
        : OdError(OdResult::InvalidDrawing,
                  line > 0 ? QStringLiteral("%1, line %2: %3").arg(file).arg(line).arg(found)
                           : QStringLiteral("%1: %2").arg(file, found))
        , m_line(line)
    { }
    static OdError_InvalidDrawing atByte(const QString& file, quint64 byte, const QString& found)
    {
        return {QStringLiteral("%1, byte %2").arg(file).arg(byte), 0, found};
    }
    /// 0 where the error has none.
    qint64 line() const { return m_line; }

private:
    qint64 m_line;
};
