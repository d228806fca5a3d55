#pragma once

#include "database/tables/OdDbLayerTableRecord.h"
#include "database/values/GroupList.h"
#include "io/records/DrawingVersion.h"

#include <QByteArray>
#include <QString>

#include <map>
#include <vector>

/// What a DWG drawing that DwgMaker makes is to hold; layers are named by their place in `layers`.
struct MadeDrawing
{
    struct Layer
    {
        LayerState state; ///< linetype, plot style and overrides of it are not looked at
        QString linetype = QStringLiteral("Continuous"); ///< or "DASHED"
    };
    struct Entity
    {
        QByteArray type; ///< LINE, CIRCLE or TEXT
        GroupList groups;
        std::size_t layer = 0;
        bool onSheet = false;
    };
    struct Override
    {
        std::size_t layer = 0;
        OdCmColor color;
        qint16 lineWeight = 0;
    };

    DrawingVersion version = DrawingVersion::V2018;
    std::vector<Layer> layers; ///< "0" first
    std::vector<Entity> entities;
    // In the viewport of the sheet.
    std::vector<std::size_t> frozen;
    Override override;
    QString ruleName;
    QString ruleExpression;
    QString groupName;
    std::vector<std::size_t> groupLayers;
    QString stateName; ///< of a state that has all layers as they are
    QString stateDescription;
    bool hasVariables = true; ///< of its dictionary, and a class for them
    std::map<QByteArray, quint64> references; ///< handles that the header variables have amiss
    // In versions with pages:
    bool isEncrypted = false; ///< the head says that parts are
    QByteArray moreSection; ///< the name of one more, of unknown use
    QByteArray encryptedSection; ///< the one of that name is marked, though its bytes are plain

    static constexpr DrawingVersion kVersions[] = {DrawingVersion::V2000, DrawingVersion::V2004,
                                                   DrawingVersion::V2010, DrawingVersion::V2013,
                                                   DrawingVersion::V2018};

    /// A bit of everything, within what the version can say.
    static MadeDrawing sample(DrawingVersion version);
};
