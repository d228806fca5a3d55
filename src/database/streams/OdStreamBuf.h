#pragma once

#include "database/values/OdRxObject.h"

#include <QtGlobal>

namespace OdDb {
enum FilerSeekType { kSeekFromStart, kSeekFromCurrent, kSeekFromEnd };
}

/// A sequence of bytes with one position for reading and writing. Writing at the end makes it
/// longer, elsewhere it overwrites.
class OdStreamBuf : public OdRxObject
{
public:
    virtual quint64 length() const = 0;
    virtual quint64 tell() const = 0;
    /// Moves the position and returns it. Raises OdError with OutOfRange for a place before the
    /// start or beyond the end; the position then stays.
    virtual quint64 seek(qint64 offset, OdDb::FilerSeekType whence) = 0;
    bool isEof() const { return tell() == length(); }

    /// Reads exactly `count` bytes. Raises OdError with OutOfRange where the stream has fewer left;
    /// the position then stays.
    virtual void getBytes(void* buffer, quint64 count) = 0;
    virtual void putBytes(const void* buffer, quint64 count) = 0;
    quint8 getByte()
    {
        quint8 byte = 0;
        getBytes(&byte, 1);
        return byte;
    }
    void putByte(quint8 byte) { putBytes(&byte, 1); }

    /// Cuts the stream off at the position.
    virtual void truncate() = 0;
};

using OdStreamBufPtr = OdSmartPtr<OdStreamBuf>;
