#include "sdk/KsResString.h"

#include "sdk/ModulePath.h"
#include "sdk/StringTable.h"

#include <QLocale>

#include <algorithm>
#include <stdexcept>
#include <utility>
#include <vector>

namespace {

struct Resource
{
    QString module;
    QString tablePath;
    StringTable texts;
};

/// Handles are positions in this list, counted from 1.
std::vector<Resource>& resources()
{
    static std::vector<Resource> list;
    return list;
}

KsResourceHandle s_current = 0;

} // namespace

QString KsResString(int id, const QString& defaultText)
{
    const std::vector<Resource>& known = resources();
    if (s_current < 1 || s_current > static_cast<KsResourceHandle>(known.size()))
        return defaultText;
    return known[static_cast<size_t>(s_current - 1)].texts.value(id, defaultText);
}

QString KsResString(std::span<const KsResText> table, int id)
{
    const auto text = std::ranges::find(table, id, &KsResText::id);
    if (text == table.end())
        throw std::out_of_range("no resource string " + std::to_string(id));
    return KsResString(id, QString::fromUtf8(text->source.text));
}

KsResourceHandle KsLoadAppLangResourceDLL(void* instance)
{
    const QString module = modulePathOf(instance);
    const QString tablePath = findStringTable(module, QLocale().name());
    std::vector<Resource>& known = resources();
    for (size_t i = 0; i < known.size(); ++i) {
        if (known[i].module == module && known[i].tablePath == tablePath)
            return static_cast<KsResourceHandle>(i + 1);
    }
    known.push_back(
        {module, tablePath, tablePath.isEmpty() ? StringTable() : readStringTable(tablePath)});
    return static_cast<KsResourceHandle>(known.size());
}

KsResourceHandle KsSetResourceHandle(KsResourceHandle handle)
{
    return std::exchange(s_current, handle);
}

KsResourceHandle KsGetResourceHandle()
{
    return s_current;
}
