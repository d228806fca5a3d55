#pragma once

#include "host/application/HostFrontEnd.h"

#include <QStringList>

#include <deque>
#include <string>
#include <vector>

/// A front end that remembers what it was told and answers what it was given to answer.
class RecordingFrontEnd : public HostFrontEnd
{
public:
    void print(const QString& line) override { printed << line; }
    std::optional<QString> ask(const HostQuestion& question) override;
    bool isInteractive() const override { return interactive; }
    std::unique_ptr<OdDbDatabase> readDrawingFile(const QString& path) override;
    SaveReport writeDrawingFile(const OdDbDatabase& drawing, const QString& path,
                                const SaveOptions& options) override;
    QString chooseFileToOpen() override { return chosenFile; }
    QString chooseFileToSave(const QString& suggestion, const QString& format) override;
    CloseAnswer askToSave(const HostDocument& document) override;
    LockAnswer askAboutLock(const QString& path, const QString& holder) override;
    ChangeAnswer askAboutChange(const HostDocument& document) override;
    bool askToReload(const HostDocument& document) override;
    RecoveryAnswer askToRecover(const QString&, const QDateTime&) override
    {
        return RecoveryAnswer::Later;
    }
    void notify(const QString& sentence) override { notices << sentence; }
    void showStatus(const QString& sentence) override { status = sentence; }
    void fileUsed(const QString& path) override { used << path; }
    HostView* view() override { return shownView; }
    void regen(bool allViews) override { calls.emplace_back(allViews ? "regen all" : "regen"); }
    void repaint() override { calls.emplace_back("repaint"); }
    void zoomExtents() override { calls.emplace_back("zoom extents"); }
    void quit() override { calls.emplace_back("quit"); }

    bool interactive = false;
    HostView* shownView = nullptr;
    std::deque<std::optional<QString>> answers;
    QString chosenFile;
    CloseAnswer closeAnswer = CloseAnswer::Cancel;
    LockAnswer lockAnswer = LockAnswer::Cancel;
    ChangeAnswer changeAnswer = ChangeAnswer::Cancel;
    bool reloads = false;
    QStringList printed;
    QStringList prompts;
    QStringList used;
    QStringList suggestions;
    QStringList savedFormats; ///< what the suggestions are for
    QStringList askedToSave;
    QStringList lockQuestions; ///< the path, or path and holder
    QStringList changeQuestions;
    QStringList reloadQuestions;
    QStringList notices;
    QString status;
    std::vector<std::string> calls;
};
