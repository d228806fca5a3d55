#include "io/dxf/patch/NewRecords.h"

#include "database/objects/OdDbDictionaryVar.h"
#include "database/objects/OdDbXrecord.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "io/dxf/read/DictionaryGroups.h"
#include "io/dxf/read/DxfObjectSource.h"
#include "io/dxf/read/LayerGroups.h"

#include <QLocale>

#include <cmath>

namespace {
constexpr int kPointer = 330;
constexpr int kMark = 102;

QByteArray realText(double value)
{
    const QByteArray text = QByteArray::number(value, 'g', QLocale::FloatingPointShortest);
    return text.contains('.') || text.contains('e') ? text : text + ".0";
}

} // namespace

NewRecords::NewRecords(const DxfObjectSource& source)
    : m_source(source)
    , m_spelling(source.spelling())
    , m_hasSubclasses(source.version() >= DrawingVersion::R13)
    , m_hasTableOwners(source.version() >= DrawingVersion::V2000)
    , m_hasCloningFlags(source.version() >= DrawingVersion::V2000)
{ }

QByteArray NewRecords::handleText(quint64 handle)
{
    return QByteArray::number(handle, 16).toUpper();
}

QByteArray NewRecords::begin(const char* type, const Head& head) const
{
    QByteArray out;
    append(out, 0, type);
    if (head.handle != 0)
        append(out, 5, handleText(head.handle));
    if (head.extensionDictionary != 0)
        appendExtension(out, head.extensionDictionary);
    if (head.ownerReacts && head.owner != 0) {
        append(out, kMark, "{ACAD_REACTORS");
        append(out, kPointer, handleText(head.owner));
        append(out, kMark, "}");
    }
    if (head.owner != 0)
        append(out, kPointer, handleText(head.owner));
    return out;
}

void NewRecords::appendExtension(QByteArray& out, quint64 dictionary) const
{
    append(out, kMark, "{ACAD_XDICTIONARY");
    append(out, DictionaryGroups::kHardOwner, handleText(dictionary));
    append(out, kMark, "}");
}

void NewRecords::appendGroups(QByteArray& out, const GroupList& groups) const
{
    for (const GroupList::Group& group : groups)
        append(out, group.code, m_source.fileValue(group.code, group.value));
}

QByteArray NewRecords::beginOfTable(const char* type, const char* subclass, Head head) const
{
    if (!m_hasTableOwners)
        head.owner = 0;
    QByteArray out = begin(type, head);
    if (m_hasSubclasses) {
        append(out, 100, "AcDbSymbolTableRecord");
        append(out, 100, subclass);
    }
    return out;
}

QByteArray NewRecords::layer(const Head& head, const LayerState& state, QStringList& notKept) const
{
    return beginOfTable("LAYER", "AcDbLayerTableRecord", head)
        + LayerGroups::spelled(m_source, state, notKept);
}

QByteArray NewRecords::linetype(const Head& head, const LinetypeState& state) const
{
    QByteArray out = beginOfTable("LTYPE", "AcDbLinetypeTableRecord", head);
    double length = 0;
    for (const double dash : state.dashes)
        length += std::abs(dash);
    append(out, 2, m_source.encodedName(state.name));
    append(out, 70, "0");
    append(out, 3, m_source.text().encode(state.description));
    append(out, 72, "65"); // alignment, always "A"
    append(out, 73, QByteArray::number(state.dashes.size()));
    append(out, 40, realText(length));
    for (const double dash : state.dashes) {
        append(out, 49, realText(dash));
        if (m_hasSubclasses)
            append(out, 74, "0");
    }
    return out;
}

QByteArray NewRecords::application(const Head& head, const QByteArray& name) const
{
    QByteArray out = beginOfTable("APPID", "AcDbRegAppTableRecord", head);
    append(out, 2, name);
    append(out, 70, "0");
    return out;
}

QByteArray NewRecords::dictionary(const Head& head, bool hard,
                                  const std::vector<KeyedHandle>& entries,
                                  const GroupList& xData) const
{
    QByteArray out = begin("DICTIONARY", head);
    append(out, 100, "AcDbDictionary");
    if (hard)
        append(out, 280, "1");
    if (m_hasCloningFlags)
        append(out, 281, "1");
    for (const KeyedHandle& entry : entries)
        appendEntry(out, entry, hard ? DictionaryGroups::kHardOwner : DictionaryGroups::kSoftOwner);
    appendGroups(out, xData);
    return out;
}

void NewRecords::appendEntry(QByteArray& out, const KeyedHandle& entry, int valueCode) const
{
    append(out, 3, m_source.text().encode(entry.key));
    append(out, valueCode, handleText(entry.handle));
}

QByteArray NewRecords::xrecord(const Head& head, const XrecordState& state) const
{
    QByteArray out = begin("XRECORD", head);
    append(out, 100, "AcDbXrecord");
    if (m_hasCloningFlags)
        append(out, 280, "1");
    appendGroups(out, state.groups);
    appendGroups(out, state.xData);
    return out;
}

QByteArray NewRecords::dictionaryVar(const Head& head, const DictionaryVarState& state) const
{
    QByteArray out = begin("DICTIONARYVAR", head);
    append(out, 100, "DictionaryVariables");
    append(out, 280, "0");
    append(out, 1, m_source.text().encode(state.value));
    return out;
}

QByteArray NewRecords::classRecord(const char* dxfName, const char* className) const
{
    QByteArray out;
    append(out, 0, "CLASS");
    append(out, 1, dxfName);
    append(out, 2, className);
    append(out, 3, "ObjectDBX Classes");
    append(out, 90, "0");
    if (m_source.version() >= DrawingVersion::V2004)
        append(out, 91, "1");
    append(out, 280, "0");
    append(out, 281, "0");
    return out;
}

QByteArray NewRecords::sectionStart(const char* name) const
{
    QByteArray out;
    append(out, 0, "SECTION");
    append(out, 2, name);
    return out;
}

QByteArray NewRecords::sectionEnd() const
{
    QByteArray out;
    append(out, 0, "ENDSEC");
    return out;
}

QByteArray NewRecords::tableStart(const char* name, quint64 handle, int count) const
{
    QByteArray out;
    append(out, 0, "TABLE");
    append(out, 2, name);
    if (handle != 0)
        append(out, 5, handleText(handle));
    if (m_hasSubclasses)
        append(out, 100, "AcDbSymbolTable");
    append(out, 70, QByteArray::number(count));
    return out;
}

QByteArray NewRecords::tableEnd() const
{
    QByteArray out;
    append(out, 0, "ENDTAB");
    return out;
}
