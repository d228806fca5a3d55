#include "layermanager/filter_editor/CLayPropFilterEdCombo.h"

#include "layermanager/filter_editor/core/FilterColumn.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QStyle>

CLayPropFilterEdCombo::CLayPropFilterEdCombo(QWidget* parent)
    : QComboBox(parent)
{
    setObjectName(QStringLiteral("valueList"));
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(0);
}

LayerIconGround CLayPropFilterEdCombo::ground() const
{
    return iconGround(palette().color(QPalette::Base));
}

void CLayPropFilterEdCombo::fill(int column, int value)
{
    clear();
    addItem(QString());
    setItemData(0, tr("not set"), Qt::AccessibleTextRole);
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    setIconSize({size, size});
    for (const QString& word : filterValueWords(column)) {
        QIcon icon;
        icon.addPixmap(m_icons.pixmap(column, count(), size, devicePixelRatioF(), ground()));
        icon.addPixmap(
            m_icons.pixmap(column, count(), size, devicePixelRatioF(), LayerIconGround::Selection),
            QIcon::Selected);
        addItem(icon, word);
    }
    setCurrentIndex(value >= 0 && value < count() ? value : 0);
    // The cell is narrower than the words.
    const int frame = 2 * view()->frameWidth();
    view()->setMinimumWidth(view()->sizeHintForColumn(0) + frame);
}

void CLayPropFilterEdCombo::open(bool byMouse)
{
    if (!byMouse) {
        showPopup();
        return;
    }
    // A press of its own tells it that the release which follows chooses nothing yet.
    const QPointF place = rect().center();
    QMouseEvent press(QEvent::MouseButtonPress, place, mapToGlobal(place), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(this, &press);
}

void CLayPropFilterEdCombo::hidePopup()
{
    QComboBox::hidePopup();
    // A choice is told after this.
    QMetaObject::invokeMethod(this, &CLayPropFilterEdCombo::closed, Qt::QueuedConnection);
}
