#include "host/window/StatusFields.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "host/canvas/CCanvas.h"
#include "host/documents/HostDocument.h"
#include "host/window/look/CElidedLabel.h"
#include "host/window/views/CDrawingView.h"

#include <QLabel>
#include <QStatusBar>

namespace {
constexpr int kDecimals = 4;

QLabel* addField(QStatusBar& bar, const char* name, const QString& accessibleName)
{
    auto* label = new QLabel(&bar);
    label->setObjectName(QLatin1String(name));
    label->setAccessibleName(accessibleName);
    label->setTextFormat(Qt::PlainText);
    const int space = label->fontMetrics().averageCharWidth();
    label->setContentsMargins(space, 0, space, 0);
    bar.addPermanentWidget(label);
    return label;
}

QString positionText(QPointF point)
{
    return QStringLiteral("%1, %2")
        .arg(point.x(), 0, 'f', kDecimals)
        .arg(point.y(), 0, 'f', kDecimals);
}

QString currentLayerName(const HostDocument& document)
{
    const auto layer = document.database()->getCLAYER().openObject<OdDbLayerTableRecord>();
    return layer ? layer->getName() : QString();
}
} // namespace

StatusFields::StatusFields(QStatusBar& bar)
    : QObject(&bar)
    , m_selected(addField(bar, "statusSelected", tr("Selected objects")))
    , m_position(addField(bar, "statusPosition", tr("Cursor position")))
    , m_layer(addField(bar, "statusLayer", tr("Current layer")))
    , m_undrawn(new CElidedLabel(&bar))
{
    m_undrawn->setObjectName(QStringLiteral("statusUndrawn"));
    m_undrawn->setAccessibleName(tr("Not drawn"));
    m_undrawn->setContentsMargins(m_undrawn->fontMetrics().averageCharWidth(), 0, 0, 0);
    bar.addWidget(m_undrawn, 1);
    // The fields to the right stay where they are while the cursor moves.
    m_position->setMinimumWidth(
        m_position->fontMetrics().horizontalAdvance(positionText({-999999.0, -999999.0})));
    m_position->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void StatusFields::showView(const CDrawingView* view)
{
    m_layer->setText(view ? tr("Layer: %1").arg(currentLayerName(view->document())) : QString());
    showSelection(view);
    m_undrawn->setText(view ? view->canvas().undrawnSummary() : QString());
    if (!view)
        m_position->clear();
}

void StatusFields::showSelection(const CDrawingView* view)
{
    const std::size_t selected = view ? view->document().selection().size() : 0;
    m_selected->setText(selected > 0 ? tr("%1 selected").arg(selected) : QString());
    m_selected->setVisible(selected > 0);
}

void StatusFields::showPosition(QPointF point)
{
    m_position->setText(positionText(point));
}
