#pragma once

#include "database/drawing/OdDbDatabaseReactor.h"
#include "sdk/KsApDocManager.h"

#include <functional>

/// Holds on to the drawing that a dialog is about, and tells when it is no longer the current one:
/// scripts and timers go on while a dialog is open, and may close or switch drawings.
class DrawingWatch : private KsApDocManagerReactor, private OdDbDatabaseReactor
{
public:
    /// Watches the current drawing. `left` is called once.
    explicit DrawingWatch(std::function<void()> left);
    ~DrawingWatch() override;
    DrawingWatch(const DrawingWatch&) = delete;
    DrawingWatch& operator=(const DrawingWatch&) = delete;

    /// The drawing, null once it was left, or where none was open.
    OdDbDatabase* database() const { return m_database; }

private:
    void documentBecameCurrent(KsApDocument* document) override;
    void documentToBeDestroyed(KsApDocument* document) override;
    void goodbye(const OdDbDatabase* database) override;
    void leave();
    void detach();

    OdDbDatabase* m_database = nullptr;
    std::function<void()> m_left;
};
