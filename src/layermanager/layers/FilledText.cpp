#include "layermanager/layers/FilledText.h"

QString filledText(const QString& pattern, std::initializer_list<QString> values)
{
    QString text;
    const auto* value = values.begin();
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QStringView mark = QStringView(pattern).mid(i, 2);
        const bool isMark = mark == QLatin1String("%s") || mark == QLatin1String("%d");
        if (isMark && value != values.end()) {
            text += *value++;
            ++i;
        } else {
            text += pattern[i];
        }
    }
    return text;
}
