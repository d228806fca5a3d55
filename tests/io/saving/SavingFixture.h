#pragma once

#include "database/drawing/OdDbDatabase.h"

#include <QByteArray>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <memory>

/// A folder to save drawings into, and the program that does so in a process of its own.
class SavingFixture : public testing::Test
{
protected:
    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }
    QString folder() const { return m_folder.path(); }
    /// Names in the folder, hidden ones included.
    QStringList names(const QString& subfolder = {}) const;

    static QByteArray contents(const QString& path);
    static void put(const QString& path, const QByteArray& bytes);
    /// A drawing of that many entities, about 200 bytes each.
    static QByteArray generated(int layers, int entities);
    /// The drawing with all layers locked.
    static std::unique_ptr<OdDbDatabase> edited(const QByteArray& bytes);

    /// Starts the saver in one of its modes.
    static void start(QProcess& process, const char* mode, const QString& drawing);
    /// Runs a shell script where it may mount file systems; null when that is not permitted.
    /// $1 is the saver, $2 and on are the arguments.
    struct Outcome
    {
        int exitCode = 0;
        QByteArray output;
    };
    static std::unique_ptr<Outcome> runWithMounts(const char* script, const QStringList& arguments);

private:
    QTemporaryDir m_folder;
};
