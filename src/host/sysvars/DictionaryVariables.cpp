#include "host/sysvars/DictionaryVariables.h"

#include "database/drawing/OdDbDatabase.h"

int dictionaryVariable(const OdDbDatabase& drawing, const QString& name, int fallback)
{
    bool isNumber = false;
    const int value = drawing.dictionaryVariable(name).trimmed().toInt(&isNumber);
    return isNumber ? value : fallback;
}

void setDictionaryVariable(OdDbDatabase& drawing, const QString& name, int value)
{
    drawing.setDictionaryVariable(name, QString::number(value));
}
