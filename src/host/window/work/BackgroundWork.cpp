#include "host/window/work/BackgroundWork.h"

#include "host/window/work/CProgressDialog.h"

#include <QApplication>
#include <QEventLoop>
#include <QPointer>
#include <QScopeGuard>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <future>
#include <thread>

namespace {
using namespace std::chrono_literals;
constexpr auto kPatience = 200ms;
constexpr auto kRefresh = 50ms;

/// What the two threads share.
struct Shared
{
    std::atomic<quint64> done{0};
    std::atomic<quint64> total{0};
    std::atomic<bool> cancelled{false};
};

/// Keeps every window but one from painting while it lives.
class PaintHold
{
public:
    PaintHold(bool hold, const QWidget* except)
    {
        if (!hold)
            return;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window != except && window->updatesEnabled()) {
                window->setUpdatesEnabled(false);
                m_windows.append(window);
            }
        }
    }
    ~PaintHold()
    {
        for (const QPointer<QWidget>& window : m_windows) {
            if (window)
                window->setUpdatesEnabled(true);
        }
    }
    PaintHold(const PaintHold&) = delete;
    PaintHold& operator=(const PaintHold&) = delete;

private:
    QList<QPointer<QWidget>> m_windows;
};

void showProgress(CProgressDialog& dialog, Shared& shared, const std::future<void>& finished)
{
    QEventLoop loop;
    QTimer refresh;
    QObject::connect(&dialog, &CProgressDialog::cancelled, [&shared] { shared.cancelled = true; });
    QObject::connect(&refresh, &QTimer::timeout, [&] {
        if (finished.wait_for(0s) == std::future_status::ready)
            loop.quit();
        const quint64 total = shared.total;
        dialog.setFraction(
            total == 0 ? -1 : static_cast<double>(shared.done) / static_cast<double>(total));
    });
    refresh.start(kRefresh);
    dialog.show();
    loop.exec();
}
} // namespace

void runInBackground(QWidget* parent, const QString& text, bool holdsDrawing,
                     const std::function<void(const IoProgress&)>& work)
{
    Shared shared;
    const IoProgress progress = [&shared](quint64 done, quint64 total) {
        shared.done = done;
        shared.total = total;
        return !shared.cancelled;
    };
    std::packaged_task<void()> task([&] { work(progress); });
    std::future<void> finished = task.get_future();
    std::thread worker(std::move(task));
    const auto join = qScopeGuard([&worker] { worker.join(); });
    if (finished.wait_for(kPatience) != std::future_status::ready) {
        CProgressDialog dialog(text, parent);
        const PaintHold hold(holdsDrawing, &dialog);
        showProgress(dialog, shared, finished);
    }
    finished.get();
}
