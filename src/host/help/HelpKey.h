#pragma once

#include <QObject>

class QWidget;

/// F1 in dialogs: opens the topic of the widget with the focus, or of the nearest widget around it
/// that has one. A widget has one by its dynamic property "helpTopic", a docking pane by its id.
class HelpKey : public QObject
{
    Q_OBJECT
public:
    /// Watches the application's keys while it lives.
    explicit HelpKey(QObject* parent);

    static void setTopic(QWidget& widget, int topic);
    /// The contents where nothing around the widget has a topic.
    static int topicOf(const QWidget* widget);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
