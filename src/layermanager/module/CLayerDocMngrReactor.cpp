#include "layermanager/module/CLayerDocMngrReactor.h"

#include "layermanager/filters/view/ExcessFiltersPrompt.h"
#include "layermanager/module/PropertyUpdateScope.h"
#include "layermanager/palette/CLayerPaneView.h"

#include <QPointer>

void CLayerDocMngrReactor::documentCreated(KsApDocument* document)
{
    if (ksDocManagerPtr())
        follow(document);
}

void CLayerDocMngrReactor::documentBecameCurrent(KsApDocument* document)
{
    follow(document);
}

void CLayerDocMngrReactor::documentToBeDestroyed(KsApDocument* document)
{
    m_view.SyncPaneVisibility(document, false);
}

void CLayerDocMngrReactor::follow(KsApDocument* document)
{
    if (!document || !document->database())
        return;
    const PropertyUpdateScope guard;
    const QPointer<CLayerPaneView> view(&m_view); // it may go while the user is asked
    CheckExcessFilters(document, view);
    if (!view)
        return;
    view->BindToCurrentDatabase();
    view->SyncPaneVisibility(nullptr, true);
}
