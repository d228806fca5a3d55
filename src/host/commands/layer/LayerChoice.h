#pragma once

#include "database/values/OdDbObjectId.h"

#include <QStringList>

#include <vector>

class OdDbDatabase;

/// The layers that a list of names and wildcard patterns stands for; see WildcardPattern. A text
/// that is a layer's name stands for that layer alone, whatever characters it holds. Patterns
/// leave out the layers that belong to programs ("*...").
class LayerChoice
{
public:
    struct Layer
    {
        OdDbObjectId id;
        bool isNamed; ///< by its name, not by a pattern
    };

    LayerChoice() = default;
    LayerChoice(const OdDbDatabase& drawing, const QString& list);
    /// One layer, named.
    explicit LayerChoice(OdDbObjectId layer)
        : m_layers{{layer, true}}
    { }

    /// Each layer once, in the order of the list, those of one pattern in table order.
    const std::vector<Layer>& layers() const { return m_layers; }
    bool isEmpty() const { return m_layers.empty(); }
    bool contains(OdDbObjectId layer) const;
    /// Names that no layer has.
    const QStringList& missing() const { return m_missing; }
    /// Patterns that no layer matches.
    const QStringList& unmatched() const { return m_unmatched; }

private:
    void add(const OdDbDatabase& drawing, const QString& alternative);
    void addMatches(const OdDbDatabase& drawing, const QString& pattern);
    void add(OdDbObjectId layer, bool isNamed);

    std::vector<Layer> m_layers;
    std::vector<bool> m_isChosen; ///< by slot
    QStringList m_missing;
    QStringList m_unmatched;
};
