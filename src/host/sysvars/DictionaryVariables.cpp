#include "host/sysvars/DictionaryVariables.h"

#include "database/GroupCursor.h"
#include "database/OdDbDatabase.h"
#include "database/OdDbDictionary.h"
#include "host/text/HostText.h"

namespace {
constexpr int kValueCode = 1; // the value of a dictionary variable is text

OdDbObjectId entry(OdDbObjectId dictionary, const QString& key)
{
    const auto opened = dictionary.openObject<OdDbDictionary>();
    return opened ? opened->getAt(key) : OdDbObjectId();
}

OdDbObjectId variableId(const OdDbDatabase& drawing, const QString& name)
{
    const QString dictionary = QStringLiteral("AcDbVariableDictionary");
    return entry(entry(drawing.getNamedObjectsDictionaryId(), dictionary), name);
}
} // namespace

int dictionaryVariable(const OdDbDatabase& drawing, const QString& name, int fallback)
{
    const OdDbObjectId id = variableId(drawing, name);
    const auto cursor = id.isNull() ? nullptr : drawing.makeCursor();
    if (!cursor)
        return fallback;
    cursor->open(id.slot());
    while (cursor->next()) {
        if (cursor->code() != kValueCode)
            continue;
        bool isNumber = false;
        const int value = cursor->text().trimmed().toInt(&isNumber);
        return isNumber ? value : fallback;
    }
    return fallback;
}

void setDictionaryVariable(OdDbDatabase& drawing, const QString& name, int value)
{
    if (dictionaryVariable(drawing, name, 0) == value)
        return;
    throw OdError(OdResult::NotImplementedYet,
                  HostText::tr("%1 can be read from a drawing, not yet changed in it.").arg(name));
}
