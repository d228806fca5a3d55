#include "layermanager/filter_editor/core/FilterColumn.h"

#include <QCoreApplication>

using Editor = FilterCellEditor;
using Row = LayerFilterRow;

namespace {

constexpr int kMostValues = 4;

struct ValueWords
{
    LayerColumn property;
    std::array<const char*, kMostValues> words; ///< null behind the last one
};

constexpr ValueWords kValueWords[] = {
    {LayerColumn::Status,
     {QT_TRANSLATE_NOOP("FilterColumn", "in use"), QT_TRANSLATE_NOOP("FilterColumn", "not in use"),
      QT_TRANSLATE_NOOP("FilterColumn", "in use, with viewport overrides"),
      QT_TRANSLATE_NOOP("FilterColumn", "not in use, with viewport overrides")}},
    {LayerColumn::On,
     {QT_TRANSLATE_NOOP("FilterColumn", "on"), QT_TRANSLATE_NOOP("FilterColumn", "off")}},
    {LayerColumn::Freeze,
     {QT_TRANSLATE_NOOP("FilterColumn", "frozen"), QT_TRANSLATE_NOOP("FilterColumn", "thawed")}},
    {LayerColumn::Locked,
     {QT_TRANSLATE_NOOP("FilterColumn", "locked"), QT_TRANSLATE_NOOP("FilterColumn", "unlocked")}},
    {LayerColumn::Plot,
     {QT_TRANSLATE_NOOP("FilterColumn", "plotted"),
      QT_TRANSLATE_NOOP("FilterColumn", "not plotted")}},
    {LayerColumn::NewVpFreeze,
     {QT_TRANSLATE_NOOP("FilterColumn", "frozen in new viewports"),
      QT_TRANSLATE_NOOP("FilterColumn", "thawed in new viewports")}},
    {LayerColumn::VpFreeze,
     {QT_TRANSLATE_NOOP("FilterColumn", "frozen in the active viewport"),
      QT_TRANSLATE_NOOP("FilterColumn", "thawed in the active viewport")}},
};

} // namespace

QString FilterColumnInfo::headerText() const
{
    return property ? layerColumnInfo(*property).headerText() : QString();
}

const std::array<FilterColumnInfo, kFilterColumnCount>& filterColumns()
{
    using enum LayerColumn;
    constexpr qint32 kNoColor = Row::kNoColor;
    constexpr qint32 kNoWeight = Row::kNoLineweight;
    static const std::array<FilterColumnInfo, kFilterColumnCount> columns = {{
        // clang-format off
        { 102,  25, Editor::None,       {},           {},                     0,         false },
        { 102,  50, Editor::ValueList,  Status,       &Row::m_nUsed,          0,         false },
        { 102, 100, Editor::Text,       Name,         &Row::m_strName,        0,         false },
        { 105,  50, Editor::ValueList,  On,           &Row::m_nOn,            0,         false },
        { 107,  50, Editor::ValueList,  Freeze,       &Row::m_nFrozen,        0,         false },
        { 106,  50, Editor::ValueList,  Locked,       &Row::m_nLocked,        0,         false },
        { 103,  50, Editor::Color,      Color,        &Row::m_nColor,         kNoColor,  false },
        { 104,  50, Editor::Linetype,   Linetype,     &Row::m_idLinetype,     0,         false },
        { 108,  50, Editor::Lineweight, Lineweight,   &Row::m_nLineweight,    kNoWeight, false },
        { 109,  50, Editor::None,       PlotStyle,    {},                     0,         false },
        { 110,  50, Editor::ValueList,  Plot,         &Row::m_nPlottable,     0,         false },
        { 112,  50, Editor::ValueList,  NewVpFreeze,  &Row::m_nNewVpFrozen,   0,         false },
        { 113,  50, Editor::Text,       Description,  &Row::m_strDesc,        0,         false },
        { 111,  50, Editor::ValueList,  VpFreeze,     &Row::m_nVpFrozen,      0,         true },
        { 115,  50, Editor::Color,      VpColor,      &Row::m_nVpColor,       kNoColor,  true },
        { 116,  50, Editor::Linetype,   VpLinetype,   &Row::m_idVpLinetype,   0,         true },
        { 117,  50, Editor::Lineweight, VpLineweight, &Row::m_nVpLineweight,  kNoWeight, true },
        { 118,  50, Editor::None,       VpPlotStyle,  {},                     0,         true },
        // clang-format on
    }};
    return columns;
}

std::vector<QString> filterValueWords(int column)
{
    std::vector<QString> texts;
    const FilterColumnInfo& info = filterColumns().at(static_cast<std::size_t>(column));
    for (const ValueWords& values : kValueWords) {
        if (info.property != values.property)
            continue;
        for (const char* word : values.words) {
            if (word)
                texts.push_back(QCoreApplication::translate("FilterColumn", word));
        }
    }
    return texts;
}
