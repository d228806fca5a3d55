#include "io/dxf/DxfCursor.h"

#include "base/NumberText.h"

void DxfCursor::open(quint32 slot)
{
    m_code = -1;
    if (slot >= m_store.fileRecords()) {
        m_scan = PairScanner(m_image->end(), m_image->end());
        return;
    }
    m_scan =
        PairScanner(m_image->begin() + m_store.begin(slot), m_image->begin() + m_store.end(slot));
    m_scan.next(); // the type name
}

double DxfCursor::real() const
{
    return NumberText::real(m_scan.value()).value_or(0.0);
}

qint64 DxfCursor::integer() const
{
    return NumberText::integer(m_scan.value()).value_or(0);
}

quint64 DxfCursor::handle() const
{
    return NumberText::handle(m_scan.value()).value_or(0);
}
