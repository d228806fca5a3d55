#pragma once

#include <QString>

/// Announces to the LogGuard that the scope logs a warning that contains the given text; fails the
/// test when the scope ends without it. Each object stands for one message.
class ExpectedWarning
{
public:
    explicit ExpectedWarning(const QString& part);
    ~ExpectedWarning();
    ExpectedWarning(const ExpectedWarning&) = delete;
    ExpectedWarning& operator=(const ExpectedWarning&) = delete;

    bool wasSeen() const { return m_seen; }
    /// True when an announcement that is still open fits the message; it is used up by that.
    static bool consume(const QString& message);

private:
    QString m_part;
    bool m_seen = false;
};
