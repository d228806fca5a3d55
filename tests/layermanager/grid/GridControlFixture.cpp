#include "GridControlFixture.h"

#include <QVBoxLayout>

void GridControlFixture::prepare()
{
    m_model = std::make_unique<QStandardItemModel>(30, 4);
    for (int row = 0; row < 30; ++row) {
        for (int column = 0; column < 4; ++column)
            m_model->setItem(row, column,
                             new QStandardItem(QStringLiteral("r%1c%2").arg(row).arg(column)));
    }
    m_window = std::make_unique<QWidget>();
    auto* layout = new QVBoxLayout(m_window.get());
    m_grid = new CRecordingGrid;
    m_neighbour = new QLineEdit;
    layout->addWidget(m_grid);
    layout->addWidget(m_neighbour);
    m_grid->setModel(m_model.get());
    for (int column = 0; column < 4; ++column)
        m_grid->setColumnWidth(column, 60);
    m_window->resize(420, 300);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_grid->setFocus();
}

void GridControlFixture::finish()
{
    m_window.reset();
    m_model.reset();
}

QPoint GridControlFixture::center(int row, int column) const
{
    return m_grid->visualRect(m_model->index(row, column)).center();
}

void GridControlFixture::click(int row, int column, Qt::KeyboardModifiers modifiers)
{
    QTest::mouseClick(m_grid->viewport(), Qt::LeftButton, modifiers, center(row, column));
}

CKestListCtrl::CInPlaceEdit* GridControlFixture::edit(int row, int column)
{
    InPlaceEdit* editor = m_grid->openInPlaceEditor(row, column);
    if (editor)
        editor->selectAll();
    return editor;
}

QList<int> GridControlFixture::chosen() const
{
    const auto rows = m_grid->chosenRows();
    return QList<int>(rows.begin(), rows.end());
}

CKestListCtrl::Cell GridControlFixture::current() const
{
    return {m_grid->currentIndex().row(), m_grid->currentIndex().column()};
}
