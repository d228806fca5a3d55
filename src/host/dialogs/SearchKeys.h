#pragma once

#include <QObject>

class QAbstractItemView;
class QLineEdit;

/// Lets the arrow keys and the page keys of a search field move in the list that it filters.
class SearchKeys : public QObject
{
    Q_OBJECT
public:
    SearchKeys(QLineEdit& search, QAbstractItemView& list);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QAbstractItemView& m_list;
};
