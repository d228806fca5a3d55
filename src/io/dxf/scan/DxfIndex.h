#pragma once

#include "database/store/ObjectStore.h"
#include "io/dxf/scan/DxfLandmarks.h"

#include <QByteArrayView>

#include <vector>

/// What one pass over a DXF file found, beyond the records in the store. Names and values are views
/// of the image.
struct DxfIndex
{
    struct HeaderVariable
    {
        QByteArrayView name;
        int code;
        QByteArrayView value; ///< as the file has it: in a binary file numbers are bytes
    };
    struct TableRecord
    {
        quint32 slot;
        QByteArrayView name;
    };
    struct Table
    {
        quint32 slot;
        QByteArrayView name;
        std::vector<TableRecord> records;
    };
    struct Block
    {
        quint32 slot;
        QByteArrayView name;
        quint32 firstEntity;
        quint32 endEntity;
    };
    struct Entities
    {
        quint32 first;
        quint32 end;
    };
    struct Owner
    {
        quint32 slot;
        quint64 handle;
    };

    std::vector<HeaderVariable> header;
    std::vector<Table> tables;
    std::vector<Block> blocks;
    std::vector<Owner> owners; ///< of table records and objects
    std::vector<QByteArrayView> missingLayers; ///< entities refer to number n as kMissingLayer + n
    std::vector<quint32> paperEntities; ///< slots in the ENTITIES section that carry 67 = 1
    std::vector<Entities> entities; ///< of each ENTITIES section; a sound file has one
    quint32 firstObject = ObjectStore::kNone;
    DxfLandmarks landmarks;

    static constexpr quint32 kMissingLayer = 0xF0000000u;
    static constexpr quint32 kMostMissingLayers = 0x0FFFFFF0u;
};
