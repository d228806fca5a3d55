#pragma once

#include "database/OdDbObjectId.h"
#include "host/canvas/entities/BlockSource.h"
#include "host/canvas/entities/EntityTessellator.h"
#include "host/canvas/text/TextStyles.h"

#include <QDeadlineTimer>

#include <memory>

class Scene;
struct EntityRun;

/// Reads spaces, and the blocks that they refer to, into a scene; in steps, so that a window stays
/// alive meanwhile. A block is read once however often it is referred to, and none is read while
/// another is.
class SceneBuilder : private BlockSource
{
public:
    SceneBuilder(const OdDbDatabase& database, Scene& scene);
    ~SceneBuilder() override;

    /// Asks for a space or block.
    void require(OdDbObjectId block);
    /// Reads on until the time is over; true when everything asked for is there and linked.
    bool step(QDeadlineTimer until);
    /// Done share of what is known to be needed, 0 to 1.
    double progress() const;
    /// Slots of erased entities that were met; they are read as well, for they may come back.
    const std::vector<quint32>& erased() const { return m_erased; }

private:
    quint32 blockByName(const QString& name) override;
    quint32 blockByHandle(quint64 handle) override;
    bool isMissingReference(quint32 block) const override;
    Vec2 basePoint(quint32 block) const override;
    QString fontFamily(const QString& textStyle) override
    {
        return m_textStyles->family(textStyle);
    }
    Style styleOf(quint32 slot, const EntityFields& fields) override;

    quint32 blockById(OdDbObjectId id);
    quint32 enqueue(OdDbObjectId block);
    bool readSome();
    bool nextBlock();
    void visit(quint32 slot);

    const OdDbDatabase& m_database;
    const ObjectStore& m_store;
    Scene& m_scene;
    std::unique_ptr<GroupCursor> m_cursor;
    std::unique_ptr<EntityTessellator> m_tessellator;
    std::unique_ptr<TextStyles> m_textStyles;
    QHash<QString, quint32> m_blocksByName;
    std::vector<quint32> m_queue; ///< indices of blocks of the scene
    std::size_t m_next = 0;
    quint32 m_block = kNoIndex;
    std::vector<EntityRun> m_runs;
    std::size_t m_run = 0;
    quint32 m_slot = 0;
    SpaceInfo m_space;
    std::vector<quint32> m_erased;
    quint64 m_doneSlots = 0;
    quint64 m_knownSlots = 0;
};
