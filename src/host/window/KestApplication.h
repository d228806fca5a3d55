#pragma once

#include <QApplication>

/// The application: what event handlers raise ends here, in words, and the program goes on.
class KestApplication : public QApplication
{
    Q_OBJECT
public:
    KestApplication(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

private:
    void show(const QString& sentence);
    bool m_isShowing = false;
};
