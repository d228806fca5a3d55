#pragma once

#include "PaletteHand.h"
#include "TourWindow.h"
#include "support/GuardedTest.h"

#include <QByteArray>

#include <functional>
#include <memory>
#include <vector>

class OdDbLayerTableRecord;
class QDialog;

/// A working day with the program: each function is a leg of one tour through its window and goes
/// on where the one before ended. What a user would see is checked at each step, and kept as the
/// pictures of the user guide.
class FeatureTour : public GuardedTest
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void opensADrawingAndThePalette();
    void findsLayersByTheirNames();
    void listsWhatAFilterLeavesOut();
    void makesAPropertyFilterThatShowsItsLayersAtOnce();
    void fillsAGroupByDraggingAndPicking();
    void changesManyLayersAtOnce();
    void namesNewLayersAndDeletesEmptyOnes();
    void tellsWhenALayerLeavesTheFilter();
    void savesALayerStateAndRestoresIt();
    void editsALayerState();
    void givesAViewportColorsOfItsOwn();
    void handsAStateToAnotherDrawing();
    void undoesEverythingAndRedoesIt();
    void savesAndFindsEverythingAgain();

protected:
    void prepare() override;
    void finish() override;

private:
    /// A change of the drawing that is one step of undo.
    struct Step
    {
        QString undoText; ///< of the menu "Edit"
        QStringList digest; ///< of the drawing after it
    };

    const PaletteHand& palette() const { return *m_palette; }
    OdDbDatabase& drawing() const { return m_tour->drawing(); }
    /// Notes that a step was done which the menu names so; checks that it does.
    void noteStep(const char* undoText);
    void makeRoom() const;
    /// Pulls the edge between palette and drawing; returns how far it came.
    int pullPaletteEdge(int wider) const;
    /// Clicks on a filter, which the drawing keeps: a step.
    void selectFilter(const char* name);
    void editFilter(QDialog& dialog, const QStringList& expected);
    /// Opens the layer-state manager by its button, selects a state, and does the steps there.
    void inManagerOn(const char* state, const std::function<void(QDialog&)>& steps);
    /// The layers of the drawing that this holds for, in the order of names.
    QStringList layersThat(const std::function<bool(const OdDbLayerTableRecord&)>& test) const;

    std::unique_ptr<TourWindow> m_tour;
    std::unique_ptr<PaletteHand> m_palette;
    std::vector<Step> m_steps;
    QByteArray m_opened; ///< the file as it was
    bool m_hasFailed = false;
};
