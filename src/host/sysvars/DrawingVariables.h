#pragma once

#include "host/sysvars/SysvarDefinition.h"

/// Accessors of the system variables that live in the drawing. All raise OdError with NoDatabase
/// when no drawing is open; setters raise OdError with a sentence that says what is refused and
/// why.
namespace drawing_variables {
SysvarValue clayer(const SysvarContext& context, const SysvarDefinition&);
void setClayer(const SysvarContext& context, const SysvarDefinition&, const SysvarValue& value);
SysvarValue ctab(const SysvarContext& context, const SysvarDefinition&);
void setCtab(const SysvarContext& context, const SysvarDefinition&, const SysvarValue& value);
SysvarValue cvport(const SysvarContext& context, const SysvarDefinition&);
void setCvport(const SysvarContext& context, const SysvarDefinition&, const SysvarValue& value);
SysvarValue tilemode(const SysvarContext& context, const SysvarDefinition&);
void setTilemode(const SysvarContext& context, const SysvarDefinition&, const SysvarValue& value);
SysvarValue vplayeroverrides(const SysvarContext& context, const SysvarDefinition&);
/// Variables in the drawing's dictionary of variables.
SysvarValue dictionaryInteger(const SysvarContext& context, const SysvarDefinition&);
void setDictionaryInteger(const SysvarContext& context, const SysvarDefinition&,
                          const SysvarValue& value);
/// The properties that new objects get. Colours and linetypes are texts as they are typed:
/// "ByLayer", "red", "30".
SysvarValue cecolor(const SysvarContext& context, const SysvarDefinition&);
void setCecolor(const SysvarContext& context, const SysvarDefinition&, const SysvarValue& value);
void setCeltype(const SysvarContext& context, const SysvarDefinition& row,
                const SysvarValue& value);
void setCelweight(const SysvarContext& context, const SysvarDefinition& row,
                  const SysvarValue& value);
} // namespace drawing_variables
