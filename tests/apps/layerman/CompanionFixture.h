#pragma once

#include "database/drawing/OdDbDatabase.h"
#include "support/ProgramRun.h"
#include "support/drawings/DrawingText.h"

#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// Runs layerman over small drawings in a folder of its own. There is no display: a program that
/// asked for one would end at once.
class CompanionFixture : public testing::Test
{
protected:
    using Layers = QList<DrawingText::Layer>;

    CompanionFixture();

    /// The program with its working folder at the test's folder.
    Finished layerman(const QStringList& arguments, const QByteArray& input = {}) const;
    /// The words of a line, with blanks between; none holds a blank.
    Finished layerman(const char* words, const QByteArray& input = {}) const;

    /// Writes a drawing and returns its name.
    QString write(const char* name, const QByteArray& bytes) const;
    QString drawing(const char* name, const Layers& layers) const;
    /// The same with its first sheet current, whose own viewport is the active one.
    QString sheet(const char* name, const Layers& layers) const;
    /// A drawing with named plot styles, Normal and Thin.
    QString styled(const char* name, const Layers& layers) const;

    QString path(const QString& name) const { return folder.filePath(name); }
    QByteArray bytesOf(const QString& name) const;
    std::unique_ptr<OdDbDatabase> read(const QString& name) const;
    /// All files of the folder, hidden ones included.
    QStringList files() const;
    /// Lines that differ between two texts of as many lines: "before -> after".
    static QStringList changedLines(const QByteArray& before, const QByteArray& after);

    QTemporaryDir folder;
    QProcessEnvironment environment;
};
