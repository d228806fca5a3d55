#pragma once

#include <QProcess>
#include <QString>

/// Another process that edits a drawing, as far as its lock tells, while this lives.
class OtherProcess
{
public:
    explicit OtherProcess(const QString& drawing)
    {
        m_process.start(QStringLiteral(KEST_SAVER), {QStringLiteral("lock"), drawing});
        m_holds = m_process.waitForReadyRead() && m_process.readAllStandardOutput() == "held\n";
    }
    ~OtherProcess()
    {
        m_process.closeWriteChannel();
        m_process.waitForFinished();
    }
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;

    bool holds() const { return m_holds; }
    qint64 id() const { return m_process.processId(); }

private:
    QProcess m_process;
    bool m_holds = false;
};
