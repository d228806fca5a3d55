#include "DrawingRecords.h"

namespace {

/// The next line with its end; advances `at`.
QByteArrayView line(const QByteArray& bytes, qsizetype& at)
{
    const qsizetype end = bytes.indexOf('\n', at);
    const qsizetype from = at;
    at = end < 0 ? bytes.size() : end + 1;
    return QByteArrayView(bytes).sliced(from, at - from);
}

} // namespace

DrawingRecords::DrawingRecords(const QByteArray& bytes)
{
    qsizetype start = 0;
    for (qsizetype at = 0; at < bytes.size();) {
        const qsizetype group = at;
        const QByteArrayView code = line(bytes, at);
        line(bytes, at);
        if (code.trimmed() != "0" || group == start)
            continue;
        m_records.append(bytes.sliced(start, group - start));
        start = group;
    }
    m_records.append(bytes.sliced(start));
}

QByteArray DrawingRecords::typeOf(const QByteArray& record)
{
    return value(record, 0);
}

QByteArray DrawingRecords::value(const QByteArray& record, int code)
{
    for (qsizetype at = 0; at < record.size();) {
        const bool isWanted = line(record, at).trimmed().toInt() == code;
        const QByteArrayView text = line(record, at);
        if (isWanted)
            return text.trimmed().toByteArray();
    }
    return {};
}
