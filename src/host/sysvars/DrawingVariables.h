#pragma once

#include "host/sysvars/SysvarDefinition.h"

/// Accessors of the system variables that live in the drawing. All raise OdError with NoDatabase
/// when no drawing is open; setters raise OdError with a sentence that says what is refused and
/// why.
namespace drawing_variables {
SysvarValue clayer(const SysvarContext& context);
void setClayer(const SysvarContext& context, const SysvarValue& value);
SysvarValue ctab(const SysvarContext& context);
void setCtab(const SysvarContext& context, const SysvarValue& value);
SysvarValue cvport(const SysvarContext& context);
void setCvport(const SysvarContext& context, const SysvarValue& value);
SysvarValue tilemode(const SysvarContext& context);
void setTilemode(const SysvarContext& context, const SysvarValue& value);
SysvarValue lwdisplay(const SysvarContext& context);
void setLwdisplay(const SysvarContext& context, const SysvarValue& value);
SysvarValue visretain(const SysvarContext& context);
void setVisretain(const SysvarContext& context, const SysvarValue& value);
SysvarValue pstylemode(const SysvarContext& context);
SysvarValue vplayeroverrides(const SysvarContext& context);
SysvarValue layereval(const SysvarContext& context);
void setLayereval(const SysvarContext& context, const SysvarValue& value);
SysvarValue layernotify(const SysvarContext& context);
void setLayernotify(const SysvarContext& context, const SysvarValue& value);
} // namespace drawing_variables
