#pragma once

#include "database/drawing/OdDbDatabase.h"
#include "host/application/HostCore.h"
#include "host/support/RecordingFrontEnd.h"
#include "host/support/TestDrawing.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

/// A host with settings of its own and no document.
class HostFixture : public testing::Test
{
protected:
    HostDocument& open(const TestDrawing& drawing, const QString& name = QStringLiteral("plan.dxf"))
    {
        return core.files().open(drawing.writeTo(folder.path(), name));
    }
    /// Runs a line; the sentence of a command that did not end well, else empty.
    std::string run(const char* line)
    {
        return core.commands().run(QString::fromUtf8(line)).sentence.toStdString();
    }
    QString path(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }

    QTemporaryDir folder;
    RecordingFrontEnd frontEnd;
    HostCore core{frontEnd, folder.path()};
};
