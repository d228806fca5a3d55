#include "host/help/CHelpPage.h"

#include <QEvent>
#include <QImage>
#include <QTextTable>

#include <algorithm>

namespace {
constexpr int kMargin = 12;
constexpr int kNarrowestPicture = 200;
constexpr double kTableLine = 1;
constexpr int kLineAlpha = 80;
constexpr int kTablePadding = 4;
constexpr int kTableMargin = 8;
} // namespace

CHelpPage::CHelpPage(QWidget* parent)
    : QTextBrowser(parent)
{
    setOpenExternalLinks(true);
    document()->setDocumentMargin(kMargin);
}

QVariant CHelpPage::loadResource(int type, const QUrl& name)
{
    const QVariant resource = QTextBrowser::loadResource(type, name);
    if (type != QTextDocument::ImageResource)
        return resource;
    QImage image = resource.value<QImage>();
    if (image.isNull() && resource.canConvert<QByteArray>())
        image.loadFromData(resource.toByteArray());
    const int widest = std::max(viewport()->width() - 3 * kMargin, kNarrowestPicture);
    if (image.width() > widest)
        image = image.scaledToWidth(widest, Qt::SmoothTransformation);
    return image.isNull() ? resource : QVariant(image);
}

void CHelpPage::doSetSource(const QUrl& name, QTextDocument::ResourceType type)
{
    QTextBrowser::doSetSource(name, type);
    layOutTables();
}

void CHelpPage::layOutTables()
{
    // As they are read, tables have double frames and no air.
    QColor line = palette().color(QPalette::Text);
    line.setAlpha(kLineAlpha);
    for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (!table)
            continue;
        QTextTableFormat format = table->format();
        format.setBorderCollapse(true);
        format.setBorder(kTableLine);
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setBorderBrush(line);
        format.setCellPadding(kTablePadding);
        format.setTopMargin(kTableMargin);
        format.setBottomMargin(kTableMargin);
        table->setFormat(format);
    }
}

void CHelpPage::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    // Links are given their colour when a page is read.
    if (event->type() == QEvent::PaletteChange && !source().isEmpty()) {
        reload();
        layOutTables();
    }
}
