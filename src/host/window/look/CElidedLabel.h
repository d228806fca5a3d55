#pragma once

#include <QFrame>

/// One line of text that ends in an ellipsis where it does not fit; the whole of it is the tool
/// tip.
class CElidedLabel : public QFrame
{
    Q_OBJECT
public:
    explicit CElidedLabel(QWidget* parent = nullptr);

    void setText(const QString& text);
    const QString& text() const { return m_text; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_text;
};
