#pragma once

#include "io/dxf/scan/DxfIndexer.h"
#include "io/dxf/text/DxfText.h"

#include <QHash>

class DxfObjectSource;
class OdDbDatabase;

/// Turns the record index of a DXF text into a database: tables and their names, blocks, owners,
/// handles, current settings. What the file leaves out is made; what it contradicts is noted.
class DxfAssembler
{
public:
    DxfAssembler(const FileImage& image, OdDbDatabase& database, const DxfIndex& index,
                 DxfObjectSource& source);
    void run();

private:
    void header();
    void tables();
    void makeTable(OdDbTableKind kind, quint32 slot);
    void requireTables();
    void addRecord(OdDbTableKind kind, quint32 slot, QByteArrayView name);
    quint32 makeRecord(OdDbTableKind kind, const QString& name);
    void handles();
    void sessionHandles();
    void owners();
    void checkOwnerCycles();
    void missingLayers();
    void blocks();
    quint32 blockRecord(const DxfIndex::Block& block);
    void ownEntities(quint32 first, quint32 end, quint32 owner);
    void currentSettings();
    void note(quint64 offset, const QString& sentence);
    QByteArray folded(QByteArrayView name) const;

    const FileImage& m_image;
    OdDbDatabase& m_database;
    ObjectStore& m_store;
    const DxfIndex& m_index;
    DxfObjectSource& m_source;
    const DxfText& m_text;
    int m_notes = 0;
};
