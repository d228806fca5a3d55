#pragma once

#include "database/GroupCursor.h"
#include "database/ObjectStore.h"
#include "io/FileImage.h"
#include "io/dxf/DxfText.h"
#include "io/dxf/PairScanner.h"

/// Groups of a record of an ASCII DXF text.
class DxfCursor final : public GroupCursor
{
public:
    DxfCursor(std::shared_ptr<const FileImage> image, const ObjectStore& store, const DxfText& text)
        : m_image(std::move(image))
        , m_store(store)
        , m_text(text)
        , m_scan(m_image->begin(), m_image->begin())
    { }

    void open(quint32 slot) override;
    bool next() override
    {
        if (!m_scan.next() || m_scan.code() < PairScanner::kLowestCode)
            return false;
        m_code = m_scan.code();
        return true;
    }

    double real() const override;
    qint64 integer() const override;
    quint64 handle() const override;
    QString text() const override { return m_text.decode(m_scan.value()); }
    QByteArrayView bytes() const override { return m_scan.value(); }

    const FileImage& image() const { return *m_image; }
    /// Byte ranges in the file image, for editing.
    quint64 groupBegin() const { return offsetOf(m_scan.begin()); }
    quint64 groupEnd() const { return offsetOf(m_scan.nextBegin()); }
    quint64 valueBegin() const { return offsetOf(m_scan.valueBegin()); }
    /// End of the value's text, before its line end.
    quint64 valueEnd() const { return valueBegin() + static_cast<quint64>(m_scan.value().size()); }

private:
    quint64 offsetOf(const char* at) const { return static_cast<quint64>(at - m_image->begin()); }

    std::shared_ptr<const FileImage> m_image;
    const ObjectStore& m_store;
    DxfText m_text;
    PairScanner m_scan;
};
