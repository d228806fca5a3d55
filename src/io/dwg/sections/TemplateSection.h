#pragma once

#include <QByteArray>

#include <optional>

/// The section of the template: a description, its length ahead, then whether the drawing is in
/// metric units, which DXF has among the header variables.
namespace TemplateSection {

/// $MEASUREMENT; nothing where the section has another form.
std::optional<int> measurement(QByteArrayView section);
/// False where there is no place for it.
bool setMeasurement(QByteArray& section, int value);

} // namespace TemplateSection
