#pragma once

#include "io/DrawingCodec.h"
#include "io/dxf/DxfCursor.h"
#include "io/dxf/DxfLandmarks.h"
#include "io/dxf/DxfText.h"

class GroupList;
class OdDbDatabase;
struct BlockState;
struct DictionaryState;
struct DictionaryVarState;
struct LayerState;
struct LayoutState;
struct LinetypeState;
struct ViewportState;
struct XrecordState;

/// Reads objects out of the image of a DXF file when somebody opens them.
class DxfObjectSource final : public DrawingSource
{
public:
    DxfObjectSource(std::shared_ptr<const FileImage> image, OdDbDatabase& database,
                    const DxfText& text, DxfLandmarks landmarks);

    void read(OdDbObject& object) const override;
    std::unique_ptr<GroupCursor> makeCursor() const override;
    DrawingPieces write(const OdDbDatabase& database) const override;
    quint32 extensionDictionary(quint32 slot) const override;
    QString decode(QByteArrayView value) const override { return m_text.decode(value); }
    quint64 footprint() const override { return m_image->size(); }

    DxfCursor cursor(quint32 slot) const;
    // Records as the file has them, whatever the objects say now.
    LayerState readLayer(quint32 slot) const;
    DictionaryState readDictionary(quint32 slot) const;
    DictionaryVarState readDictionaryVar(quint32 slot) const;
    XrecordState readXrecord(quint32 slot) const;
    ViewportState readViewport(quint32 slot) const;
    /// The group's value in the form that GroupList keeps.
    void appendCanonical(const DxfCursor& group, GroupList& groups) const;
    const FileImage& image() const { return *m_image; }
    const DxfText& text() const { return m_text; }
    const DxfLandmarks& landmarks() const { return m_landmarks; }

private:
    OdDbObjectId id(quint64 handle) const;
    BlockState readBlock(quint32 slot) const;
    LinetypeState readLinetype(quint32 slot) const;
    LayoutState readLayout(quint32 slot) const;
    void readLayerExtras(quint32 dictionarySlot, LayerState& layer) const;

    std::shared_ptr<const FileImage> m_image;
    OdDbDatabase& m_database;
    DxfText m_text;
    DxfLandmarks m_landmarks;
};
