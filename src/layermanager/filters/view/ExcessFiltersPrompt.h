#pragma once

class KsApDocument;
class QWidget;

/// Asks once per open document whether the filters of a drawing with more filters than layers
/// should go, and deletes them on that answer. True when they were deleted.
bool CheckExcessFilters(KsApDocument* document, QWidget* parent);
