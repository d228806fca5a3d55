#include "host/commands/Keywords.h"

QString keyword(const QStringList& keywords, const QString& answer)
{
    for (const QString& word : keywords) {
        qsizetype least = 0;
        while (least < word.size() && !word[least].isLower())
            ++least;
        if (answer.size() >= least && word.startsWith(answer, Qt::CaseInsensitive))
            return word;
    }
    return {};
}
