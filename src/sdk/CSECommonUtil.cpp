#include "sdk/CSECommonUtil.h"

#include "sdk/IKestSysvarManager.h"
#include "sdk/KestStatus.h"

int CSECommonUtil::GetToolTipsSysVar()
{
    int wanted = 1;
    const IKestSysvarManager* variables = getSysvarManagerInterface();
    if (!variables || variables->getInt(QStringLiteral("TOOLTIPS"), wanted) != kest::kNormal)
        return 1;
    return wanted;
}
