#pragma once

#include "layermanager/filters/LayerFilterRow.h"

#include <QString>

class OdDbDatabase;

/// A filter expression that was typed, in whatever spelling.
class ExpressionChoice
{
public:
    /// Raises UsageError, saying what is expected, for a text that is no expression, sets no
    /// criterion, or cannot be said in rows of criteria. Linetypes are looked up later, since
    /// every drawing has its own.
    explicit ExpressionChoice(const QString& text);

    /// The rows over a drawing. Raises OdError with KeyNotFound for a linetype that it has not:
    /// without that criterion other layers would be chosen.
    LayerFilterRows rows(const OdDbDatabase& drawing, const QString& file) const;

private:
    QString m_text;
};
