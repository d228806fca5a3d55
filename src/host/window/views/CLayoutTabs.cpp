#include "host/window/views/CLayoutTabs.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbLayout.h"

#include <QScopedValueRollback>

CLayoutTabs::CLayoutTabs(QWidget* parent)
    : QTabBar(parent)
{
    setObjectName(QStringLiteral("layoutTabs"));
    setAccessibleName(tr("Layouts"));
    setShape(QTabBar::RoundedSouth);
    setDocumentMode(true);
    setDrawBase(false);
    setExpanding(false);
    setUsesScrollButtons(true);
    setElideMode(Qt::ElideRight);
    connect(this, &QTabBar::currentChanged, this, &CLayoutTabs::tabPicked);
}

void CLayoutTabs::showLayouts(const OdDbDatabase& drawing)
{
    const QScopedValueRollback showing(m_showing, true);
    QStringList names;
    for (const OdDbObjectId id : drawing.layouts())
        names << id.openObject<OdDbLayout>()->getLayoutName();
    const QString current = drawing.getCTAB();
    if (names.isEmpty())
        names << current;
    while (count() > names.size())
        removeTab(count() - 1);
    for (int i = 0; i < names.size(); ++i) {
        // An ampersand in a name is no mnemonic.
        QString text = names[i];
        text.replace(QLatin1Char('&'), QStringLiteral("&&"));
        if (i == count())
            addTab(text);
        setTabText(i, text);
        setTabData(i, names[i]);
        setTabToolTip(i, names[i]);
        if (names[i].compare(current, Qt::CaseInsensitive) == 0)
            m_shown = i;
    }
    setCurrentIndex(m_shown);
}

void CLayoutTabs::tabPicked(int index)
{
    if (m_showing || index < 0)
        return;
    {
        const QScopedValueRollback showing(m_showing, true);
        setCurrentIndex(m_shown);
    }
    emit layoutWanted(tabData(index).toString());
}
