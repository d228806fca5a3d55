#pragma once

#include "database/filters/OdLyLayerFilter.h"
#include "layermanager/filters/LayersOfFilter.h"
#include "layermanager/palette/CToolTipImpl.h"

#include <QDialog>
#include <QStringList>

#include <vector>

class CLayPropFilterEdListCtrl;
class CLayerPreviewList;
class OdDbDatabase;
class QLabel;
class QLineEdit;
class QVBoxLayout;

/// A property filter of a copy of a drawing's tree, which is to be edited.
struct FilterToEdit
{
    OdLyLayerFilterPtr filter;
    OdLyLayerFilterPtr parent; ///< that it stands below, or will
    bool isExisting = false;
};

/// Names and defines a property filter, and shows meanwhile what it lets through.
class CDlgLayPropFilter : public QDialog, public CToolTipImpl
{
    Q_OBJECT
public:
    /// Ids under which the controls are registered.
    enum ControlId {
        kOk = 1,
        kCancel = 2,
        kName = 1010,
        kDefinition = 1011,
        kPreview = 1012,
        kExamples = 1013,
        kHelp = 1014,
    };
    static constexpr int kHelpTopic = 704;

    /// `candidates` are the layers that the preview may show; empty: those that the parent filter
    /// lets through. The filter changes with each edit, also when the dialog is cancelled then: it
    /// must not be the one that the drawing holds.
    CDlgLayPropFilter(OdDbDatabase& database, OdLyLayerFilterPtr parentFilter,
                      OdLyLayerFilterPtr filter, LayerIds candidates, bool existing,
                      QWidget* parent = nullptr);
    ~CDlgLayPropFilter() override;

    /// Runs the dialog. False when the user gave up or the drawing is no longer the current one;
    /// what the filter holds then means nothing.
    static bool edit(QWidget* parent, OdDbDatabase& database, const FilterToEdit& task);

    /// Stores an expression on the filter and shows what passes it.
    void SetFilterExpressionAndRefresh(const QString& expression);

    void accept() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildControls();
    void buildButtons(QVBoxLayout& layout);
    void registerControls();
    void fillControls();
    void collectNames();
    void fillCandidates();
    void readRows();
    void refreshPreview();
    void tellCount();
    QString noticeOnHidden() const;
    void showNotice(const QString& text);

    CLayerPreviewList* m_previewList;
    CLayPropFilterEdListCtrl* m_gridCtrl;
    OdDbDatabase* m_pDb; ///< null once the drawing is gone
    QString m_strName;
    QString m_strExpression;
    OdLyLayerFilterPtr m_pParentFilter;
    OdLyLayerFilterPtr m_pFilter;
    LayerIds m_candidateIds;
    std::vector<bool> m_isCandidate; ///< by slot
    bool m_bExisting;
    bool m_rowsEdited = false;
    bool m_showsCandidates = false; ///< a new filter nobody has defined yet
    QStringList m_filterNames;
    QLineEdit* m_nameEdit;
    QLabel* m_previewLabel;
    QLabel* m_notice;
};
