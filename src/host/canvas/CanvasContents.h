#pragma once

#include "host/canvas/picking/PickScene.h"
#include "host/canvas/render/ErasedFilter.h"
#include "host/canvas/render/ScenePart.h"
#include "host/canvas/scene/DrawingLines.h"
#include "host/canvas/scene/SceneBuilder.h"
#include "host/canvas/text/TextShaper.h"

#include <QObject>
#include <QTimer>

#include <optional>

class DatabaseWatcher;
class OdDbDatabase;

/// What a canvas shows of a database: the geometry of the current space, read in time slices, and
/// the looks of its layers. Follows the database.
class CanvasContents : public QObject
{
    Q_OBJECT
public:
    explicit CanvasContents(QObject* parent = nullptr);
    ~CanvasContents() override;

    /// Shows that database, or nothing. It must outlive its use here or say goodbye.
    void setDatabase(OdDbDatabase* database);
    /// Reads all geometry again; what was shown stays until then.
    void rebuild();
    /// Completes reading without returning to the event loop.
    void finish();
    /// Per cent by which what stands on locked layers fades; 0 or less: not at all.
    void setLockedFade(int percent);
    int lockedFade() const { return m_lockedFade; }
    /// Lineweight of what has none of its own, in hundredths of a millimetre.
    void setDefaultWeight(int weight);
    int defaultWeight() const { return m_defaultWeight; }

    /// Whether the current space can be painted.
    bool isReady() const;
    bool isReading() const { return m_builder != nullptr; }
    /// Done share of reading, 0 to 1.
    double progress() const { return m_builder ? m_builder->progress() : 1.0; }
    /// Slot of the block of the current space; kNoIndex without a database.
    quint32 space() const { return m_space; }

    /// The spaces that make up the picture; empty while nothing is ready.
    std::vector<ScenePart> parts();
    /// Extents of what can be seen, the paper of a sheet included.
    Box2 extents();
    /// The paper of the current sheet; empty in model space and where none is named.
    const Box2& paper() const { return m_paper; }
    /// Frame of the viewport worked in, on the sheet; empty in model space and on the sheet itself.
    Box2 activeViewportFrame() const;
    /// What can be pointed at: the current space, or model space in the viewport worked in. Empty
    /// while nothing is ready.
    PickScene pickScene();
    /// The viewports of the current sheet, as far as they can be painted through; none in model
    /// space and while nothing is ready.
    std::vector<SheetViewport> openViewports() const;
    /// Number of entities by type that are not drawn in the current space; biggest numbers first.
    QString undrawnSummary();

    std::shared_ptr<const Scene> scene() const { return m_scene; }
    std::shared_ptr<TextShaper> shaper() const { return m_shaper; }
    std::shared_ptr<const ErasedFilter> erased() const { return m_erased; }
    /// How often geometry was read from the drawing, whole or the rest of it.
    int geometryBuilds() const { return m_builds; }

signals:
    /// Layers or entities look different.
    void lookChanged();
    /// The current space became ready for the first time, or another one that is ready is current.
    void spaceShown();
    /// Reading went on, began or ended.
    void readingProgressed();
    /// Entities came or changed: undrawnSummary() may answer otherwise.
    void entitiesRedrawn();

private:
    void forget();
    void follow(DatabaseWatcher& watcher);
    void followSpace();
    void followBlock(quint32 slot);
    void entityChanged(quint32 slot, std::vector<quint32>& list);
    void applyEntityChanges();
    void announceSpace();
    void startReading(std::shared_ptr<Scene> scene);
    void readSlice(QDeadlineTimer until);
    void takeWhatWasRead();
    void readingDone();
    void requireSpaces();
    void applyLayerChanges();
    const DrawingLines& lines();
    ScenePart partThrough(const SheetViewport& viewport);
    std::shared_ptr<const LayerLooks> looksIn(OdDbObjectId viewport);
    quint32 spaceIndex() const;
    bool showsModelThroughViewports() const;
    const SheetViewport* activeViewport() const;
    std::vector<bool> reachableBlocks() const;
    int linetypesWithSymbols(const std::vector<bool>& blocks) const;

    OdDbDatabase* m_database = nullptr;
    std::unique_ptr<DatabaseWatcher> m_watcher;
    quint32 m_space = kNoIndex;
    quint32 m_shownSpace = kNoIndex;
    Box2 m_paper;
    std::shared_ptr<Scene> m_scene; ///< ready, though it may be growing
    std::shared_ptr<Scene> m_growing; ///< being read
    std::unique_ptr<SceneBuilder> m_builder;
    std::shared_ptr<TextShaper> m_shaper;
    std::shared_ptr<ErasedFilter> m_erased;
    std::shared_ptr<LayerLooks> m_looks;
    QHash<quint32, std::shared_ptr<const LayerLooks>> m_viewportLooks;
    std::vector<quint32> m_changedLayers;
    std::vector<quint32> m_addedEntities;
    std::vector<quint32> m_changedEntities;
    std::optional<DrawingLines> m_lines; ///< of the current space, once somebody asked
    int m_lockedFade = LineSettings().lockedFade;
    int m_defaultWeight = LineSettings().defaultWeight;
    QTimer m_sliceTimer;
    QTimer m_rebuildTimer;
    int m_builds = 0;
};
