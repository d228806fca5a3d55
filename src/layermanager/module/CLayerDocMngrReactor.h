#pragma once

#include "database/values/OdRxObject.h"
#include "sdk/KsApDocManager.h"

class CLayerPaneView;

/// Keeps the palette bound to the drawing that is current.
class CLayerDocMngrReactor : public OdRxObject, public KsApDocManagerReactor
{
public:
    explicit CLayerDocMngrReactor(CLayerPaneView& view)
        : m_view(view)
    { }

    void documentCreated(KsApDocument* document) override;
    void documentBecameCurrent(KsApDocument* document) override;
    void documentToBeDestroyed(KsApDocument* document) override;

private:
    void follow(KsApDocument* document);

    CLayerPaneView& m_view;
};
