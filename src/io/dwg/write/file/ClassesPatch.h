#pragma once

#include <QByteArray>

class DwgObjectSource;

/// Edits of the section of classes.
namespace ClassesPatch {

/// The whole section with the class of dictionary variables behind the others, under the number
/// that DwgClasses has for one more.
QByteArray withVariableClass(const DwgObjectSource& source);

} // namespace ClassesPatch
