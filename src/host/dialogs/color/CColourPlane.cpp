#include "host/dialogs/color/CColourPlane.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {
constexpr QSize kSize(380, 110);
constexpr int kRim = 2;
constexpr double kHueStep = 1.0 / 360;
constexpr double kLightnessStep = 0.01;
constexpr double kMark = 5; ///< radius
constexpr double kLargestHue = 359.0 / 360;
/// The picture is made in this size and stretched.
constexpr QSize kPicture(180, 64);
} // namespace

CColourPlane::CColourPlane(QWidget* parent)
    : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleName(tr("Hue and lightness"));
}

QSize CColourPlane::sizeHint() const
{
    return kSize;
}

QRect CColourPlane::field() const
{
    return rect().adjusted(kRim, kRim, -kRim, -kRim);
}

void CColourPlane::setColour(double hue, double saturation, double lightness)
{
    m_hue = std::clamp(hue, 0.0, kLargestHue);
    m_saturation = std::clamp(saturation, 0.0, 1.0);
    m_lightness = std::clamp(lightness, 0.0, 1.0);
    update();
}

const QImage& CColourPlane::picture()
{
    if (m_pictured == m_saturation)
        return m_picture;
    m_picture = QImage(kPicture, QImage::Format_RGB32);
    for (int y = 0; y < kPicture.height(); ++y) {
        const double lightness = 1.0 - static_cast<double>(y) / (kPicture.height() - 1);
        for (int x = 0; x < kPicture.width(); ++x) {
            const double hue = kLargestHue * x / (kPicture.width() - 1);
            m_picture.setPixelColor(x, y,
                                    QColor::fromHslF(static_cast<float>(hue),
                                                     static_cast<float>(m_saturation),
                                                     static_cast<float>(lightness)));
        }
    }
    m_pictured = m_saturation;
    return m_picture;
}

void CColourPlane::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QRect area = field();
    painter.drawImage(area, picture());
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), kRim));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF at(area.left() + m_hue / kLargestHue * (area.width() - 1),
                     area.top() + (1.0 - m_lightness) * (area.height() - 1));
    painter.setClipRect(area);
    painter.setPen(QPen(m_lightness > 0.5 ? Qt::black : Qt::white, 2));
    painter.drawEllipse(at, kMark, kMark);
}

void CColourPlane::moveTo(double hue, double lightness)
{
    setColour(hue, m_saturation, lightness);
    emit moved();
}

void CColourPlane::pointAt(QPointF point)
{
    const QRect area = field();
    moveTo((point.x() - area.left()) / (area.width() - 1) * kLargestHue,
           1.0 - (point.y() - area.top()) / (area.height() - 1));
}

void CColourPlane::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        pointAt(event->position());
}

void CColourPlane::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() & Qt::LeftButton)
        pointAt(event->position());
}

void CColourPlane::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
        return moveTo(m_hue - kHueStep, m_lightness);
    case Qt::Key_Right:
        return moveTo(m_hue + kHueStep, m_lightness);
    case Qt::Key_Up:
        return moveTo(m_hue, m_lightness + kLightnessStep);
    case Qt::Key_Down:
        return moveTo(m_hue, m_lightness - kLightnessStep);
    default:
        QWidget::keyPressEvent(event);
    }
}
