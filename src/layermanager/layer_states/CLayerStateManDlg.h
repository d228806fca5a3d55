#pragma once

#include "layermanager/layer_states/core/DrawingWatch.h"
#include "layermanager/layer_states/core/LayerStateControls.h"
#include "layermanager/palette/CToolTipImpl.h"
#include "sdk/CLayerStateUtility.h"

#include <QDialog>

#include <optional>

class CLayerStateListCtrl;
class QAbstractButton;
class QBoxLayout;
class QCheckBox;

/// The layer-state manager: lists the layer states of the current drawing, changes and restores
/// them. What it does is in the drawing at once, closing it takes nothing back. It closes by itself
/// when the drawing does, or when another one becomes current.
class CLayerStateManDlg : public QDialog, private CToolTipImpl
{
    Q_OBJECT
public:
    explicit CLayerStateManDlg(QWidget* parent = nullptr);
    ~CLayerStateManDlg() override;

    /// Whether the half with the restore options is shown.
    bool isExpanded() const { return m_bExpanded; }
    int restoreMask() const { return m_nMask; }
    CLayerStateListCtrl& list() const { return *m_list; }

    /// Restores the selected state, saves it once more with the options just used, and closes;
    /// nothing without a selection.
    void accept() override;
    void reject() override;

private:
    struct Button
    {
        int id;
        const char* label;
        void (CLayerStateManDlg::*action)();
    };
    static std::span<const Button> listButtons();

    // Set-up
    void build();
    QWidget* makeStates();
    QWidget* makeOptions();
    QAbstractButton* addButton(QBoxLayout& layout, const Button& button);
    QAbstractButton* addArrow(int id, Qt::ArrowType arrow, int textId);
    QCheckBox* addCheckBox(QBoxLayout& layout, int id, const QString& label);
    void setTabOrders();
    void registerHelpTexts();
    void initialUpdate();
    void fill();
    void refill();

    // Rules
    void enableFor(int selected);
    void followClick();
    void showStoredMask();
    void checkAll(bool check);
    void optionClicked(const RestoreOption& option);
    void toggleRestoreOptions();
    void loadPreferences();
    void storePreferences() const;

    // Commands
    void newState();
    void saveState();
    void editState();
    void renameState();
    void deleteStates();
    void importStates();
    void exportState();
    void selectAll() { checkAll(true); }
    void clearAll() { checkAll(false); }
    void help();
    void importDrawing(const QString& path);
    void importLayerStateFile(const QString& path);
    void offerRestore(const QString& name);
    void rename(const QString& oldName, const QString& newName);

    /// The first selected row, or -1.
    int chosenRow() const;
    QCheckBox* box(int id) const;
    OdDbDatabase* drawing() const { return m_watch.database(); }
    bool tell(bool done) const;
    /// The answer; nothing where the dialog or its drawing went meanwhile.
    std::optional<bool> confirmed(const QString& text, const QString& caption = {});

    bool m_bExpanded = false;
    CLayerStateListCtrl* m_list = nullptr;
    QWidget* m_options = nullptr;
    CLayerStateUtility m_util; ///< without a database it works on the current drawing
    qint32 m_nMask = 0;
    DrawingWatch m_watch;
};
