#include "sdk/texts/KsResString.h"

#include "sdk/texts/LanguageResource.h"
#include "sdk/texts/ModulePath.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>
#include <stdexcept>
#include <utility>
#include <vector>

namespace {

/// Handles are positions in this list, counted from 1.
std::vector<LanguageResource>& resources()
{
    static std::vector<LanguageResource> list;
    return list;
}

KsResourceHandle s_current = 0;

QString resourceText(int id, const char* defaultText)
{
    const std::vector<LanguageResource>& known = resources();
    if (s_current >= 1 && s_current <= static_cast<KsResourceHandle>(known.size())) {
        const QString text = known[static_cast<size_t>(s_current - 1)].text(id, defaultText);
        if (!text.isEmpty())
            return text;
    }
    // Also what happens outside of commands, such as a click, is told in the user's language.
    return QCoreApplication::translate("KsResString", defaultText,
                                       QByteArray::number(id).constData());
}

} // namespace

QString KsResString(int id, const QString& defaultText)
{
    return resourceText(id, defaultText.toUtf8().constData());
}

QString KsResString(const KsResText& text)
{
    return resourceText(text.id, text.source.text);
}

QString KsResString(std::span<const KsResText> table, int id)
{
    const auto text = std::ranges::find(table, id, &KsResText::id);
    if (text == table.end())
        throw std::out_of_range("no resource string " + std::to_string(id));
    return KsResString(*text);
}

KsResourceHandle KsLoadLanguageCatalogue(const QString& module, const QString& path)
{
    std::vector<LanguageResource>& known = resources();
    const auto isWanted = [&](const LanguageResource& resource) {
        return resource.module() == module && resource.path() == path;
    };
    auto wanted = std::ranges::find_if(known, isWanted);
    if (wanted == known.end()) {
        known.emplace_back(module, path);
        wanted = std::prev(known.end());
    }
    for (LanguageResource& resource : known) {
        if (resource.module() == module)
            resource.remove();
    }
    wanted->install();
    return static_cast<KsResourceHandle>(wanted - known.begin() + 1);
}

KsResourceHandle KsLoadAppLangResourceDLL(void* instance)
{
    const QString module = modulePathOf(instance);
    return KsLoadLanguageCatalogue(module, LanguageResource::find(module, QLocale().name()));
}

KsResourceHandle KsSetResourceHandle(KsResourceHandle handle)
{
    return std::exchange(s_current, handle);
}

KsResourceHandle KsGetResourceHandle()
{
    return s_current;
}
