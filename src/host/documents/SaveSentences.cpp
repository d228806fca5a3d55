#include "host/documents/SaveSentences.h"

#include "host/text/HostText.h"
#include "io/DrawingFile.h"

#include <QLocale>

namespace {
QString number(quint64 count)
{
    return QLocale().toString(count);
}

QString changedPart(quint64 layers, quint64 others)
{
    const QString layerPart = layers == 1 ? HostText::tr("1 layer record")
                                          : HostText::tr("%1 layer records").arg(number(layers));
    if (layers == 0)
        return others == 1 ? HostText::tr("1 record changed")
                           : HostText::tr("%1 records changed").arg(number(others));
    if (others == 0)
        return HostText::tr("%1 changed").arg(layerPart);
    if (others == 1)
        return HostText::tr("%1 and 1 of another kind changed").arg(layerPart);
    return HostText::tr("%1 and %2 of other kinds changed").arg(layerPart, number(others));
}

QString recordsPart(const SaveReport& report, bool isLaterSave)
{
    const quint64 layers = report.layerRecordsChanged;
    const quint64 others = report.otherRecordsChanged;
    const quint64 identical = report.recordsIdentical;
    if (layers + others == 0)
        return HostText::tr("No records changed, all %1 identical").arg(number(identical));
    QString changed = changedPart(layers, others);
    if (isLaterSave)
        changed = HostText::tr("%1 since the drawing was opened").arg(changed);
    if (identical == 0)
        return HostText::tr("%1, there are no others").arg(changed);
    if (identical == 1)
        return HostText::tr("%1, the other record identical").arg(changed);
    return HostText::tr("%1, all other %2 records identical").arg(changed, number(identical));
}
} // namespace

QString recordsSentence(const SaveReport& report, bool isLaterSave)
{
    const QString records = recordsPart(report, isLaterSave);
    switch (report.settingsChanged) {
    case 0:
        return HostText::tr("%1.").arg(records);
    case 1:
        return HostText::tr("%1; 1 setting of the drawing changed.").arg(records);
    default:
        return HostText::tr("%1; %2 settings of the drawing changed.")
            .arg(records, number(report.settingsChanged));
    }
}
