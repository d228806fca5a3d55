#pragma once

#include <QLineEdit>

/// The box for the pattern that listed layers' names match. While it has the focus and nothing was
/// typed it holds "*", with the cursor in front: typing then finds names by their beginning.
class CLayerSearchBox : public QLineEdit
{
    Q_OBJECT
public:
    explicit CLayerSearchBox(QWidget* parent = nullptr);

signals:
    void focusGained();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    bool m_filledByClick = false;
};
