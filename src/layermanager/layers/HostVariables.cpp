#include "layermanager/layers/HostVariables.h"

#include "sdk/IKestSysvarManager.h"
#include "sdk/KestStatus.h"

namespace {

template <class Value>
std::optional<Value> read(int (IKestSysvarManager::*get)(const QString&, Value&) const,
                          const QString& name)
{
    const IKestSysvarManager* variables = getSysvarManagerInterface();
    Value value{};
    if (!variables || (variables->*get)(name, value) != kest::kNormal)
        return std::nullopt;
    return value;
}

} // namespace

std::optional<int> readHostInt(const QString& name)
{
    return read<int>(&IKestSysvarManager::getInt, name);
}

std::optional<QString> readHostString(const QString& name)
{
    return read<QString>(&IKestSysvarManager::getString, name);
}

std::optional<OdDbObjectId> readHostId(const QString& name)
{
    return read<OdDbObjectId>(&IKestSysvarManager::getId, name);
}

bool writeHostInt(const QString& name, int value)
{
    IKestSysvarManager* variables = getSysvarManagerInterface();
    return variables && variables->setInt(name, value) == kest::kNormal;
}
