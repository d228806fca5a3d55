#include "layermanager/filters/MatchWildcard.h"

#include "base/WildcardPattern.h"
#include "sdk/KestStatus.h"

int MatchWildcard(const QString* text, const QString* pattern)
{
    if (!text || !pattern)
        return kest::kError;
    return WildcardPattern(*pattern, Qt::CaseSensitive).matches(*text) ? kest::kNormal
                                                                       : kest::kError;
}
