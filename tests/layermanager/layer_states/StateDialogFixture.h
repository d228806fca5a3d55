#pragma once

#include "layermanager/layer_states/CLayerStateManDlg.h"
#include "layermanager/layer_states/parts/CLayerStateListCtrl.h"
#include "sdk/CLayerStateUtility.h"
#include "support/FakeHost.h"
#include "support/GuardedTest.h"
#include "support/RecordingPrompts.h"
#include "support/TestFailure.h"
#include "toolkit/ControlRegistry.h"

#include <QApplication>
#include <QCheckBox>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <memory>

/// The dialogs of layer states over a real drawing, in a host that lives as long as a test
/// function.
class StateDialogFixture : public GuardedTest
{
    Q_OBJECT
protected:
    /// Masks of the check boxes: all, and those that can be used in model space and in a layout.
    static constexpr int kAllBoxes = 0x3FF;
    static constexpr int kInModel = kAllBoxes & ~0x200;
    static constexpr int kInLayout = kAllBoxes & ~0x003;

    void prepare() override;
    void finish() override;

    FakeHost& host() const { return *m_host; }
    RecordingPrompts& prompts() const { return *m_prompts; }
    OdDbDatabase& db() const { return *m_database; }
    OdDbDatabase& openLayers(const QList<QByteArray>& names);
    OdDbDatabase& openDrawing(std::unique_ptr<OdDbDatabase> drawing);
    /// The service over the drawing of the test.
    CLayerStateUtility service() const { return CLayerStateUtility(m_database); }
    void addState(const char* name, const char* description = "", int mask = 0x7FF);
    QStringList stateNames() const;
    int storedMask(const char* name) const;
    /// Makes Sheet A current, and its first viewport active where wanted.
    void enterSheet(bool intoViewport = false);

    /// The manager, shown; in the place of an earlier one.
    CLayerStateManDlg& openManager(QWidget* parent = nullptr);
    CLayerStateManDlg& manager() const { return *m_manager; }
    bool isManagerOpen() const { return m_manager && m_manager->isVisible(); }
    void closeManager() { m_manager.reset(); }
    LayerStateListModel& states() const { return manager().list().states(); }
    /// Name, space, same as drawing and description of a row, with "|" between them.
    QString row(int row) const;
    QList<int> chosen() const;

    void clickRow(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void press(int id) { press(manager(), id); }
    static void press(QWidget& dialog, int id);
    bool isEnabled(int id) const { return controlById(&manager(), id)->isEnabled(); }
    QCheckBox* box(int id) const { return qobject_cast<QCheckBox*>(controlById(&manager(), id)); }
    /// The mask that the check boxes show, whether enabled or not.
    int shownMask() const;

    /// What the test does in the next modal dialog, which has to be one of that class. A dialog
    /// that it leaves open is closed, and the test fails.
    template <class Dialog>
    static void inNext(std::function<void(Dialog&)> act)
    {
        QTimer::singleShot(0, qApp, [act = std::move(act)] {
            const QPointer<Dialog> dialog =
                qobject_cast<Dialog*>(QApplication::activeModalWidget());
            if (!dialog) {
                reportTestFailure(QStringLiteral("The dialog that was announced is not open."));
                if (auto* other = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
                    other->reject();
                return;
            }
            act(*dialog);
            if (dialog && dialog->isVisible()) {
                reportTestFailure(QStringLiteral("The test leaves a dialog open."));
                dialog->QDialog::reject();
            }
        });
    }

    const QTemporaryDir& folder() const { return m_folder; }
    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }
    QByteArray writtenFile(const QString& path) const;
    void writeFile(const QString& path, const QByteArray& bytes) const;

private:
    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<RecordingPrompts> m_prompts;
    std::unique_ptr<CLayerStateManDlg> m_manager;
    QTemporaryDir m_folder;
    OdDbDatabase* m_database = nullptr;
};
