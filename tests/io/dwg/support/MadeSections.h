#pragma once

#include "io/dwg/container/FlatFile.h"
#include "io/dwg/records/DwgFormat.h"

#include <QByteArray>

#include <map>
#include <vector>

/// The sections of a made drawing beside its records.
class MadeSections
{
public:
    explicit MadeSections(const DwgFormat& format)
        : m_format(format)
    { }

    /// The maintenance version that goes into the head; sections are spelled for it.
    static quint8 maintenance(DrawingVersion version);

    /// `amiss` are handles by their names that are others than usual.
    QByteArray header(quint64 seed, const std::map<QByteArray, quint64>& amiss) const;
    /// With one for variables of the dictionary, or none.
    QByteArray classes(bool forVariables) const;
    QByteArray auxHeader(quint64 seed) const;
    /// `objects` is where the records start in a flat file.
    QByteArray freeSpace(std::size_t records, quint32 objects) const;
    /// A preview that stands there, with a picture of some bytes.
    static QByteArray preview(quint32 place);
    /// Of version 2000: `address` is where it starts, its mark included.
    QByteArray secondHeader(quint64 address, const std::vector<FlatFile::Locator>& locators,
                            quint64 seed) const;

private:
    QByteArray marked(QByteArrayView mark, const QByteArray& body) const;

    const DwgFormat& m_format;
};
