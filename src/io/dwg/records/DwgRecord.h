#pragma once

#include "io/dwg/records/DwgStreams.h"

#include <vector>

/// What all records begin with.
struct DwgHead
{
    quint64 handle = 0;
    BitSpan xData; ///< extended data with the zero length behind them
    quint64 owner = 0; ///< 0: an entity of the space in `space`
    std::vector<quint64> reactors;
    BitSpan reactorCount; ///< of the data
    BitSpan reactorsAt;
    quint64 extension = 0; ///< dictionary of records that hang on the object, 0: none
    BitSpan noExtension; ///< the bit that tells there is none, since version 2004
    BitSpan extensionAt; ///< the reference to it; empty where there is none
};

/// What all entities begin with.
struct DwgEntityHead
{
    enum class Space : quint8 { Owner, Paper, Model };

    Space space = Space::Owner;
    quint64 layer = 0;
    BitSpan layerAt;
    quint64 linetype = 0; ///< where `linetypeKind` says so
    quint8 linetypeKind = 0; ///< 0 by layer, 1 by block, 2 continuous, 3 named
    // Up to version 2000: its neighbours in the same block, 0: none.
    quint64 previous = 0;
    quint64 next = 0;
    BitSpan closeNeighbours; ///< the bit that tells they have the handles beside its own
    BitSpan linksAt; ///< the references to them
    OdCmColor color; ///< by layer where nothing else is said
    quint64 bookColor = 0; ///< record of the colour
    quint32 transparency = 0; ///< as group 440, 0 where there is none
    double linetypeScale = 1.0;
    bool invisible = false;
    qint16 lineWeight = -1; ///< hundredths of a millimetre, negative ones have names
};

/// Reads one record at a time: its head, then what is its own.
class DwgRecord : public DwgStreams
{
public:
    /// Behind `objects` BitReader::kPadding bytes must be readable.
    DwgRecord(const DwgFormat& format, QByteArrayView objects);

    /// Goes to the record at `offset`, before its head. False where no record can stand there.
    bool open(quint64 offset);

    quint16 type() const { return m_type; }
    /// From the size ahead to the check sum behind.
    QByteArrayView bytes() const { return m_bytes; }
    bool sumHolds() const;
    /// Bit of the data stream at which the length of the data is told, versions 2000 to 2007.
    quint64 lengthPosition() const { return m_lengthAt; }

    /// Of an object that is no entity.
    void readHead(DwgHead& head);
    void readHead(DwgHead& head, DwgEntityHead& entity);
    /// Of an entity, or of an object that is none, which leaves `entity` as it is.
    void readHead(DwgHead& head, DwgEntityHead& entity, bool isEntity)
    {
        isEntity ? readHead(head, entity) : readHead(head);
    }
    /// The last part of the head of an entity, which one within another begins with.
    void readProperties(DwgHead& head, DwgEntityHead& entity);

private:
    void readStart(DwgHead& head);
    void readReferences(DwgHead& head);
    void readLayer(DwgEntityHead& entity);
    void readEntityColor(DwgEntityHead& entity);
    void readLinks(const DwgHead& head, DwgEntityHead& entity);

    QByteArrayView m_objects;
    QByteArrayView m_bytes;
    quint16 m_type = 0;
    quint64 m_lengthAt = 0;
};

/// Hundredths of a millimetre by the number in a record; negative ones have names.
qint16 dwgLineWeight(int number);
/// The number of a lineweight, or of the nearest one that has a number.
int dwgLineWeightNumber(qint16 hundredths);
