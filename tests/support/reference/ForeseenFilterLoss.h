#pragma once

#include "support/reference/ReferenceFilterParser.h"

/// What rows are after they were written as an expression and read back, by the losses that this
/// form is known for:
/// - frozen in the viewport, behind frozen in new viewports;
/// - the overrides of a row that asks for use alone and has another row behind it;
/// - the lineweight where "mm" follows in a later criterion, unless it is in millimetres itself;
/// - what is below the precision of a lineweight's text.
/// It holds for texts without quotes and " OR " that do not end in "==", and linetypes whose names
/// are as harmless.
class ForeseenFilterLoss
{
public:
    using LineweightText = std::function<QString(int weight)>;

    ForeseenFilterLoss(ReferenceFilterParser parser, LineweightText lineweightText)
        : m_parser(std::move(parser))
        , m_lineweightText(std::move(lineweightText))
    { }

    /// Rows of a grid without its blank last line, none of them empty.
    LayerFilterRows operator()(const LayerFilterRows& rows) const;
    /// Whether rows are such that nothing but that can happen.
    static bool isForeseeable(const LayerFilterRows& rows);

private:
    LayerFilterRow row(const LayerFilterRow& row, bool isLast) const;
    qint32 lineweight(const LayerFilterRow& row) const;
    /// What stands between the quotes of its criterion.
    QString lineweightValue(qint32 weight) const;

    ReferenceFilterParser m_parser;
    LineweightText m_lineweightText;
};
