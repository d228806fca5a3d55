#include "layermanager/layer_states/parts/StateDialogParts.h"

#include "layermanager/resources/LayerIcons.h"
#include "toolkit/ControlRegistry.h"

#include <QIcon>
#include <QStyle>

#include <algorithm>

namespace {

QIcon dialogIcon()
{
    const LayerIcons icons;
    QIcon icon;
    for (const int size : {16, 24, 32, 48})
        icon.addPixmap(icons.pixmap(LayerIcon::FilterAll, size, 1.0, LayerIconGround::Light));
    return icon;
}

} // namespace

void setUpStateDialog(QDialog& dialog, const QString& title, int helpTopic)
{
    dialog.setWindowIcon(dialogIcon());
    dialog.setWindowTitle(title);
    dialog.setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    if (helpTopic != 0)
        dialog.setProperty("helpTopic", helpTopic);
}

void registerStateControl(QDialog& dialog, int id, QWidget* control, const QString& name)
{
    registerControl(&dialog, id, control);
    if (!name.isEmpty())
        control->setAccessibleName(name);
}

int stateRowHeight(const QWidget& list)
{
    const int margin = list.style()->pixelMetric(QStyle::PM_FocusFrameVMargin, nullptr, &list) + 1;
    const int icon = list.style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, &list);
    return std::max(list.fontMetrics().height(), icon) + 2 * margin;
}

QSize sizeInCharacters(const QWidget& widget, int columns, int lines)
{
    const QFontMetrics metrics = widget.fontMetrics();
    return {metrics.averageCharWidth() * columns, metrics.height() * lines};
}
