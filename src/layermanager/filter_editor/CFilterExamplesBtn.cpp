#include "layermanager/filter_editor/CFilterExamplesBtn.h"

#include <QLabel>
#include <QMenu>
#include <QTextDocumentFragment>
#include <QWidgetAction>

namespace {

/// What is looked for, and the lines that find it.
struct Example
{
    const char* wanted;
    const char* lines;
};

constexpr Example kExamples[] = {
    {QT_TRANSLATE_NOOP("CFilterExamplesBtn", "Layers whose names begin with A-"),
     QT_TRANSLATE_NOOP("CFilterExamplesBtn", "Layer Name <b>A-*</b>")},
    {QT_TRANSLATE_NOOP("CFilterExamplesBtn", "Those of them that are frozen"),
     QT_TRANSLATE_NOOP("CFilterExamplesBtn", "Layer Name <b>A-*</b>, Freeze <b>frozen</b>")},
    {QT_TRANSLATE_NOOP("CFilterExamplesBtn", "All layers but these"),
     QT_TRANSLATE_NOOP("CFilterExamplesBtn", "Layer Name <b>~A-*</b>")},
    {QT_TRANSLATE_NOOP("CFilterExamplesBtn", "Layers that are red or blue, and in use"),
     QT_TRANSLATE_NOOP("CFilterExamplesBtn",
                       "Line 1: Status <b>in use</b>, Color <b>red</b><br/>"
                       "Line 2: Status <b>in use</b>, Color <b>blue</b>")},
    {QT_TRANSLATE_NOOP("CFilterExamplesBtn", "Layers of floors 1 to 3"),
     QT_TRANSLATE_NOOP("CFilterExamplesBtn", "Layer Name <b>*FLOOR[123]*</b>")},
};

QString table()
{
    QString rows;
    for (const Example& example : kExamples)
        rows +=
            QStringLiteral("<tr><td>%1</td><td>%2</td></tr>")
                .arg(CFilterExamplesBtn::tr(example.wanted), CFilterExamplesBtn::tr(example.lines));
    return QStringLiteral("<table cellpadding='4'>%1</table>").arg(rows);
}

} // namespace

CFilterExamplesBtn::CFilterExamplesBtn(QWidget* parent)
    : QToolButton(parent)
{
    setText(tr("E&xamples"));
    setAccessibleName(tr("Examples of filters"));
    setAutoRaise(true);
    setFocusPolicy(Qt::StrongFocus);
    setPopupMode(InstantPopup);
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("filterExamples"));
    menu->setAccessibleName(tr("Examples of filters"));
    // It keeps the focus, so what it holds is not read by itself.
    menu->setAccessibleDescription(QTextDocumentFragment::fromHtml(table()).toPlainText());
    auto* label = new QLabel(table(), menu);
    label->setTextFormat(Qt::RichText);
    label->setMargin(fontMetrics().averageCharWidth());
    auto* leaf = new QWidgetAction(menu);
    leaf->setDefaultWidget(label);
    menu->addAction(leaf);
    setMenu(menu);
}
