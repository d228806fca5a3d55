#include "host/help/CHelpPage.h"

#include <QEvent>
#include <QImage>

#include <algorithm>

namespace {
constexpr int kMargin = 12;
constexpr int kNarrowestPicture = 200;
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

void CHelpPage::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    // Links are given their colour when a page is read.
    if (event->type() == QEvent::PaletteChange && !source().isEmpty())
        reload();
}
