#pragma once

#include "toolkit/PickQuestions.h"

#include <QTreeWidget>

/// Linetypes with name, a drawn piece of each, and description.
class CLinetypeList : public QTreeWidget
{
    Q_OBJECT
public:
    explicit CLinetypeList(QWidget* parent);

    void add(const LinetypeItem& linetype);
    bool contains(const QString& name) const;
    /// Makes the linetype of that name the current one; none where it is not listed.
    void select(const QString& name);
    /// Shows those whose name or description holds the text. A current one that is hidden by it
    /// gives way to the first that is shown.
    void filter(const QString& text);
    /// The selected ones that are shown, from the top.
    QList<LinetypeItem> chosen() const;

private:
    LinetypeItem itemAt(int row) const;
};
