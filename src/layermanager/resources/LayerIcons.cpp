#include "layermanager/resources/LayerIcons.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

#include <array>

namespace {

constexpr std::array kNames = {
    "status-current",
    "status-not-in-use",
    "status-in-use",
    "on",
    "off",
    "thawed",
    "frozen",
    "unlocked",
    "locked",
    "plot",
    "no-plot",
    "new-viewport-thawed",
    "new-viewport-frozen",
    "viewport-thawed",
    "viewport-frozen",
    "filter-all",
    "filter-used",
    "filter-property",
    "filter-group",
    "filter-reference",
    "filter-unreconciled",
    "tool-new-property-filter",
    "tool-new-group-filter",
    "tool-layer-states",
    "tool-new-layer",
    "tool-new-layer-frozen",
    "tool-delete-layer",
    "tool-set-current",
    "tool-refresh",
    "tool-settings",
    "tool-filter-tree",
    "tool-search",
};

/// The files are drawn for light backgrounds; each colour has its counterparts for others.
struct Tint
{
    const char* light;
    const char* dark;
    const char* selection;
};
constexpr Tint kTints[] = {
    {"#3f4854", "#e3e8ee", "#ffffff"}, // ink
    {"#8d96a1", "#9aa5b1", "#d5e3ee"}, // what is off
    {"#f5b82e", "#ffd257", "#ffd257"}, // lit
    {"#9a6700", "#ffe39b", "#fff0c2"}, // outline of what is lit
    {"#1f78c1", "#8fd0ff", "#e4f4ff"}, // cold
    {"#2c8a43", "#74dd8b", "#c9ffd4"}, // current, new
    {"#c93b32", "#ff8d84", "#ffdcd8"}, // forbidden
};

} // namespace

int LayerIcons::count()
{
    return static_cast<int>(kNames.size());
}

QString LayerIcons::name(LayerIcon icon)
{
    return QString::fromLatin1(kNames[static_cast<std::size_t>(icon)]);
}

QPixmap LayerIcons::pixmap(LayerIcon icon, int size, qreal ratio, LayerIconGround ground) const
{
    const auto pixels = static_cast<quint64>(qRound(size * ratio));
    const quint64 key = (static_cast<quint64>(icon) << 36) | (static_cast<quint64>(ground) << 32)
        | (static_cast<quint64>(size) << 16) | pixels;
    const auto it = m_pixmaps.constFind(key);
    if (it != m_pixmaps.cend())
        return *it;
    return *m_pixmaps.insert(key, render(icon, size, ratio, ground));
}

QPixmap LayerIcons::render(LayerIcon icon, int size, qreal ratio, LayerIconGround ground)
{
    const int pixels = qRound(size * ratio);
    QPixmap pixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QFile file(QStringLiteral(":/layermanager/icons/%1.svg").arg(name(icon)));
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning("The icon %s is missing.", qPrintable(file.fileName()));
        return pixmap;
    }
    QByteArray drawing = file.readAll();
    if (ground != LayerIconGround::Light) {
        for (const Tint& tint : kTints)
            drawing.replace(tint.light,
                            ground == LayerIconGround::Dark ? tint.dark : tint.selection);
    }
    QPainter painter(&pixmap);
    QSvgRenderer(drawing).render(&painter);
    painter.end();
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}
