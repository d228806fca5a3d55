#pragma once

#include "host/canvas/scene/Scene.h"

/// Completes blocks that were read: extents of references, nesting, and which references must not
/// be followed because they lead back to their own block, nest too deep or multiply beyond reason.
/// Those are counted as not drawn.
class SceneLinker
{
public:
    static constexpr int kDeepestNesting = 64;
    static constexpr quint64 kMostItemsOfReference = 20'000'000;
    static constexpr quint64 kMostItemsOfBlock = 60'000'000;

    explicit SceneLinker(Scene& scene)
        : m_scene(scene)
        , m_open(scene.blockCount(), false)
    { }

    /// Links all blocks anew, after edits.
    void relink();
    /// Links all blocks that are not yet. No recursion: files decide how deep blocks nest.
    void link();

private:
    struct Visit
    {
        quint32 block;
        std::size_t instance;
    };

    void linkFrom(quint32 root);
    quint32 unlinkedChild(Visit& visit) const;
    void finish(quint32 block);
    bool mayFollow(const BlockInstance& instance, const DisplayList::Totals& sum) const;
    void addUp(const BlockInstance& instance, DisplayList::Totals& sum) const;
    static Box2 boundsOf(const BlockInstance& instance, const Box2& child);

    Scene& m_scene;
    std::vector<bool> m_open; ///< blocks on the way from the root
    std::vector<Visit> m_stack;
};
