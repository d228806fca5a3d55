#include "generator/DrawingPlan.h"
#include "generator/EntityWriter.h"
#include "generator/SectionWriters.h"
#include "generator/TagWriter.h"

#include <algorithm>

namespace {

// An A1 sheet in millimetres.
constexpr double kSheetWidth = 841;
constexpr double kSheetHeight = 594;
constexpr double kMargin = 20;

} // namespace

void EntityWriter::writeSheetEntities(int space)
{
    const auto place = [&](int index) {
        return EntityPlace{m_plan.sheetEntity(space, index), m_plan.blockRecord(space), true};
    };
    for (int number = 0; number < DrawingPlan::kSheetViewports; ++number) {
        begin("VIEWPORT", place(number), "0");
        viewport(space, number);
    }
    begin("LWPOLYLINE", place(DrawingPlan::kSheetViewports), "0");
    rectangle({kMargin, kMargin}, kSheetWidth - 2 * kMargin, kSheetHeight - 2 * kMargin);
    begin("LINE", place(DrawingPlan::kSheetViewports + 1), "0");
    line({kMargin, 2 * kMargin}, {kSheetWidth - kMargin, 2 * kMargin});
    begin("TEXT", place(DrawingPlan::kSheetViewports + 2), "0");
    m_out.subclass("AcDbText");
    m_out.point(10, 1.5 * kMargin, 1.3 * kMargin, 0);
    m_out.real(40, 5);
    m_out.text(1, m_plan.layoutName(space));
    m_out.subclass("AcDbText");
}

void EntityWriter::viewport(int space, int number)
{
    const bool overall = number == 0;
    const double width = overall ? kSheetWidth * 1.1 : kSheetWidth / 2 - 2 * kMargin;
    const double height = overall ? kSheetHeight * 1.1 : kSheetHeight - 5 * kMargin;
    const double centreX = overall ? kSheetWidth / 2 : kSheetWidth * (number * 2 - 1) / 4;
    // Sheets that were never opened have neither stacking order nor viewport numbers.
    const int order = space == 1 ? number + 1 : 0;
    m_out.subclass("AcDbViewport");
    m_out.point(10, centreX, kSheetHeight / 2, 0);
    m_out.real(40, width);
    m_out.real(41, height);
    m_out.integer(68, order);
    m_out.integer(69, order);
    viewportView(number);
    if (!overall) {
        // Each viewport hides its own share of the layers.
        const DrawingOptions& options = m_plan.options();
        const int code = options.isAtLeast(DrawingVersion::V2004) ? 331 : 341;
        const int last = std::min(options.layers, 60);
        for (int layer = 1 + number; layer < last; layer += 5)
            m_out.handle(code, m_plan.layer(layer));
    }
    m_out.integer(90, overall ? 32 : 32 | 16384);
    m_out.text(1, "");
    m_out.integer(281, 0);
    m_out.integer(71, 1);
    m_out.integer(74, 0);
    m_out.point(110, 0, 0, 0);
    m_out.point(111, 1, 0, 0);
    m_out.point(112, 0, 1, 0);
    m_out.integer(79, 0);
    m_out.real(146, 0);
}

void EntityWriter::viewportView(int number)
{
    const double extent = modelExtent(m_plan);
    const double centreX = number == 0 ? kSheetWidth / 2 : extent * (number * 2 - 1) / 4;
    const double centreY = number == 0 ? kSheetHeight / 2 : extent / 2;
    m_out.point(12, centreX, centreY);
    m_out.point(13, 0, 0);
    m_out.point(14, 10, 10);
    m_out.point(15, 10, 10);
    m_out.point(16, 0, 0, 1);
    m_out.point(17, 0, 0, 0);
    m_out.real(42, 50);
    m_out.real(43, 0);
    m_out.real(44, 0);
    m_out.real(45, number == 0 ? kSheetHeight * 1.1 : extent);
    m_out.real(50, 0);
    m_out.real(51, 0);
    m_out.integer(72, 100);
}
