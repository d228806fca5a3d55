#pragma once

#include "toolkit/DialogPrompts.h"

class UserSettings;

/// Prompts with the host's pick dialogs. File dialogs start in the folder of the last file where
/// the question names none. In force while it lives.
class HostPrompts : public DialogPrompts
{
public:
    explicit HostPrompts(UserSettings& settings);
    ~HostPrompts() override;
    HostPrompts(const HostPrompts&) = delete;
    HostPrompts& operator=(const HostPrompts&) = delete;

    QString openFile(QWidget* parent, const FileQuestion& question) override;
    QString saveFile(QWidget* parent, const FileQuestion& question) override;
    std::optional<ColourValue> pickColour(QWidget* parent, const ColourQuestion& question) override;
    std::optional<QString> pickLinetype(QWidget* parent, const LinetypeQuestion& question) override;
    std::optional<int> pickLineweight(QWidget* parent, const LineweightQuestion& question) override;
    std::optional<QString> pickPlotStyle(QWidget* parent,
                                         const PlotStyleQuestion& question) override;

private:
    FileQuestion placed(const FileQuestion& question) const;
    QString remembered(const QString& path);

    UserSettings& m_settings;
    Prompts* m_before;
};
