#include "layermanager/module/CLayerDocMngrReactor.h"

#include "layermanager/filters/view/ExcessFiltersPrompt.h"
#include "layermanager/module/PropertyUpdateScope.h"
#include "layermanager/palette/CLayerPaneView.h"

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
    CheckExcessFilters(document, &m_view);
    m_view.BindToCurrentDatabase();
    m_view.SyncPaneVisibility(nullptr, true);
}
