#pragma once

#include "io/dwg/container/DwgFile.h"
#include "io/dwg/records/DwgStreams.h"

/// The streams of the sections of header variables and classes: between 16-byte marks, with the
/// size ahead.
class SectionStreams final : public DwgStreams
{
public:
    SectionStreams(const DwgFile& file, DwgSection section, const DwgFormat& format);

    /// Whether the section has its size, and the mark and sum where they belong.
    bool isSound() const { return m_sound; }
    /// Up to version 2004 references stand among the data.
    quint64 reference()
    {
        return hasTextStream(version()) ? DwgStreams::reference() : data.handle().value;
    }

    /// The bytes of a section with another body: size and sum follow.
    static QByteArray withBody(const SectionStreams& section, QByteArrayView old,
                               const QByteArray& body);

    /// Bytes of the mark ahead of the size, and of that behind the sum.
    static constexpr qsizetype kMarkSize = 16;

private:
    bool m_sound = false;
};
