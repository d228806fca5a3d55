#pragma once

#include <QString>

#include <memory>

class QLockFile;

/// The mark that a drawing is being edited: the file ".NAME.lock" beside it, for as long as this
/// lives. A mark left by a process that is gone counts for nothing.
class DrawingLock
{
public:
    enum class State {
        Held, ///< the drawing is ours
        Elsewhere, ///< another process edits it
        Unavailable, ///< no mark can be made there
    };

    /// Tries to take the drawing's lock.
    explicit DrawingLock(const QString& drawing);
    ~DrawingLock();
    DrawingLock(const DrawingLock&) = delete;
    DrawingLock& operator=(const DrawingLock&) = delete;

    State state() const { return m_state; }
    /// Tries once more unless it is held.
    State retry();
    /// Who has it, while it is Elsewhere: "process 17 on workshop", or empty when not known.
    QString holder() const;
    /// What is said to somebody who wants to write the drawing while it is Elsewhere.
    QString refusal(const QString& drawing) const;

    static QString lockPath(const QString& drawing);

private:
    std::unique_ptr<QLockFile> m_lock;
    State m_state = State::Unavailable;
};
