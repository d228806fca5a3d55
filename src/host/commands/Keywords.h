#pragma once

#include <QStringList>

/// The keyword that an answer means, or an empty text. Keywords are spelled with the capitals that
/// suffice: "LAyer" is meant by "la", "lay" and "Layer", and not by "l".
QString keyword(const QStringList& keywords, const QString& answer);
