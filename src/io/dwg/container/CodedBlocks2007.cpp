#include "io/dwg/container/CodedBlocks2007.h"

#include <algorithm>
#include <array>

namespace {

/// Products in the field of 256 elements with the powers 1 to `roots` of its generator. A sound
/// block, read as a polynomial with its first byte lowest, is zero at each of them.
template <int roots>
class Field
{
public:
    explicit constexpr Field(unsigned polynomial)
    {
        unsigned factor = 1;
        for (auto& products : m_products) {
            factor = twice(factor, polynomial);
            for (unsigned byte = 0; byte < products.size(); ++byte)
                products[byte] = static_cast<quint8>(product(factor, byte, polynomial));
        }
    }

    bool isZeroAtRoots(const char* first, qsizetype step) const
    {
        std::array<quint8, roots> values{};
        for (qsizetype i = CodedBlocks2007::kBlockSize; i-- > 0;) {
            const auto byte = static_cast<quint8>(first[i * step]);
            for (std::size_t root = 0; root < roots; ++root)
                values[root] = m_products[root][values[root]] ^ byte;
        }
        return std::all_of(values.begin(), values.end(), [](quint8 value) { return value == 0; });
    }

private:
    static constexpr unsigned twice(unsigned value, unsigned polynomial)
    {
        value <<= 1;
        return (value & 0x100) != 0 ? value ^ polynomial : value;
    }

    static constexpr unsigned product(unsigned a, unsigned b, unsigned polynomial)
    {
        unsigned sum = 0;
        for (; b != 0; b >>= 1, a = twice(a, polynomial))
            sum ^= (b & 1) != 0 ? a : 0;
        return sum;
    }

    std::array<std::array<quint8, 256>, roots> m_products{};
};

constexpr int kSystemRoots = 16;
constexpr int kDataRoots = 4;
const Field<kSystemRoots> kSystemField(0x169);
const Field<kDataRoots> kDataField(0x11D);

} // namespace

CodedBlocks2007::CodedBlocks2007(Kind kind)
    : m_kind(kind)
    , m_dataSize(kBlockSize - (kind == System ? kSystemRoots : kDataRoots))
{ }

quint64 CodedBlocks2007::codedSize(quint64 size) const
{
    const auto dataSize = static_cast<quint64>(m_dataSize);
    return (size / dataSize + (size % dataSize != 0 ? 1 : 0)) * kBlockSize;
}

QByteArray CodedBlocks2007::data(QByteArrayView coded) const
{
    const qsizetype blocks = coded.size() / kBlockSize;
    QByteArray data(blocks * m_dataSize, Qt::Uninitialized);
    char* out = data.data();
    for (qsizetype block = 0; block < blocks; ++block) {
        for (qsizetype i = 0; i < m_dataSize; ++i)
            *out++ = coded[block + i * blocks];
    }
    return data;
}

bool CodedBlocks2007::areSound(QByteArrayView coded) const
{
    const qsizetype blocks = coded.size() / kBlockSize;
    for (qsizetype block = 0; block < blocks; ++block) {
        const char* first = coded.data() + block;
        if (m_kind == System ? !kSystemField.isZeroAtRoots(first, blocks)
                             : !kDataField.isZeroAtRoots(first, blocks))
            return false;
    }
    return true;
}
