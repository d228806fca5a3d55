#pragma once

#include "database/drawing/OdDbDatabase.h"
#include "database/values/OdCmColor.h"
#include "sdk/IKestIOManager.h"
#include "sdk/IKestServicesManager.h"
#include "sdk/KestHost.h"
#include "sdk/KestSSGet.h"
#include "sdk/KestStatus.h"

#include <QHash>
#include <QSet>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// A host over real databases, without documents' windows. In force while it lives; what plug-ins
/// read can be set, what they do is counted.
class FakeHost
{
public:
    explicit FakeHost(QWidget* mainWindow = nullptr);
    ~FakeHost();
    FakeHost(const FakeHost&) = delete;
    FakeHost& operator=(const FakeHost&) = delete;

    /// Opens a drawing and makes it current, telling the reactors what a host tells.
    OdDbDatabase& open(std::unique_ptr<OdDbDatabase> database,
                       const QString& name = QStringLiteral("Drawing1"));
    void setCurrent(const OdDbDatabase& database);
    /// Closes a drawing; if it was current, the one opened last becomes current.
    void close(const OdDbDatabase& database);
    void setBusy(bool busy);
    int reactorCount() const;

    /// Host variables. CLAYER, TILEMODE and CTAB are those of the current drawing.
    QHash<QString, int> ints;
    QHash<QString, QString> strings;
    QSet<QString> unreadable; ///< variables whose reads fail

    QHash<QString, QByteArray> userStates; ///< kept for modules

    // What plug-ins did
    int viewRefreshes = 0;
    int applicationCalls = 0;
    QStringList historyNames; ///< commands added to the undo history
    QStringList queued; ///< command strings
    QStringList printed; ///< lines in the command history

    // What the user answers
    int intStatus = kest::kNormal;
    int intAnswer = 0;
    QStringList intPrompts; ///< of the questions asked
    int selectStatus = kest::kNormal;
    KestSelectionSet selection;
    std::function<void()> whileSelecting; ///< what happens meanwhile
    std::vector<KestSelectionRequest> selectRequests;

    // What the user picks: nothing (cancelled) unless set
    std::optional<OdCmColor> pickedColor;
    std::optional<QString> pickedLinetype; ///< by name, in the current drawing
    std::optional<int> pickedLineweight;
    std::optional<QString> pickedPlotStyle;
    std::optional<QString> pickedFile;
    int pickedFilter = -1;
    std::vector<KestPickRequest> pickRequests;
    QStringList pickStarts; ///< the value that each pick dialog started from, by its name
    std::vector<KestFileRequest> fileRequests;
    QList<int> fileFilters; ///< the filter that each file question started with
    QList<int> helpTopics;

    /// The parts as plug-ins see them; to be handed to ksSetHost() with some left out.
    const KestHost& parts() const { return m_parts; }

private:
    class Documents;
    class Variables;
    class Services;
    class InputOutput;
    class History;

    static int select(const KestSelectionRequest& request, KestSelectionSet& selection);

    std::unique_ptr<Documents> m_documents;
    std::unique_ptr<Variables> m_variables;
    std::unique_ptr<Services> m_services;
    std::unique_ptr<InputOutput> m_io;
    std::unique_ptr<History> m_history;
    KestHost m_parts;
    KestHost m_before;
    static FakeHost* s_current;
};
