#pragma once

#include "io/dxf/read/DxfCursor.h"
#include "io/dxf/scan/DxfLandmarks.h"
#include "io/dxf/text/DxfText.h"
#include "io/dxf/text/DxfVersion.h"
#include "io/dxf/text/GroupSpelling.h"
#include "io/records/RecordSource.h"

#include <QHash>

#include <utility>

class OdDbDatabase;

/// Reads objects out of the image of a DXF file when somebody opens them, and writes the drawing
/// back over it.
class DxfObjectSource final : public RecordSource
{
public:
    DxfObjectSource(std::shared_ptr<const FileImage> image, OdDbDatabase& database,
                    const DxfText& text, DrawingVersion version, DxfLandmarks landmarks);

    std::unique_ptr<GroupCursor> makeCursor() const override;
    DrawingPieces write(const OdDbDatabase& database) const override;
    void verify(const OdDbDatabase& database, const DrawingPieces& pieces,
                const WrittenBytes& written) const override;
    quint32 extensionDictionary(quint32 slot) const override;
    QString decode(QByteArrayView value) const override { return m_text.decode(value); }
    quint64 footprint() const override { return m_image->size(); }

    DxfCursor cursor(quint32 slot) const;
    /// Over the bytes of one record that stands elsewhere; see DxfCursor::openBytes().
    DxfCursor cursorOver(const char* begin, const char* end) const;
    LayerState readLayer(quint32 slot) const override;
    LinetypeState readLinetype(quint32 slot) const override;
    NamedRecordState readNamed(quint32 slot) const override;
    DictionaryState readDictionary(quint32 slot) const override;
    DictionaryVarState readDictionaryVar(quint32 slot) const override;
    XrecordState readXrecord(quint32 slot) const override;
    LayoutState readLayout(quint32 slot) const override;
    ViewportState readViewport(quint32 slot) const override;
    BlockState readBlock(quint32 slot) const override;

    QString suffix() const override { return QStringLiteral("dxf"); }
    const FileImage& image() const override { return *m_image; }
    const DxfText& text() const { return m_text; }
    DrawingVersion version() const { return m_version; }

    /// How a record of the file spells its groups; without a record, as layer 0 does.
    GroupSpelling spelling(quint32 slot) const;
    GroupSpelling spelling() const;
    /// The canonical value (text as UTF-8) encoded for this file.
    QByteArray fileValue(int code, QByteArrayView canonical) const;
    /// A name encoded for this file. Raises OdError with InvalidKey for a name that the file's
    /// encoding cannot hold.
    QByteArray encodedName(const QString& name) const;
    /// Groups that a new layer takes over from layer 0: material and visual style.
    std::vector<std::pair<int, QByteArray>> layerZeroExtras() const;
    bool isBinary() const { return m_landmarks.codeBytes > 0; }
    /// The name of a table's record as the file has it.
    QString nameInFile(quint32 slot) const;
    /// The layer that a name of the file means, whatever the layers are called now.
    OdDbObjectId layerOfFile(QByteArrayView name) const;
    /// Records of the file that name layers in extended data.
    const std::vector<quint32>& layerNameUsers() const { return m_landmarks.layerNameUsers; }
    /// A layer that was made because the file uses it and its table lacks it: as it was then; an
    /// empty state for any other.
    LayerState missingLayer(quint32 slot) const;
    QString missingName(quint32 slot) const { return m_missingLayers.value(slot); }
    void addMissingLayer(quint32 slot, const QString& name) { m_missingLayers.insert(slot, name); }
    const DxfLandmarks& landmarks() const { return m_landmarks; }
    /// The record of an entity that was made in this session as this file would have it; nothing
    /// for any other slot.
    QByteArray spelledEntity(quint32 slot) const;

private:
    std::shared_ptr<const FileImage> m_image;
    DxfText m_text;
    DrawingVersion m_version;
    DxfLandmarks m_landmarks;
    QHash<quint32, QString> m_missingLayers;
    mutable QHash<QByteArray, quint32> m_layersOfFile; ///< slot by folded name; made on demand
};
