#include "base/NumberText.h"
#include "database/OdDbDatabase.h"
#include "database/OdDbLinetypeTableRecord.h"
#include "io/dxf/DxfCursor.h"
#include "io/dxf/LayerGroups.h"

#include <QCoreApplication>

#include <algorithm>
#include <optional>

namespace {

/// Order in which other CAD programs write the groups of a layer.
constexpr int kOrder[] = {2, 70, 62, 420, 430, 6, 290, 370, 390, 347, 348};

struct Span
{
    int code;
    quint64 begin;
    quint64 valueBegin;
    quint64 valueEnd;
    quint64 end;
    QByteArray value;
};

/// A group to be there with that value, or not at all.
struct Wanted
{
    int code;
    std::optional<QByteArray> value;
    int width = 0; ///< columns of a padded number; 0 for text
};

std::size_t rankOf(int code)
{
    return static_cast<std::size_t>(std::find(std::begin(kOrder), std::end(kOrder), code)
                                    - std::begin(kOrder));
}

/// The record's own groups, without those of applications and extended data.
std::vector<Span> spansOf(DxfCursor& record)
{
    std::vector<Span> spans;
    bool inGroup = false;
    while (record.next() && record.code() < 1000) {
        if (record.code() == 102)
            inGroup = record.bytes().trimmed().startsWith('{');
        else if (!inGroup)
            spans.push_back({record.code(), record.groupBegin(), record.valueBegin(),
                             record.valueEnd(), record.groupEnd(), record.bytes().toByteArray()});
    }
    return spans;
}

void requireSame(bool same, const QString& what, const QString& layer)
{
    if (!same)
        throw OdError(
            OdResult::NotImplementedYet,
            QCoreApplication::translate("LayerPatch", "The %1 of layer \"%2\" cannot be saved yet.")
                .arg(what, layer));
}

QByteArray flagsText(const QByteArray& old, const LayerState& after)
{
    auto flags = NumberText::integer(old).value_or(0);
    const auto put = [&](int bit, bool on) { flags = on ? flags | bit : flags & ~qint64(bit); };
    put(1, after.frozen);
    put(2, after.frozenInNewViewports);
    put(4, after.locked);
    return QByteArray::number(flags);
}

QByteArray valueOf(const std::vector<Span>& spans, int code)
{
    const auto it =
        std::find_if(spans.begin(), spans.end(), [&](const Span& s) { return s.code == code; });
    return it == spans.end() ? QByteArray() : it->value;
}

void wantColour(const LayerState& before, const LayerState& after, const std::vector<Span>& spans,
                std::vector<Wanted>& wanted)
{
    const bool recoloured = before.color != after.color;
    if (!recoloured && before.off == after.off)
        return;
    // An unchanged colour keeps the index as written, which need not be the nearest one.
    qint64 index = after.color.colorIndex();
    if (!recoloured)
        index = std::abs(NumberText::integer(valueOf(spans, 62)).value_or(index));
    wanted.push_back({62, QByteArray::number(after.off ? -index : index), 6});
    if (!recoloured)
        return;
    const bool isTrue = after.color.colorMethod() == OdCmColor::kByColor;
    wanted.push_back(
        {420,
         isTrue ? std::optional(QByteArray::number(after.color.color() & 0xFFFFFFu)) : std::nullopt,
         9});
    if (before.color.bookName() != after.color.bookName())
        wanted.push_back({430,
                          after.color.bookName().isEmpty()
                              ? std::nullopt
                              : std::optional(after.color.bookName().toUtf8())});
}

std::vector<Wanted> differences(const LayerState& before, const LayerState& after,
                                const std::vector<Span>& spans, const DxfText& text)
{
    std::vector<Wanted> wanted;
    if (before.frozen != after.frozen || before.locked != after.locked
        || before.frozenInNewViewports != after.frozenInNewViewports)
        wanted.push_back({70, flagsText(valueOf(spans, 70), after), 6});
    wantColour(before, after, spans, wanted);
    if (before.linetype != after.linetype) {
        const auto linetype = after.linetype.safeOpenObject<OdDbLinetypeTableRecord>();
        wanted.push_back({6, text.encode(linetype->getName())});
    }
    if (before.plottable != after.plottable)
        wanted.push_back({290, QByteArray(after.plottable ? "1" : "0"), 6});
    if (before.lineWeight != after.lineWeight)
        wanted.push_back({370, QByteArray::number(after.lineWeight), 6});
    return wanted;
}

/// How the record spells groups: width of codes, padding of numbers, line ends.
struct Spelling
{
    qsizetype codeWidth = 3;
    bool padsNumbers = true;
    QByteArray lineEnd = "\n";

    explicit Spelling(const std::vector<Span>& spans, const FileImage& image)
    {
        const auto sample = std::find_if(
            spans.begin(), spans.end(), [](const Span& s) { return s.code == 62 || s.code == 70; });
        if (sample == spans.end())
            return;
        const QByteArrayView code = image.view(sample->begin, sample->valueBegin);
        lineEnd = code.endsWith("\r\n") ? "\r\n" : "\n";
        codeWidth = code.size() - lineEnd.size();
        padsNumbers = sample->value.startsWith(' ');
    }
    QByteArray group(const Wanted& wanted) const
    {
        const QByteArray value =
            padsNumbers ? wanted.value->rightJustified(wanted.width) : *wanted.value;
        return QByteArray::number(wanted.code).rightJustified(codeWidth) + lineEnd + value
            + lineEnd;
    }
};

LayerGroups::Patch patchFor(const Wanted& wanted, const std::vector<Span>& spans,
                            const Spelling& spelling)
{
    const auto there = std::find_if(spans.begin(), spans.end(),
                                    [&](const Span& s) { return s.code == wanted.code; });
    if (there != spans.end() && wanted.value) {
        const bool padded = there->value.startsWith(' ');
        return {there->valueBegin, there->valueEnd,
                padded ? wanted.value->rightJustified(there->value.size()) : *wanted.value};
    }
    if (there != spans.end())
        return {there->begin, there->end, {}};
    if (!wanted.value || spans.empty())
        return {};
    const Span* before = &spans.front();
    for (const Span& span : spans) {
        if (rankOf(span.code) < rankOf(wanted.code) || span.code == 100)
            before = &span;
    }
    return {before->end, before->end, spelling.group(wanted)};
}

} // namespace

void LayerGroups::patch(DxfCursor& record, const LayerState& before, const LayerState& after,
                        const DxfText& text, std::vector<Patch>& patches)
{
    requireSame(before.name == after.name, QStringLiteral("name"), before.name);
    requireSame(before.description == after.description, QStringLiteral("description"),
                before.name);
    requireSame(before.transparency == after.transparency, QStringLiteral("transparency"),
                before.name);
    requireSame(before.plotStyle == after.plotStyle, QStringLiteral("plot style"), before.name);
    requireSame(before.reconciled == after.reconciled, QStringLiteral("reconciled flag"),
                before.name);
    requireSame(before.overrides == after.overrides, QStringLiteral("viewport overrides"),
                before.name);
    const std::vector<Span> spans = spansOf(record);
    const Spelling spelling(spans, record.image());
    for (const Wanted& wanted : differences(before, after, spans, text)) {
        Patch made = patchFor(wanted, spans, spelling);
        if (made.end > made.begin || !made.bytes.isEmpty())
            patches.push_back(std::move(made));
    }
}
