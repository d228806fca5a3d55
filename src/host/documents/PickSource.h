#pragma once

#include "host/canvas/CanvasContents.h"

#include <memory>

class OdDbDatabase;

/// Where the entities of a drawing lie: known from the window that shows it, else read when it is
/// asked for first.
class PickSource
{
public:
    explicit PickSource(OdDbDatabase& database)
        : m_database(database)
    { }

    /// A window shows the drawing, or, with null, shows it no longer.
    void setShown(CanvasContents* contents)
    {
        m_shown = contents;
        m_own.reset();
    }
    /// Completely read.
    CanvasContents& contents()
    {
        if (!m_shown && !m_own) {
            m_own = std::make_unique<CanvasContents>();
            m_own->setDatabase(&m_database);
        }
        CanvasContents& contents = m_shown ? *m_shown : *m_own;
        contents.finish();
        return contents;
    }

private:
    OdDbDatabase& m_database;
    CanvasContents* m_shown = nullptr;
    std::unique_ptr<CanvasContents> m_own;
};
