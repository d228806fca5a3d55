#include "host/commands/layer/LayerNames.h"

#include "base/NameCharacters.h"
#include "database/values/OdError.h"
#include "host/text/HostText.h"

#include <algorithm>

using namespace name_characters;

namespace {
constexpr int kLongest = 254;

bool isControl(QChar character)
{
    return character.category() == QChar::Other_Control;
}
} // namespace

void requireLayerName(const QString& name)
{
    const auto refuse = [](const QString& sentence) {
        throw OdError(OdResult::InvalidInput, sentence);
    };
    if (name.isEmpty())
        refuse(HostText::tr("A name is needed."));
    if (name.size() > kLongest)
        refuse(HostText::tr("A layer's name has at most %1 characters; this one has %2.")
                   .arg(kLongest)
                   .arg(name.size()));
    if (std::any_of(name.begin(), name.end(), isControl))
        refuse(HostText::tr("A layer's name holds no control characters."));
    if (containsAnyOf(name, kNotInLayers))
        refuse(HostText::tr("\"%1\" cannot be a layer's name: none of %2 may be in it.")
                   .arg(name, kNotInLayers));
}
