#include "sdk/KestSSGet.h"

#include "sdk/KestHost.h"
#include "sdk/KestStatus.h"

int KestSSGet(const KestSelectionRequest& request, KestSelectionSet& selection)
{
    selection.entities.clear();
    const auto select = ksHost().selectEntities;
    return select ? select(request, selection) : kest::kError;
}
