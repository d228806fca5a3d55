#pragma once

#include <QDialog>

#include <optional>

class OdDbDatabase;
class OdLyLayerFilter;
class QLineEdit;

/// Asks for the name and the expression of a property filter.
class CDlgLayPropFilter : public QDialog
{
    Q_OBJECT
public:
    CDlgLayPropFilter(OdDbDatabase& database, OdLyLayerFilter& filter, QWidget* parent = nullptr);

    /// Runs the dialog on a filter; false, and the filter as it was, when the user gives up.
    static bool edit(QWidget* parent, OdDbDatabase& database, OdLyLayerFilter& filter);

    void accept() override;

private:
    /// The name typed; none, and the user was told, where it is refused.
    std::optional<QString> acceptedName();
    std::optional<QString> acceptedExpression();

    OdDbDatabase& m_database;
    OdLyLayerFilter& m_filter;
    QLineEdit* m_name;
    QLineEdit* m_expression;
};
