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
    return HostText::tr("%1 and %2 of other kinds changed").arg(layerPart, number(others));
}

QString identicalPart(quint64 count)
{
    if (count == 0)
        return HostText::tr("no other record is in the drawing");
    return count == 1 ? HostText::tr("the other record identical")
                      : HostText::tr("all other %1 records identical").arg(number(count));
}
} // namespace

QString recordsSentence(const SaveReport& report)
{
    if (report.layerRecordsChanged + report.otherRecordsChanged == 0)
        return HostText::tr("No records changed, all %1 identical.")
            .arg(number(report.recordsIdentical));
    return HostText::tr("%1, %2.").arg(
        changedPart(report.layerRecordsChanged, report.otherRecordsChanged),
        identicalPart(report.recordsIdentical));
}
