#include "io/dwg/write/DwgVerifier.h"

#include "base/NumberText.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/dwg/read/DwgCursor.h"
#include "io/dwg/read/DwgObjectSource.h"
#include "io/dwg/read/HandleIndex.h"
#include "io/dwg/records/GroupForm.h"
#include "io/dwg/records/SheetRecords.h"
#include "io/dwg/sections/HeaderSection.h"
#include "io/dwg/sections/ObjectMap.h"
#include "io/dwg/write/Spelling.h"
#include "io/files/WrittenBytes.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <map>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("DwgVerifier", text);
}

bool isAsMeant(const LayerState& layer, const LayerState& meant)
{
    const bool isLinetype = meant.linetype.isNull() || layer.linetype == meant.linetype;
    const bool isPlotStyle = meant.plotStyle.isNull() || layer.plotStyle == meant.plotStyle;
    return layer.name == meant.name && layer.frozen == meant.frozen && layer.off == meant.off
        && layer.locked == meant.locked && layer.plottable == meant.plottable
        && layer.frozenInNewViewports == meant.frozenInNewViewports
        && dwgLineWeightNumber(layer.lineWeight) == dwgLineWeightNumber(meant.lineWeight)
        && isLinetype && isPlotStyle;
}

/// Angles are turned into other units, settings are read as fewer digits.
bool isSameReal(double a, double b)
{
    constexpr double kTolerance = 1e-12;
    return std::abs(a - b) <= kTolerance * std::max({1.0, std::abs(a), std::abs(b)});
}

/// Whether an entity says what the groups say that it was made of.
bool isSame(DwgCursor& entity, const GroupList& meant)
{
    constexpr int kLinetype = 6; // compared by handle
    constexpr int kClassMark = 100;
    std::map<int, std::pair<double, QString>> values;
    while (entity.next())
        values.try_emplace(entity.code(), entity.real(), entity.text());
    return std::all_of(meant.begin(), meant.end(), [&](const GroupList::Group& group) {
        const auto found = values.find(group.code);
        const auto number = NumberText::real(group.value);
        if (group.code == kLinetype || group.code == kClassMark)
            return true;
        const GroupForm form = groupForm(group.code);
        if (found == values.end()) // coordinates and angles of zero need no group
            return (form == GroupForm::Real || form == GroupForm::Point) && number == 0.0;
        return found->second.second == QString::fromUtf8(group.value)
            || (form != GroupForm::Text && number && isSameReal(found->second.first, *number));
    });
}

/// Groups that differ in how numbers are written are the same.
bool isSame(const DwgFormat& format, const GroupList& a, const GroupList& b)
{
    BitWriter first;
    BitWriter second;
    if (a == b)
        return true;
    return Spelling::freeGroups(format, a, first) && Spelling::freeGroups(format, b, second)
        && first.bytes() == second.bytes();
}

bool isSame(const std::vector<KeyedHandle>& entries, const std::vector<KeyedHandle>& meant)
{
    return std::equal(entries.begin(), entries.end(), meant.begin(), meant.end(),
                      [](const KeyedHandle& is, const KeyedHandle& wanted) {
                          return is.key == wanted.key
                              && (wanted.handle == 0 || is.handle == wanted.handle);
                      });
}

/// Whether a group says the same; numbers may be written in several ways.
bool isSameXDataGroup(const GroupList::Group& group, const GroupList::Group& meant)
{
    constexpr int kFirstNumber = 1010;
    const auto number = NumberText::real(meant.value);
    return group.code == meant.code
        && (group.value == meant.value
            || (group.code >= kFirstNumber && number && NumberText::real(group.value) == number));
}

using XDataByApplication = std::map<QString, std::vector<GroupList::Group>>;

/// Names of applications are the same in any case; those without data are not written.
XDataByApplication byApplication(const GroupList& xData)
{
    XDataByApplication all;
    QString application;
    for (const GroupList::Group& group : xData) {
        if (group.code == 1001)
            application = QString::fromUtf8(group.value).toCaseFolded();
        else
            all[application].push_back(group);
    }
    return all;
}

bool isSameXData(const GroupList& xData, const GroupList& wanted)
{
    const XDataByApplication is = byApplication(xData);
    const XDataByApplication meant = byApplication(wanted);
    return std::equal(is.begin(), is.end(), meant.begin(), meant.end(),
                      [](const auto& a, const auto& b) {
                          return a.first == b.first
                              && std::equal(a.second.begin(), a.second.end(), b.second.begin(),
                                            b.second.end(), isSameXDataGroup);
                      });
}

/// A header variable as its section has it.
bool isSameSetting(const QString& value, const QString& meant)
{
    const auto number = NumberText::real(meant.toLatin1());
    const auto written = NumberText::real(value.toLatin1());
    return value == meant || (number && written && isSameReal(*number, *written));
}

} // namespace

DwgVerifier::DwgVerifier(const DwgObjectSource& source, const OdDbDatabase& database,
                         const DrawingPieces& pieces, const WrittenBytes& written)
    : m_source(source)
    , m_database(database)
    , m_pieces(pieces)
    , m_written(written)
    , m_meant(*static_cast<const DwgMeant*>(pieces.meant.get()))
{ }

void DwgVerifier::fail(quint64 handle)
{
    throw OdError_FileAccess(OdResult::CantWriteFile,
                             tr("What was written does not say what the drawing says: the record "
                                "with the handle %1 differs. The file is as it was.")
                                 .arg(QString::number(handle, 16).toUpper()));
}

void DwgVerifier::run() const
{
    // A file that is what it was needs no second look.
    if (m_meant.records.empty() && m_meant.removed.empty() && m_pieces.report.settingsChanged == 0)
        return;
    const auto image = FileImage::copyOf(m_written.view(0, m_written.size()).toByteArray(),
                                         m_source.image().name());
    const std::unique_ptr<DwgFile> file = DwgFile::open(image);
    if (!file->faults().isEmpty())
        throw OdError_FileAccess(
            OdResult::CantWriteFile,
            tr("What was written cannot be read back: %1 The file is as it was.")
                .arg(file->faults().join(QLatin1Char(' '))));
    const ObjectMap map = ObjectMap::read(file->section(DwgSection::ObjectMap));
    compareRecords(*file, map);
    compareMeanings(*file, map);
    compareSettings(*file);
}

void DwgVerifier::compareRecords(const DwgFile& file, const ObjectMap& map) const
{
    const ObjectStore& store = m_database.store();
    std::size_t expected = store.fileRecords() - m_meant.removed.size();
    DwgRecord before = m_source.reader();
    DwgRecord after(m_source.format(), file.section(DwgSection::Objects));
    for (const ObjectMap::Entry& entry : map.entries) {
        if (!after.open(entry.offset) || m_meant.removed.contains(entry.handle))
            fail(entry.handle);
        const auto changed = m_meant.records.find(entry.handle);
        const quint32 slot = store.find(entry.handle);
        const bool isInFile = slot < store.fileRecords();
        if (changed != m_meant.records.end()) {
            expected += isInFile ? 0 : 1;
            if (after.bytes() != changed->second)
                fail(entry.handle);
        } else if (!isInFile || !m_source.open(before, slot) || before.bytes() != after.bytes()) {
            fail(entry.handle);
        }
    }
    if (!map.complete || !map.sumsHold || map.entries.size() != expected)
        fail(0);
}

void DwgVerifier::compareMeanings(const DwgFile& file, const ObjectMap& map) const
{
    DwgRecord record(m_source.format(), file.section(DwgSection::Objects));
    for (const ObjectMap::Entry& entry : map.entries) {
        if (!m_meant.records.contains(entry.handle))
            continue;
        DwgHead head;
        DwgEntityHead entity;
        const bool opens = record.open(entry.offset);
        if (opens)
            record.readHead(head, entity, m_source.classes().isEntity(record.type()));
        if (!opens || head.handle != entry.handle || !says(record, head, entity)
            || record.hasFailed() || !saysXData(record, head) || !saysEntity(file, entry, entity))
            fail(entry.handle);
    }
}

bool DwgVerifier::says(DwgRecord& record, const DwgHead& head, const DwgEntityHead& entity) const
{
    const quint64 handle = head.handle;
    if (const auto layer = m_meant.layers.find(handle);
        layer != m_meant.layers.end() && entity.layer != layer->second)
        return false;
    if (const auto frozen = m_meant.frozen.find(handle); frozen != m_meant.frozen.end())
        return SheetRecords::viewport(record).frozenLayers == frozen->second;
    if (const auto groups = m_meant.groups.find(handle); groups != m_meant.groups.end())
        return isSame(m_source.format(), FreeRecords::xrecord(record).own.groups, groups->second);
    if (const auto entries = m_meant.entries.find(handle); entries != m_meant.entries.end())
        return isSame(FreeRecords::dictionary(record).entries, entries->second);
    if (const auto value = m_meant.variables.find(handle); value != m_meant.variables.end()) {
        record.data.rawChar(); // schema
        return record.text() == value->second;
    }
    const auto slot = m_meant.slotOf.find(handle);
    const bool isLayer =
        slot != m_meant.slotOf.end() && m_database.store().type(slot->second) == RecordType::Layer;
    return !isLayer || saysLayer(record, head, slot->second);
}

bool DwgVerifier::saysLayer(DwgRecord& record, const DwgHead& head, quint32 slot) const
{
    const auto layer = m_database.idOfSlot(slot).openObject<OdDbLayerTableRecord>();
    if (!layer)
        return false;
    const LayerState& meant = layer->state();
    const LayerState written =
        m_source.decodeLayer(record, head, [this](quint64 handle) { return nameOf(handle); });
    const Spelling::Color color = Spelling::color(m_source.format(), written.color);
    const Spelling::Color meantColor = Spelling::color(m_source.format(), meant.color);
    const bool isColor = color.data.bytes() == meantColor.data.bytes()
        && color.names.bytes() == meantColor.names.bytes();
    const bool isXData = m_meant.shortOfXData.contains(head.handle)
        || (written.description == meant.description && written.transparency == meant.transparency);
    return isAsMeant(written, meant) && isColor && isXData;
}

QString DwgVerifier::nameOf(quint64 handle) const
{
    const auto made = m_meant.applications.find(handle);
    return made == m_meant.applications.end() ? m_source.plainNameOf(handle) : made->second;
}

bool DwgVerifier::saysXData(DwgRecord& record, const DwgHead& head) const
{
    const auto meant = m_meant.xData.find(head.handle);
    if (meant == m_meant.xData.end() || m_meant.shortOfXData.contains(head.handle))
        return true;
    return isSameXData(
        FreeRecords::xData(record, head, [this](quint64 handle) { return nameOf(handle); }),
        meant->second);
}

bool DwgVerifier::saysEntity(const DwgFile& file, const ObjectMap::Entry& entry,
                             const DwgEntityHead& entity) const
{
    const auto meant = m_meant.entities.find(entry.handle);
    if (meant == m_meant.entities.end())
        return true;
    DwgCursor cursor(m_source, DwgRecord(m_source.format(), file.section(DwgSection::Objects)));
    cursor.openAt(entry.offset, true);
    return entity.linetypeKind == meant->second.linetypeKind
        && entity.linetype == meant->second.linetype && isSame(cursor, meant->second.groups);
}

bool DwgVerifier::saysVariables(const HeaderSection& header) const
{
    std::size_t same = 0;
    for (const HeaderSection::Variable& variable : header.variables()) {
        const auto meant = m_meant.settings.find(variable.name);
        if (meant == m_meant.settings.end())
            continue;
        if (!isSameSetting(variable.value, meant->second))
            return false;
        ++same;
    }
    return same >= m_meant.settings.size();
}

void DwgVerifier::compareSettings(const DwgFile& file) const
{
    const HeaderSection header(file, m_source.format());
    const CurrentSettings& current = m_database.current();
    const quint64 seed = header.reference(QStringLiteral("$HANDSEED"));
    const bool hasSeed =
        std::none_of(m_meant.records.begin(), m_meant.records.end(), [&](const auto& record) {
            return m_database.store().isNewHandle(record.first) && record.first >= seed;
        });
    const auto& variables = header.variables();
    const auto mode = std::find_if(variables.begin(), variables.end(), [](const auto& variable) {
        return variable.name == QLatin1String("$TILEMODE");
    });
    const bool isMode =
        mode == variables.end() || (mode->value != QLatin1String("0")) == current.modelSpace;
    const bool isLayer = current.layer == m_database.loadedCurrent().layer
        || header.reference(QStringLiteral("$CLAYER")) == current.layer.getHandle().value();
    const quint64 root = m_database.getNamedObjectsDictionaryId().getHandle().value();
    const bool isRoot =
        !m_meant.records.contains(root) || header.reference(QStringLiteral("*NAMED")) == root;
    const bool isClass = !m_meant.addsVariableClass
        || DwgClasses(file, m_source.format()).number("DICTIONARYVAR")
            == m_source.classes().nextNumber();
    if (!header.isSound() || !hasSeed || !isClass || !isRoot || !saysVariables(header) || !isMode
        || !isLayer)
        throw OdError_FileAccess(OdResult::CantWriteFile,
                                 tr("What was written does not say what the drawing says: its "
                                    "settings differ. The file is as it was."));
}

void DwgObjectSource::verify(const OdDbDatabase& drawing, const DrawingPieces& pieces,
                             const WrittenBytes& written) const
{
    DwgVerifier(*this, drawing, pieces, written).run();
}
