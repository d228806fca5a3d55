#pragma once

#include "database/values/OdDbObjectId.h"
#include "host/canvas/entities/EntityTessellator.h"
#include "host/canvas/entities/scope/BlockSource.h"
#include "host/canvas/text/TextStyles.h"

#include <QDeadlineTimer>

#include <memory>

class OdDbBlockTableRecord;
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
    /// Draws entities anew, of which those that came since are `added`, and those that changed
    /// `changed`; both in ascending order. Spaces and blocks that were not read yet are left out.
    void redraw(const std::vector<quint32>& added, const std::vector<quint32>& changed);
    /// Reads on until the time is over; true when everything asked for is there and linked.
    bool step(QDeadlineTimer until);
    /// Done share of what is known to be needed, 0 to 1.
    double progress() const;
    /// Slots of erased entities that were met; they are read as well, for they may come back.
    const std::vector<quint32>& erased() const { return m_erased; }
    /// The point of a block that its geometry counts from.
    static Vec2 basePointOf(const OdDbBlockTableRecord& block);

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

    quint32 penOf(const EntityFields& fields);
    quint32 linetypeByName(const QString& name);
    quint32 blockById(OdDbObjectId id);
    quint32 enqueue(OdDbObjectId block);
    bool readSome();
    bool nextBlock();
    void visit(quint32 slot);
    bool isRead(quint32 slot) const;
    void completeClip(SheetViewport& viewport);
    SpaceInfo spaceInfo(OdDbObjectId block) const;

    const OdDbDatabase& m_database;
    const ObjectStore& m_store;
    Scene& m_scene;
    std::unique_ptr<GroupCursor> m_cursor;
    std::unique_ptr<EntityTessellator> m_tessellator;
    std::unique_ptr<TextStyles> m_textStyles;
    QHash<QString, quint32> m_blocksByName;
    QHash<QString, quint32> m_linetypesByName;
    std::vector<quint32> m_queue; ///< indices of blocks of the scene
    std::size_t m_next = 0;
    quint32 m_block = kNoIndex;
    std::vector<EntityRun> m_runs;
    std::size_t m_run = 0;
    quint32 m_slot = 0;
    SpaceInfo m_space;
    std::vector<quint32> m_erased;
    bool m_hasRedrawn = false;
    quint64 m_doneSlots = 0;
    quint64 m_knownSlots = 0;
};
