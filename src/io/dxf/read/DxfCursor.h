#pragma once

#include "database/store/ObjectStore.h"
#include "database/values/GroupCursor.h"
#include "io/FileImage.h"
#include "io/dxf/scan/BinaryScanner.h"
#include "io/dxf/scan/PairScanner.h"
#include "io/dxf/text/BinaryValue.h"
#include "io/dxf/text/DxfText.h"
#include "io/dxf/text/GroupSpelling.h"

class DxfObjectSource;

/// Groups of a record of a DXF file, text or binary.
class DxfCursor final : public GroupCursor
{
public:
    DxfCursor(std::shared_ptr<const FileImage> image, const ObjectStore& store,
              const DxfObjectSource& source);

    /// A record that the file does not have is spelled as the file would have it.
    void open(quint32 slot) override;
    /// Goes to the one record in [begin, end), wherever it stands; kPadding bytes behind it must be
    /// readable. Byte ranges have no meaning then.
    void openBytes(const char* begin, const char* end);
    static constexpr std::size_t kPadding = FileImage::kPadding;
    bool next() override { return isBinary() ? step(m_binary) : step(m_lines); }

    double real() const override;
    qint64 integer() const override;
    quint64 handle() const override;
    QString text() const override { return m_text.decode(bytes()); }
    /// Numbers and chunks of a binary file as a text would spell them.
    QByteArrayView bytes() const override
    {
        return isBinary() ? BinaryValue::text(m_code, m_binary.value(), m_scratch)
                          : m_lines.value();
    }

    /// The type name; before the first next() only.
    QByteArrayView typeName() const { return isBinary() ? m_binary.value() : m_lines.value(); }
    /// Whether the group is neither extended data nor an application's (102), but the record's own.
    bool isOwn() const { return !m_inGroup && m_code != kGroupMark && m_code < 1000; }

    const FileImage& image() const { return *m_image; }
    bool isBinary() const { return m_codeBytes > 0; }
    /// How the open record spells its groups.
    GroupSpelling spelling() const;

    /// Byte ranges in the file image, for editing.
    quint64 groupBegin() const { return offsetOf(isBinary() ? m_binary.begin() : m_lines.begin()); }
    quint64 groupEnd() const
    {
        return offsetOf(isBinary() ? m_binary.nextBegin() : m_lines.nextBegin());
    }
    quint64 valueBegin() const
    {
        return offsetOf(isBinary() ? m_binary.valueBegin() : m_lines.valueBegin());
    }
    /// End of the value, before its line end or its closing zero.
    quint64 valueEnd() const
    {
        return isBinary() ? offsetOf(m_binary.valueEnd())
                          : valueBegin() + static_cast<quint64>(m_lines.value().size());
    }

private:
    static constexpr int kGroupMark = 102;

    void start(const char* begin, const char* end);
    template <class Scanner>
    bool step(Scanner& scan)
    {
        if (!scan.next() || scan.code() < Scanner::kLowestCode)
            return false;
        m_code = scan.code();
        if (m_code == kGroupMark)
            m_inGroup = scan.value().trimmed().startsWith('{');
        return true;
    }
    quint64 offsetOf(const char* at) const { return static_cast<quint64>(at - m_image->begin()); }

    std::shared_ptr<const FileImage> m_image;
    const ObjectStore& m_store;
    const DxfObjectSource& m_source;
    QByteArray m_spelled; ///< the open record, where the file does not have it
    DxfText m_text;
    int m_codeBytes;
    quint32 m_slot = ObjectStore::kNone;
    bool m_inGroup = false;
    PairScanner m_lines;
    BinaryScanner m_binary;
    mutable BinaryValue::Scratch m_scratch;
};
