#include "host/window/look/ThemedIcon.h"

#include "host/resources/HostResources.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace {
constexpr int kMiddle = 128; // of lightness
constexpr int kStronger = 250; // per cent

class ThemedIconEngine : public QIconEngine
{
public:
    explicit ThemedIconEngine(const QString& name)
        : m_name(name)
    {
        QFile file(QStringLiteral(":/kest/icons/%1.svg").arg(name));
        if (file.open(QIODevice::ReadOnly))
            m_svg = file.readAll();
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        QSvgRenderer renderer(colored(mode));
        renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        renderer.render(painter, rect);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        const QString key = QStringLiteral("kest-icon/%1/%2x%3/%4/%5")
                                .arg(m_name)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(ink(mode).rgba())
                                .arg(accent(mode).rgba());
        QPixmap result;
        if (QPixmapCache::find(key, &result))
            return result;
        result = QPixmap(size);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        paint(&painter, QRect(QPoint(), size), mode, state);
        painter.end();
        QPixmapCache::insert(key, result);
        return result;
    }

    QIconEngine* clone() const override { return new ThemedIconEngine(*this); }

private:
    static QColor ink(QIcon::Mode mode)
    {
        const QPalette palette = QGuiApplication::palette();
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        return palette.color(group, QPalette::ButtonText);
    }

    static QColor accent(QIcon::Mode mode)
    {
        if (mode == QIcon::Disabled)
            return ink(mode);
        const QColor highlight =
            QGuiApplication::palette().color(QPalette::Active, QPalette::Highlight);
        if (mode == QIcon::Normal)
            return highlight;
        // The ground of a menu's entry under the pointer is the highlight itself.
        return ink(mode).lightness() < kMiddle ? highlight.darker(kStronger)
                                               : highlight.lighter(kStronger);
    }

    QByteArray colored(QIcon::Mode mode) const
    {
        QByteArray svg = m_svg;
        svg.replace("#000000", ink(mode).name().toLatin1());
        return svg.replace("#0000ff", accent(mode).name().toLatin1());
    }

    QString m_name;
    QByteArray m_svg;
};
} // namespace

QIcon themedIcon(const QString& name)
{
    registerHostResources();
    return QIcon(new ThemedIconEngine(name));
}
