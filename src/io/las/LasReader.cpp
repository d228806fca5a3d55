#include "io/las/LasReader.h"

#include "base/NumberText.h"
#include "database/states/stored/StoredLayer.h"
#include "database/values/OdError.h"
#include "io/dxf/text/GroupCode.h"
#include "io/las/LasLines.h"
#include "io/las/LasText.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cmath>
#include <limits>

namespace {

constexpr qint64 kLargestFile = qint64(256) << 20;
constexpr int kMostLayers = 1'000'000;
constexpr std::size_t kMostStates = 10'000;

constexpr int kStart = 0; ///< begins the file and each state
constexpr int kStateName = 1;
constexpr int kLinetypeName = 2;
constexpr int kLinetypeDescription = 3;
constexpr int kDash = 49;
constexpr int kComment = 999;

QString tr(const char* text)
{
    return QCoreApplication::translate("LasReader", text);
}

struct Limits
{
    qint64 least;
    qint64 most;
};

/// Numbers of 32 bits come with a sign or without.
std::optional<Limits> limitsOf(GroupKind kind)
{
    switch (kind) {
    case GroupKind::Int16:
        return Limits{std::numeric_limits<qint16>::min(), std::numeric_limits<qint16>::max()};
    case GroupKind::Int32:
        return Limits{std::numeric_limits<qint32>::min(), std::numeric_limits<quint32>::max()};
    case GroupKind::Int64:
        return Limits{std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max()};
    case GroupKind::Bool:
        return Limits{0, 1};
    default:
        return std::nullopt;
    }
}

/// Structure, handles, binary chunks and extended data mean nothing outside of their drawing.
bool isKept(int code)
{
    const GroupKind kind = groupKind(code);
    return hasBinaryForm(code) && code > 0 && (code < 100 || code > 109) && code < kComment
        && kind != GroupKind::Handle && kind != GroupKind::Chunk;
}

class FileParser
{
public:
    FileParser(QStringView text, const QString& file)
        : m_lines(text, file)
    { }

    std::vector<PortableLayerState> parse()
    {
        expectDictionary();
        while (const auto group = m_lines.next())
            take(*group);
        finishState();
        if (m_states.empty())
            m_lines.fail(tr("the file has no layer state; expected group 0 with LAYERSTATE."));
        return std::move(m_states);
    }

private:
    void expectDictionary()
    {
        auto group = m_lines.next();
        while (group && group->code == kComment)
            group = m_lines.next();
        if (!group || group->code != kStart
            || group->value.trimmed() != QLatin1String("LAYERSTATEDICTIONARY"))
            m_lines.fail(tr("this is no layer-state file; expected group 0 with "
                            "LAYERSTATEDICTIONARY."));
    }

    void take(const LasLines::Group& group)
    {
        if (group.code == kStart)
            return begin(group.value.trimmed());
        if (m_inLinetype)
            return takeLinetype(group);
        if (!m_inState)
            return;
        if (group.code == kStateName && m_layers == 0 && m_states.back().name.isEmpty())
            return takeName(group.value);
        if (isKept(group.code))
            append(group);
    }

    void begin(QStringView record)
    {
        finishState();
        m_inState = record == QLatin1String("LAYERSTATE");
        m_inLinetype = record == QLatin1String("LINETYPE") && !m_states.empty();
        if (m_inLinetype)
            m_states.back().linetypes.emplace_back();
        if (!m_inState)
            return; // anything else is a record of another program, passed over
        if (m_states.size() == kMostStates)
            m_lines.fail(tr("the file has more than %1 layer states.").arg(kMostStates));
        m_states.emplace_back();
        m_layers = 0;
    }

    void finishState()
    {
        if (m_inState && m_states.back().name.isEmpty())
            m_lines.fail(tr("the layer state has no name; expected group 1 with its name."));
    }

    void takeName(QStringView value)
    {
        m_states.back().name = LasText::unescaped(value).trimmed();
        if (m_states.back().name.isEmpty())
            m_lines.fail(tr("the name of the layer state is empty; expected a text."));
    }

    void takeLinetype(const LasLines::Group& group)
    {
        LinetypeState& linetype = m_states.back().linetypes.back();
        if (group.code == kLinetypeName)
            linetype.name = LasText::unescaped(group.value);
        else if (group.code == kLinetypeDescription)
            linetype.description = LasText::unescaped(group.value);
        else if (group.code == kDash)
            linetype.dashes.push_back(NumberText::real(canonical(group)).value_or(0));
    }

    void append(const LasLines::Group& group)
    {
        if (group.code == StateGroup::kLayerName) {
            if (group.value.isEmpty())
                m_lines.fail(tr("the name of the layer is empty; expected a text."));
            if (++m_layers > kMostLayers)
                m_lines.fail(tr("the layer state has more than %1 layers.").arg(kMostLayers));
        }
        m_states.back().groups.append(group.code, canonical(group));
    }

    QByteArray canonical(const LasLines::Group& group) const
    {
        const GroupKind kind = groupKind(group.code);
        if (kind == GroupKind::Text)
            return LasText::unescaped(group.value).toUtf8();
        QByteArray text = group.value.trimmed().toUtf8();
        if (kind == GroupKind::Real) {
            if (!std::isfinite(NumberText::real(text).value_or(NAN)))
                failNumber(group, tr("expected a number for group %1, found \"%2\"."));
            return text;
        }
        const auto limits = limitsOf(kind);
        const auto number = NumberText::integer(text);
        if (!number || !limits || *number < limits->least || *number > limits->most)
            failNumber(group, tr("expected a whole number in range for group %1, found \"%2\"."));
        return QByteArray::number(kind == GroupKind::Int32
                                      ? qint64(static_cast<qint32>(static_cast<quint32>(*number)))
                                      : *number);
    }

    [[noreturn]] void failNumber(const LasLines::Group& group, const QString& sentence) const
    {
        constexpr qsizetype kShown = 40;
        m_lines.fail(
            sentence.arg(group.code).arg(group.value.first(std::min(kShown, group.value.size()))));
    }

    LasLines m_lines;
    std::vector<PortableLayerState> m_states;
    bool m_inState = false;
    bool m_inLinetype = false;
    int m_layers = 0; ///< of the last state
};

} // namespace

std::vector<PortableLayerState> LasReader::read(const QByteArray& bytes, const QString& file)
{
    if (bytes.size() > kLargestFile)
        throw OdError_InvalidDrawing(
            file, 0,
            tr("the file has %1 bytes; expected at most %2.").arg(bytes.size()).arg(kLargestFile));
    const QString text = LasText::decodeFile(bytes);
    return FileParser(text, file).parse();
}

std::vector<PortableLayerState> LasReader::readFile(const QString& path)
{
    const QString shown = QDir::toNativeSeparators(path);
    if (QFileInfo(path).isDir())
        throw OdError_FileAccess(OdResult::CantOpenFile,
                                 tr("%1 is a folder; expected a layer-state file.").arg(shown));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw OdError_FileAccess(OdResult::CantOpenFile,
                                 tr("%1 cannot be read: %2.").arg(shown, file.errorString()));
    // One byte more than is allowed shows that there is more, also where the size is not known.
    const QByteArray bytes = file.read(kLargestFile + 1);
    if (file.error() != QFileDevice::NoError)
        throw OdError_FileAccess(OdResult::CantOpenFile,
                                 tr("%1 cannot be read: %2.").arg(shown, file.errorString()));
    return read(bytes, shown);
}
