#include "host/canvas/text/TextShaper.h"

#include "host/canvas/text/TextExtent.h"

#include <QFontMetricsF>
#include <QTransform>

namespace {

// Large enough that hinting and rounding inside the font do not show.
constexpr int kShapingSize = 200;
// About 100 MB of outlines.
constexpr qint64 kMostElements = 4'000'000;

QFont fontOf(const QString& family)
{
    QFont font;
    if (!family.isEmpty())
        font.setFamily(family);
    font.setPixelSize(kShapingSize);
    font.setBold(false);
    font.setItalic(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

bool isBetweenPoints(const TextSpec& spec)
{
    return spec.horizontal == TextSpec::Horizontal::Fit
        || spec.horizontal == TextSpec::Horizontal::Aligned;
}

} // namespace

const QPainterPath& TextShaper::outline(const TextPool& pool, quint32 text)
{
    if (m_outlines.size() < pool.size())
        m_outlines.resize(pool.size());
    if (!m_outlines[text]) {
        if (m_elements > kMostElements) {
            for (auto& outline : m_outlines)
                outline.reset();
            m_elements = 0;
        }
        m_outlines[text] = std::make_unique<QPainterPath>(shape(pool[text]));
        m_elements += m_outlines[text]->elementCount();
    }
    return *m_outlines[text];
}

QStringList TextShaper::wrapped(const TextSpec& spec, const QFont& font, double unit)
{
    const QStringList paragraphs = spec.text.split(u'\n');
    if (!(spec.width > 0) || isBetweenPoints(spec))
        return paragraphs;
    const QFontMetricsF metrics(font);
    const double width = spec.width * unit;
    QStringList lines;
    for (const QString& paragraph : paragraphs) {
        QString line;
        for (const QString& word : paragraph.split(u' ')) {
            const QString longer = line.isEmpty() ? word : line + u' ' + word;
            if (!line.isEmpty() && metrics.horizontalAdvance(longer) > width) {
                lines.append(line);
                line = word;
            } else {
                line = longer;
            }
        }
        lines.append(line);
    }
    return lines;
}

QPainterPath TextShaper::shape(const TextSpec& spec) const
{
    const QFont font = fontOf(spec.font);
    const QFontMetricsF metrics(font);
    const double unit = metrics.capHeight() > 0 ? metrics.capHeight() : metrics.ascent();
    const QStringList lines = wrapped(spec, font, unit);
    QPainterPath outline;
    outline.setFillRule(Qt::WindingFill);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const double width = metrics.horizontalAdvance(lines[i]) / unit;
        const Vec2 start = blockStart(spec, width, static_cast<int>(lines.size()));
        QPainterPath line;
        line.addText(0, 0, font, lines[i]);
        QTransform place =
            QTransform::fromTranslate(start.x, start.y - static_cast<double>(i) * spec.lineStep);
        if (isBetweenPoints(spec) && width > 0) {
            const double stretch = spec.width / width;
            place.scale(stretch, spec.horizontal == TextSpec::Horizontal::Aligned ? stretch : 1);
        }
        outline.addPath(place.map(QTransform::fromScale(1 / unit, -1 / unit).map(line)));
    }
    return outline;
}
