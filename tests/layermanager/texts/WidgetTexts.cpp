#include "WidgetTexts.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QMenu>
#include <QStyle>
#include <QStyleOptionGroupBox>
#include <QTabBar>

namespace {

QString placeOf(const QWidget& widget, const QWidget& root)
{
    QStringList path;
    for (const QWidget* at = &widget; at; at = at == &root ? nullptr : at->parentWidget()) {
        const QString name = at->objectName();
        path.prepend(name.isEmpty() ? QString::fromLatin1(at->metaObject()->className()) : name);
    }
    return path.join(QStringLiteral(" / "));
}

bool isOfQt(const QAbstractButton& button)
{
    const auto* box = qobject_cast<const QDialogButtonBox*>(button.parentWidget());
    return box
        && box->standardButton(const_cast<QAbstractButton*>(&button)) != QDialogButtonBox::NoButton;
}

/// What is visible in the root, the root itself first. Parts of Qt's own composed controls are not
/// looked into.
QList<const QWidget*> visibleWidgets(const QWidget& root)
{
    QList<const QWidget*> widgets{&root};
    for (const QWidget* child : root.findChildren<QWidget*>()) {
        const bool isPart = child->objectName().startsWith(QLatin1String("qt_"));
        if (child->isVisibleTo(&root) && !child->isWindow() && !isPart)
            widgets.append(child);
    }
    return widgets;
}

class TextList
{
public:
    explicit TextList(const QWidget& root)
        : m_root(root)
    { }
    void add(const QWidget& widget, const char* what, const QString& text)
    {
        if (!text.isEmpty())
            m_texts.append(
                {text, placeOf(widget, m_root) + QLatin1String(": ") + QLatin1String(what)});
    }
    void addActions(const QWidget& widget, const QList<QAction*>& actions)
    {
        for (const QAction* action : actions) {
            add(widget, "action", action->text());
            if (action->menu())
                addActions(*action->menu(), action->menu()->actions());
        }
    }
    void addView(const QAbstractItemView& view)
    {
        const QAbstractItemModel* model = view.model();
        if (!model || qobject_cast<const QHeaderView*>(&view))
            return;
        for (int column = 0; column < model->columnCount(); ++column)
            add(view, "header", model->headerData(column, Qt::Horizontal).toString());
        for (int column = 0; model->rowCount() > 0 && column < model->columnCount(); ++column) {
            // Where assistive programs are told something else than is seen, that is no data.
            const QModelIndex cell = model->index(0, column);
            const QString spoken = cell.data(Qt::AccessibleTextRole).toString();
            if (spoken != cell.data().toString())
                add(view, "spoken text", spoken);
        }
    }
    void addWidget(const QWidget& widget);
    const QList<WidgetText>& texts() const { return m_texts; }

private:
    const QWidget& m_root;
    QList<WidgetText> m_texts;
};

void TextList::addWidget(const QWidget& widget)
{
    add(widget, "tooltip", widget.toolTip());
    add(widget, "status tip", widget.statusTip());
    add(widget, "accessible name", widget.accessibleName());
    add(widget, "accessible description", widget.accessibleDescription());
    if (widget.isWindow())
        add(widget, "title", widget.windowTitle());
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        add(widget, "text", label->text());
    else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget);
             button && !isOfQt(*button))
        add(widget, "text", button->text());
    else if (const auto* group = qobject_cast<const QGroupBox*>(&widget))
        add(widget, "title", group->title());
    else if (const auto* field = qobject_cast<const QLineEdit*>(&widget))
        add(widget, "placeholder", field->placeholderText());
    else if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget))
        addView(*view);
    else if (const auto* tabs = qobject_cast<const QTabBar*>(&widget)) {
        for (int i = 0; i < tabs->count(); ++i)
            add(widget, "tab", tabs->tabText(i));
    } else if (const auto* list = qobject_cast<const QComboBox*>(&widget)) {
        for (int i = 0; i < list->count(); ++i)
            add(widget, "item", list->itemText(i));
    }
    addActions(widget, widget.actions());
}

/// The size that the text of a control needs; invalid where it shows none.
QSize neededSize(const QWidget& widget)
{
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        if (label->text().isEmpty())
            return {};
        return label->wordWrap() ? QSize(0, label->heightForWidth(label->width()))
                                 : label->sizeHint();
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return button->text().isEmpty() ? QSize() : button->sizeHint();
    if (qobject_cast<const QComboBox*>(&widget))
        return widget.sizeHint();
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget))
        return {group->fontMetrics().horizontalAdvance(group->title()), 0};
    return {};
}

bool isInScrollArea(const QWidget& widget)
{
    const auto* area = widget.parentWidget()
        ? qobject_cast<const QAbstractScrollArea*>(widget.parentWidget()->parentWidget())
        : nullptr;
    return area && area->viewport() == widget.parentWidget();
}

void noteKey(QMap<QString, QStringList>& users, const QString& text)
{
    const QString key = QKeySequence::mnemonic(text).toString();
    if (!key.isEmpty())
        users[key].append(text);
}

void noteClashes(QStringList& clashes, const QMap<QString, QStringList>& users)
{
    for (const QStringList& texts : users) {
        if (texts.size() > 1)
            clashes.append(texts.join(QStringLiteral(" | ")));
    }
}

void noteMenu(QStringList& clashes, const QMenu& menu)
{
    QMap<QString, QStringList> users;
    for (const QAction* action : menu.actions()) {
        noteKey(users, action->text());
        if (action->menu())
            noteMenu(clashes, *action->menu());
    }
    noteClashes(clashes, users);
}

} // namespace

QList<WidgetText> widgetTexts(const QWidget& root)
{
    TextList list(root);
    for (const QWidget* widget : visibleWidgets(root))
        list.addWidget(*widget);
    return list.texts();
}

QStringList cutOffTexts(const QWidget& root)
{
    QStringList found;
    for (const QWidget* widget : visibleWidgets(root)) {
        const QSize needed = neededSize(*widget);
        const QString sizes = QStringLiteral(": needs %1 x %2, has %3 x %4")
                                  .arg(needed.width())
                                  .arg(needed.height())
                                  .arg(widget->width())
                                  .arg(widget->height());
        if (needed.width() > widget->width() || needed.height() > widget->height())
            found.append(placeOf(*widget, root) + sizes);
        const QWidget* parent = widget == &root ? nullptr : widget->parentWidget();
        if (needed.isValid() && parent && !isInScrollArea(*widget)
            && !parent->rect().contains(widget->geometry()))
            found.append(placeOf(*widget, root) + QStringLiteral(": sticks out"));
    }
    return found;
}

QStringList clashingKeys(const QWidget& root)
{
    QStringList clashes;
    QMap<QString, QStringList> users;
    for (const QWidget* widget : visibleWidgets(root)) {
        if (const auto* label = qobject_cast<const QLabel*>(widget); label && label->buddy())
            noteKey(users, label->text());
        else if (const auto* button = qobject_cast<const QAbstractButton*>(widget);
                 button && !isOfQt(*button))
            noteKey(users, button->text());
        else if (const auto* group = qobject_cast<const QGroupBox*>(widget))
            noteKey(users, group->title());
    }
    noteClashes(clashes, users);
    if (const auto* menu = qobject_cast<const QMenu*>(&root))
        noteMenu(clashes, *menu);
    return clashes;
}
