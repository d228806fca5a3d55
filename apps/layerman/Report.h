#pragma once

#include "layerman/ExitStatus.h"

#include <QString>

/// What a run came to: counts for the line at its end, and the exit code.
class Report
{
public:
    void drawingDone() { ++m_done; }
    /// A drawing failed, for that reason.
    void drawingFailed(ExitStatus why);
    void listed(int layers, int ofLayers);
    void filtersListed(int filters) { m_filters += filters; }
    void edited(int changed, int refused);
    /// Layer states listed, saved, restored and so on.
    void statesDone(int states) { m_states += states; }
    void statesRefused(int states) { m_refused += states; }

    ExitStatus status() const;
    QString listSummary() const;
    QString filtersSummary() const;
    QString setSummary(bool isDryRun) const;
    /// `done` says what became of the states, "%1 saved".
    QString statesSummary(const char* done) const;

private:
    QString drawings() const;
    QString failures() const;
    QString refusals() const;

    int m_done = 0;
    int m_unreadable = 0;
    int m_unwritable = 0;
    int m_layers = 0;
    int m_ofLayers = 0;
    int m_filters = 0;
    int m_states = 0;
    int m_changed = 0;
    int m_refused = 0;
};
