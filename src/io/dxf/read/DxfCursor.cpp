#include "io/dxf/read/DxfCursor.h"

#include "base/NumberText.h"
#include "io/dxf/read/DxfObjectSource.h"

DxfCursor::DxfCursor(std::shared_ptr<const FileImage> image, const ObjectStore& store,
                     const DxfObjectSource& source)
    : m_image(std::move(image))
    , m_store(store)
    , m_source(source)
    , m_text(source.text())
    , m_codeBytes(source.landmarks().codeBytes)
    , m_lines(m_image->begin(), m_image->begin())
{ }

void DxfCursor::open(quint32 slot)
{
    m_code = -1;
    m_slot = slot;
    if (slot < m_store.fileRecords())
        return start(m_image->begin() + m_store.begin(slot), m_image->begin() + m_store.end(slot));
    m_spelled = m_source.spelledEntity(slot);
    const qsizetype length = m_spelled.size();
    m_spelled.append(static_cast<qsizetype>(kPadding), '\0');
    start(m_spelled.constData(), m_spelled.constData() + length);
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
