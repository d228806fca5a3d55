#pragma once

#include <QWidget>

#include <vector>

/// Swatches of table colours in rows. One of them may be chosen; arrow keys, Home and End move the
/// choice, a double click accepts it.
class CColourGrid : public QWidget
{
    Q_OBJECT
public:
    /// Indices row by row.
    CColourGrid(int columns, std::vector<int> indices, bool onDark, QWidget* parent);

    /// 0, or an index that is not here: none.
    void setChosen(int index);
    int chosen() const { return m_at < 0 ? 0 : m_indices[static_cast<std::size_t>(m_at)]; }
    QRect cell(int index) const;
    QSize sizeHint() const override;

signals:
    void picked(int index);
    void accepted();
    /// The mouse is over that colour; 0 over none.
    void pointedAt(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    int rows() const;
    QRect cellAt(int position) const;
    int positionOf(QPoint point) const;
    void choose(int position);
    void paintCell(QPainter& painter, int position) const;

    int m_columns;
    std::vector<int> m_indices;
    bool m_onDark;
    int m_at = -1;
};
