#include "host/dialogs/HostPrompts.h"

#include "host/dialogs/CLineweightDialog.h"
#include "host/dialogs/CPlotStyleDialog.h"
#include "host/dialogs/color/CColourDialog.h"
#include "host/dialogs/linetype/CLinetypeDialog.h"
#include "host/sysvars/UserSettings.h"

#include <QDir>
#include <QFileInfo>

namespace {
const QLatin1String kFolderKey("Files/Folder");
}

HostPrompts::HostPrompts(UserSettings& settings)
    : m_settings(settings)
    , m_before(install(this))
{ }

HostPrompts::~HostPrompts()
{
    install(m_before);
}

FileQuestion HostPrompts::placed(const FileQuestion& question) const
{
    FileQuestion result = question;
    const QString folder = m_settings.value(kFolderKey).toString();
    if (QFileInfo(question.path).isRelative() && QFileInfo(folder).isDir())
        result.path = QDir(folder).filePath(question.path);
    return result;
}

QString HostPrompts::remembered(const QString& path)
{
    if (!path.isEmpty())
        m_settings.setValue(kFolderKey, QFileInfo(path).absolutePath());
    return path;
}

QString HostPrompts::openFile(QWidget* parent, const FileQuestion& question)
{
    return remembered(DialogPrompts::openFile(parent, placed(question)));
}

QString HostPrompts::saveFile(QWidget* parent, const FileQuestion& question)
{
    return remembered(DialogPrompts::saveFile(parent, placed(question)));
}

std::optional<ColourValue> HostPrompts::pickColour(QWidget* parent, const ColourQuestion& question)
{
    return CColourDialog(question, parent).run();
}

std::optional<QString> HostPrompts::pickLinetype(QWidget* parent, const LinetypeQuestion& question)
{
    return CLinetypeDialog(question, parent).run();
}

std::optional<int> HostPrompts::pickLineweight(QWidget* parent, const LineweightQuestion& question)
{
    return CLineweightDialog(question, parent).run();
}

std::optional<QString> HostPrompts::pickPlotStyle(QWidget* parent,
                                                  const PlotStyleQuestion& question)
{
    return CPlotStyleDialog(question, parent).run();
}
