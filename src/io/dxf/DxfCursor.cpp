#include "io/dxf/DxfCursor.h"

#include "base/NumberText.h"

void DxfCursor::open(quint32 slot)
{
    m_code = -1;
    m_slot = slot;
    const bool inFile = slot < m_store.fileRecords();
    if (inFile)
        start(m_image->begin() + m_store.begin(slot), m_image->begin() + m_store.end(slot));
    else
        start(m_image->end(), m_image->end());
}

void DxfCursor::openBytes(const char* begin, const char* end)
{
    m_code = -1;
    m_slot = ObjectStore::kNone;
    start(begin, end);
}

void DxfCursor::start(const char* begin, const char* end)
{
    m_inGroup = false;
    // The first group is the type name.
    if (isBinary()) {
        m_binary = BinaryScanner(begin, end, m_codeBytes);
        m_binary.next();
    } else {
        m_lines = PairScanner(begin, end);
        m_lines.next();
    }
}

double DxfCursor::real() const
{
    return isBinary() ? BinaryValue::real(m_code, m_binary.value())
                      : NumberText::real(m_lines.value()).value_or(0.0);
}

qint64 DxfCursor::integer() const
{
    return isBinary() ? BinaryValue::integer(m_code, m_binary.value())
                      : NumberText::integer(m_lines.value()).value_or(0);
}

quint64 DxfCursor::handle() const
{
    return NumberText::handle(bytes()).value_or(0);
}

GroupSpelling DxfCursor::spelling() const
{
    if (isBinary())
        return GroupSpelling::binary(m_codeBytes);
    return m_slot < m_store.fileRecords()
        ? GroupSpelling::sample(m_image->view(m_store.begin(m_slot), m_store.end(m_slot)))
        : GroupSpelling::sample({});
}
