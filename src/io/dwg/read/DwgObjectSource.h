#pragma once

#include "io/dwg/container/DwgFile.h"
#include "io/dwg/records/DwgFormat.h"
#include "io/dwg/records/DwgRecord.h"
#include "io/dwg/records/FreeRecords.h"
#include "io/dwg/records/TableRecords.h"
#include "io/dwg/sections/DwgClasses.h"
#include "io/records/RecordSource.h"

#include <QStringList>

#include <memory>
#include <vector>

/// Reads objects out of the records of a DWG file when somebody opens them.
class DwgObjectSource final : public RecordSource
{
public:
    DwgObjectSource(std::unique_ptr<DwgFile> file, OdDbDatabase& database);

    std::unique_ptr<GroupCursor> makeCursor() const override;
    DrawingPieces write(const OdDbDatabase& database) const override;
    quint32 extensionDictionary(quint32 slot) const override;
    /// Texts that leave this format are UTF-8.
    QString decode(QByteArrayView value) const override { return QString::fromUtf8(value); }
    quint64 footprint() const override;
    QString suffix() const override { return QStringLiteral("dwg"); }
    QString refusal() const override;
    const FileImage& image() const override { return m_file->image(); }
    void verify(const OdDbDatabase& database, const DrawingPieces& pieces,
                const WrittenBytes& written) const override;

    const DwgFile& file() const { return *m_file; }
    const DwgFormat& format() const { return m_format; }
    const DwgClasses& classes() const { return m_classes; }

    /// A reader for the records of this file.
    DwgRecord reader() const;
    /// Where the record of a slot of the file stands in the section of objects.
    quint64 offsetOf(quint32 slot) const { return m_offsets[slot]; }
    /// Goes to the record of a slot, before its head; false where the file has none.
    bool open(DwgRecord& record, quint32 slot) const;
    /// The name of the table's record with that handle, as the file has it.
    QString nameOf(quint64 handle) const;
    /// The same for what extended data name: layers, applications. Of a block its plain name.
    QString plainNameOf(quint64 handle) const;
    /// A layer as a record says, behind its head; not what stands in records of its own.
    LayerState decodeLayer(DwgRecord& record, const DwgHead& head,
                           const FreeRecords::NameOf& nameOf) const;
    /// A colour of a colour book, by the handle of its record.
    OdCmColor bookColor(quint64 handle) const;

    // For the codec that fills it in
    void setOffsets(std::vector<quint64> offsets) { m_offsets = std::move(offsets); }
    void setFaults(const QStringList& faults) { m_faults = faults; }
    /// Why the drawing must not be written, in sentences.
    const QStringList& faults() const { return m_faults; }

    LayerState readLayer(quint32 slot) const override;
    LinetypeState readLinetype(quint32 slot) const override;
    NamedRecordState readNamed(quint32 slot) const override;
    DictionaryState readDictionary(quint32 slot) const override;
    DictionaryVarState readDictionaryVar(quint32 slot) const override;
    XrecordState readXrecord(quint32 slot) const override;
    LayoutState readLayout(quint32 slot) const override;
    ViewportState readViewport(quint32 slot) const override;
    BlockState readBlock(quint32 slot) const override;

private:
    /// Goes behind the head of the record with that handle; false where none but an entity has it.
    bool openObject(DwgRecord& record, quint64 handle) const;
    /// The name of a block, also of one that the program made and numbered.
    QString wholeName(const TableRecords::Block& block) const;
    void readLayerXData(const GroupList& xData, LayerState& layer) const;

    std::unique_ptr<DwgFile> m_file;
    DwgFormat m_format;
    DwgClasses m_classes;
    std::vector<quint64> m_offsets; ///< by slot
    QStringList m_faults;
};
