#pragma once

#include "io/dwg/container/DwgFile.h"
#include "io/dwg/records/DwgFormat.h"
#include "io/dwg/sections/DwgClasses.h"

#include <QByteArray>
#include <QStringList>

#include <map>
#include <memory>
#include <utility>
#include <vector>

/// A DWG file taken apart into its records, without a drawing database.
class DwgParts
{
public:
    /// Raises OdError where the bytes cannot be taken apart.
    explicit DwgParts(const QByteArray& bytes);

    /// Records by handle, each from its size to its check sum.
    const std::map<quint64, QByteArrayView>& records() const { return m_records; }
    /// "LAYER"; the tables' own records are "TABLE".
    QByteArray typeOf(quint64 handle) const;
    const DwgFile& file() const { return *m_file; }
    const DwgFormat& format() const { return m_format; }
    /// What is wrong with the file, in words: sums, the object map, handles, records that overlap.
    QStringList faults() const { return m_faults; }

    /// References to records that are not there, "LAYER 10: owner 2": owners, reactors,
    /// dictionaries and what is in them, layers and linetypes of entities, applications, records of
    /// tables, layers frozen in viewports, members of groups, uses of blocks. Files of other
    /// programs have some.
    QStringList dangling() const;

    /// Records that are not the same in two files, "LAYER 10": changed, only here or only there.
    static QStringList different(const DwgParts& before, const DwgParts& after);

private:
    void readRecords();
    /// Handles that a record refers to, each with a word for what it is to it.
    std::vector<std::pair<const char*, quint64>> references(quint64 handle) const;
    void checkOverlaps();

    std::unique_ptr<DwgFile> m_file;
    DwgFormat m_format;
    DwgClasses m_classes;
    std::map<quint64, QByteArrayView> m_records;
    std::map<quint64, QByteArray> m_types;
    QStringList m_faults;
};
