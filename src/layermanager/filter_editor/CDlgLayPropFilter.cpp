#include "layermanager/filter_editor/CDlgLayPropFilter.h"

#include "database/OdLyLayerFilterManager.h"
#include "database/filters/FilterExpressionText.h"
#include "layermanager/filters/FilterNames.h"
#include "toolkit/Prompts.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>

namespace {

constexpr int kWidestExpected = 60; ///< characters of an expression that are seen at once

} // namespace

CDlgLayPropFilter::CDlgLayPropFilter(OdDbDatabase& database, OdLyLayerFilter& filter,
                                     QWidget* parent)
    : QDialog(parent)
    , m_database(database)
    , m_filter(filter)
    , m_name(new QLineEdit(filter.name(), this))
    , m_expression(new QLineEdit(filter.filterExpression(), this))
{
    setWindowTitle(tr("Layer Filter Properties"));
    m_name->setObjectName(QStringLiteral("filterName"));
    m_expression->setObjectName(QStringLiteral("filterExpression"));
    m_expression->setMinimumWidth(fontMetrics().averageCharWidth() * kWidestExpected);
    m_expression->setPlaceholderText(QStringLiteral("NAME==\"A*\" AND OFF==\"False\""));
    auto* layout = new QFormLayout(this);
    layout->addRow(tr("&Name:"), m_name);
    layout->addRow(tr("E&xpression:"), m_expression);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &CDlgLayPropFilter::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CDlgLayPropFilter::reject);
    layout->addRow(buttons);
    m_name->selectAll();
}

bool CDlgLayPropFilter::edit(QWidget* parent, OdDbDatabase& database, OdLyLayerFilter& filter)
{
    // It may go with its parent while it is open.
    auto* dialog = new CDlgLayPropFilter(database, filter, parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    return dialog->exec() == Accepted;
}

void CDlgLayPropFilter::accept()
{
    const std::optional<QString> name = acceptedName();
    if (!name)
        return;
    const std::optional<QString> expression = acceptedExpression();
    if (!expression)
        return;
    m_filter.setName(*name);
    m_filter.setFilterExpression(*expression);
    QDialog::accept();
}

std::optional<QString> CDlgLayPropFilter::acceptedName()
{
    OdLyLayerFilterPtr root;
    OdLyLayerFilterPtr current;
    odlyGetLayerFilterManager(&m_database)->getFilters(root, current);
    const FilterNameVerdict verdict = checkFilterRename(root, m_filter.name(), m_name->text());
    if (const QString refusal = filterNameRefusal(verdict); !refusal.isEmpty()) {
        Prompts::current().message(this, refusal);
        m_name->setFocus();
        return std::nullopt;
    }
    return verdict == FilterNameVerdict::Accepted ? typedFilterName(m_name->text())
                                                  : m_filter.name();
}

std::optional<QString> CDlgLayPropFilter::acceptedExpression()
{
    const QString text = m_expression->text();
    const auto spelling = FilterExpressionText::spelled(m_database, text);
    if (!text.isEmpty() && !spelling.isSayable) {
        Prompts::current().message(
            this,
            tr("The expression cannot be read. Criteria look like NAME==\"A*\" and are "
               "joined by AND and OR."));
        m_expression->setFocus();
        return std::nullopt;
    }
    return spelling.text;
}
