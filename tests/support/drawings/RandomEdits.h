#pragma once

#include <QByteArray>
#include <QString>

#include <random>
#include <vector>

class OdDbDatabase;
class OdDbLayerTableRecord;
class OdDbObjectId;

/// Random edits of everything about layers that a drawing holds; the same seed gives the same ones.
class RandomEdits
{
public:
    /// `trueColours`: whether the drawing's version can hold them. `names`: how many names earlier
    /// edits of the drawing gave.
    RandomEdits(OdDbDatabase& database, unsigned seed, bool trueColours = true, int names = 0)
        : m_database(database)
        , m_random(seed)
        , m_trueColours(trueColours)
        , m_names(names)
    { }

    /// One edit in an undo record of its own, or an undo or redo.
    void step();
    /// What the last step did, for the trace of a failure.
    const QByteArray& last() const { return m_last; }

private:
    using Edit = void (RandomEdits::*)();

    void flags();
    void look();
    void texts();
    void overrides();
    void removeOverrides();
    void rename();
    void addLayer();
    void eraseLayer();
    void freezeInViewport();
    void addFilter();
    void editFilter();
    void removeFilter();
    void addState();
    void saveState();
    void restoreState();
    void renameState();
    void removeState();
    void variable();
    void header();
    void currentLayer();
    void moveEntity();
    void eraseEntity();
    void addEntity();

    int number(int below) { return static_cast<int>(m_random() % static_cast<unsigned>(below)); }
    bool chance(int percent) { return number(100) < percent; }
    /// A null id where the drawing has none.
    OdDbObjectId layer();
    OdDbObjectId viewport();
    OdDbObjectId entity();
    /// Name of a layer state, empty where there is none.
    QString state();

    OdDbDatabase& m_database;
    std::mt19937 m_random;
    bool m_trueColours;
    int m_names;
    QByteArray m_last;
};
