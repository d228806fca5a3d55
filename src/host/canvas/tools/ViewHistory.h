#pragma once

#include "host/canvas/render/ViewTransform.h"

#include <QElapsedTimer>

#include <optional>
#include <vector>

/// Views that were left, to go back to. Turning a wheel or dragging goes through many views in a
/// row; they count as one.
class ViewHistory
{
public:
    static constexpr std::size_t kMostViews = 50;

    /// That view is about to be left for good.
    void leave(const ViewTransform& view)
    {
        push(view);
        m_sinceGesture.invalidate();
    }
    /// That view is about to be left by a small move, one of many perhaps.
    void drift(const ViewTransform& view)
    {
        constexpr qint64 kPause = 700; // milliseconds
        if (!m_sinceGesture.isValid() || m_sinceGesture.hasExpired(kPause))
            push(view);
        m_sinceGesture.start();
    }
    std::optional<ViewTransform> takeLast()
    {
        if (m_views.empty())
            return std::nullopt;
        const ViewTransform view = m_views.back();
        m_views.pop_back();
        m_sinceGesture.invalidate();
        return view;
    }
    void clear() { m_views.clear(); }

private:
    void push(const ViewTransform& view)
    {
        if (!m_views.empty() && m_views.back() == view)
            return;
        if (m_views.size() == kMostViews)
            m_views.erase(m_views.begin());
        m_views.push_back(view);
    }

    std::vector<ViewTransform> m_views;
    QElapsedTimer m_sinceGesture;
};
