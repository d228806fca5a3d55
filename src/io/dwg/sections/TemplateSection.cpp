#include "io/dwg/sections/TemplateSection.h"

#include <QtEndian>

namespace {

constexpr qsizetype kWord = 2;

bool isWhole(QByteArrayView section)
{
    if (section.size() < 2 * kWord)
        return false;
    const qsizetype length = qFromLittleEndian<quint16>(section.data());
    const qsizetype description = section.size() - 2 * kWord;
    return description == length || description == 2 * length; // of bytes, or of UTF-16
}

} // namespace

std::optional<int> TemplateSection::measurement(QByteArrayView section)
{
    if (!isWhole(section))
        return std::nullopt;
    return qFromLittleEndian<quint16>(section.data() + section.size() - kWord);
}

bool TemplateSection::setMeasurement(QByteArray& section, int value)
{
    if (!isWhole(section))
        return false;
    qToLittleEndian(static_cast<quint16>(value), section.data() + section.size() - kWord);
    return true;
}
