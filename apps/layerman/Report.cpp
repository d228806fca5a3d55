#include "layerman/Report.h"

#include "layerman/CompanionText.h"

namespace {
QString counted(int count, const char* one, const char* several)
{
    return CompanionText::tr(count == 1 ? one : several).arg(count);
}

QString layers(int count)
{
    return counted(count, QT_TRANSLATE_NOOP("layerman", "%1 layer"),
                   QT_TRANSLATE_NOOP("layerman", "%1 layers"));
}
} // namespace

void Report::drawingFailed(ExitStatus why)
{
    ++(why == ExitStatus::CannotWrite ? m_unwritable : m_unreadable);
}

void Report::listed(int layers, int ofLayers)
{
    m_layers += layers;
    m_ofLayers += ofLayers;
}

void Report::edited(int changed, int refused)
{
    m_changed += changed;
    m_refused += refused;
}

ExitStatus Report::status() const
{
    const bool someFailed = m_unreadable + m_unwritable > 0;
    if (someFailed && (m_done > 0 || (m_unreadable > 0 && m_unwritable > 0)))
        return ExitStatus::SomeFailed;
    if (someFailed)
        return m_unwritable > 0 ? ExitStatus::CannotWrite : ExitStatus::BadInput;
    return m_refused > 0 ? ExitStatus::Refused : ExitStatus::Done;
}

QString Report::drawings() const
{
    return counted(m_done + m_unreadable + m_unwritable,
                   QT_TRANSLATE_NOOP("layerman", "%1 drawing"),
                   QT_TRANSLATE_NOOP("layerman", "%1 drawings"));
}

QString Report::failures() const
{
    const int failed = m_unreadable + m_unwritable;
    if (failed == 0)
        return {};
    return QStringLiteral(", ")
        + counted(failed, QT_TRANSLATE_NOOP("layerman", "%1 drawing failed"),
                  QT_TRANSLATE_NOOP("layerman", "%1 drawings failed"));
}

QString Report::refusals() const
{
    return m_refused == 0 ? QString() : CompanionText::tr(", %1 refused").arg(m_refused);
}

QString Report::listSummary() const
{
    return CompanionText::tr("%1, %2 of %3 listed%4.")
        .arg(drawings(), QString::number(m_layers), layers(m_ofLayers), failures());
}

QString Report::filtersSummary() const
{
    return CompanionText::tr("%1, %2 listed%3.")
        .arg(drawings(),
             counted(m_filters, QT_TRANSLATE_NOOP("layerman", "%1 filter"),
                     QT_TRANSLATE_NOOP("layerman", "%1 filters")),
             failures());
}

QString Report::setSummary(bool isDryRun) const
{
    const QString changed =
        (isDryRun ? CompanionText::tr("%1 would change") : CompanionText::tr("%1 changed"))
            .arg(layers(m_changed));
    return CompanionText::tr("%1: %2%3%4.").arg(drawings(), changed, refusals(), failures());
}

QString Report::statesSummary(const char* done) const
{
    const QString states = counted(m_states, QT_TRANSLATE_NOOP("layerman", "%1 layer state"),
                                   QT_TRANSLATE_NOOP("layerman", "%1 layer states"));
    return CompanionText::tr("%1: %2%3%4.")
        .arg(drawings(), CompanionText::tr(done).arg(states), refusals(), failures());
}
