#include "layerman/arguments/DecodedName.h"

#include <QFile>

std::optional<QString> decodedName(const QByteArray& bytes)
{
    // As a character of its own, the one that stands for what is no text is a text.
    static const QByteArray kReplacement = QString(QChar::ReplacementCharacter).toUtf8();
    const QString name = QFile::decodeName(bytes);
    if (name.contains(QChar::ReplacementCharacter) && !bytes.contains(kReplacement))
        return std::nullopt;
    return name;
}
