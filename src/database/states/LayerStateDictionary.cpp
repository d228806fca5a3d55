#include "database/states/LayerStateDictionary.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/states/LayerStateMask.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("LayerStates", text);
}

const QString& dictionaryKey()
{
    static const QString key = QStringLiteral("ACAD_LAYERSTATES");
    return key;
}

} // namespace

OdDbObjectId LayerStateDictionary::id() const
{
    const auto extension =
        m_drawing.extensionDictionary(m_drawing.getLayerTableId()).openObject<OdDbDictionary>();
    return extension ? extension->getAt(dictionaryKey()) : OdDbObjectId();
}

OdDbDictionaryPtr LayerStateDictionary::open(OdDb::OpenMode mode) const
{
    return id().openObject<OdDbDictionary>(mode);
}

bool LayerStateDictionary::has(const QString& name) const
{
    const auto states = open();
    return states && states->has(name);
}

OdDbXrecordPtr LayerStateDictionary::state(const QString& name, OdDb::OpenMode mode) const
{
    const auto states = open();
    const OdDbObjectId record = states ? states->getAt(name) : OdDbObjectId();
    if (auto found = record.openObject<OdDbXrecord>(mode))
        return found;
    if (states && states->has(name))
        throw OdError(OdResult::NotApplicable,
                      tr("The layer state \"%1\" belongs to an external reference; its settings "
                         "are not in this drawing.")
                          .arg(name));
    throw OdError(OdResult::KeyNotFound, tr("The drawing has no layer state \"%1\".").arg(name));
}

void LayerStateDictionary::requireNew(const QString& name) const
{
    if (name.isEmpty())
        throw OdError(OdResult::InvalidKey, tr("A layer state needs a name."));
    if (has(name))
        throw OdError(OdResult::DuplicateKey,
                      tr("There is a layer state \"%1\" already.").arg(name));
}

OdDbXrecordPtr LayerStateDictionary::create(const QString& name)
{
    requireNew(name);
    OdDbObjectId states = id();
    if (!states.openObject<OdDbDictionary>())
        states = m_drawing.createDictionary(
            m_drawing.createExtensionDictionary(m_drawing.getLayerTableId()), dictionaryKey());
    return m_drawing.createXrecord(states, name).safeOpenObject<OdDbXrecord>(OdDb::kForWrite);
}

void LayerStateDictionary::rename(const QString& name, const QString& newName)
{
    state(name);
    if (name.compare(newName, Qt::CaseInsensitive) != 0)
        requireNew(newName);
    open(OdDb::kForWrite)->rename(name, newName);
}

void LayerStateDictionary::remove(const QString& name)
{
    const OdDbObjectId record = state(name)->objectId();
    open(OdDb::kForWrite)->remove(name);
    m_drawing.eraseTree(record);
}

bool LayerStateDictionary::isInternal(const QString& name, int mask)
{
    // Snapshots of named views, the memory of the isolate tool, steps of "layer previous".
    static const std::array<QLatin1String, 3> prefixes = {QLatin1String("ACAD_VIEWS_"),
                                                          QLatin1String("_LAYISO_STATE"),
                                                          QLatin1String("ARGON_LAYERP_")};
    return (mask & LayerStateMask::kHidden) != 0
        || std::any_of(prefixes.begin(), prefixes.end(), [&](QLatin1String prefix) {
               return name.startsWith(prefix, Qt::CaseInsensitive);
           });
}

bool LayerStateDictionary::isExternalName(const QString& name)
{
    return name.indexOf(QLatin1String("__")) > 0;
}
