#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>

/// All hues from left to right, from dark below to light above, in one saturation. Mouse and arrow
/// keys move the mark.
class CColourPlane : public QWidget
{
    Q_OBJECT
public:
    explicit CColourPlane(QWidget* parent);

    /// Shares from 0 to 1; shows them without telling about it.
    void setColour(double hue, double saturation, double lightness);
    double hue() const { return m_hue; }
    double saturation() const { return m_saturation; }
    double lightness() const { return m_lightness; }
    QSize sizeHint() const override;

signals:
    /// The user moved the mark.
    void moved();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// Where the colours are; the frame of the focus is around it.
    QRect field() const;
    void moveTo(double hue, double lightness);
    void pointAt(QPointF point);
    const QImage& picture();

    double m_hue = 0;
    double m_saturation = 1;
    double m_lightness = 0.5;
    QImage m_picture;
    double m_pictured = -1; ///< saturation of the picture
};
