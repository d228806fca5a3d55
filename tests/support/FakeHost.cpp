#include "support/FakeHost.h"

#include "database/tables/OdDbLinetypeTableRecord.h"
#include "host/text/LineweightText.h"
#include "io/DrawingFile.h"
#include "sdk/IKestSysvarManager.h"
#include "sdk/KsApDocManager.h"
#include "sdk/commands/CKsUndoRedoCommandHistory.h"

#include <algorithm>

FakeHost* FakeHost::s_current = nullptr;

namespace {

class Document : public KsApDocument
{
public:
    Document(std::unique_ptr<OdDbDatabase> database, const QString& name)
        : m_database(std::move(database))
        , m_name(name)
    { }
    OdDbDatabase* database() const override { return m_database.get(); }
    QString fileName() const override { return m_name; }
    bool hasMark(const QString& key) const override { return m_marks.contains(key); }
    void setMark(const QString& key) override { m_marks.insert(key); }

private:
    std::unique_ptr<OdDbDatabase> m_database;
    QString m_name;
    QSet<QString> m_marks;
};

using Reactor = KsApDocManagerReactor;

} // namespace

class FakeHost::Documents : public KsApDocManager
{
public:
    explicit Documents(FakeHost& host)
        : m_host(host)
    { }
    KsApDocument* curDocument() const override { return m_current; }
    int documentCount() const override { return static_cast<int>(m_all.size()); }
    bool isBusy() const override { return m_busy; }
    void executeInApplicationContext(const std::function<void()>& callback) override
    {
        ++m_host.applicationCalls;
        callback();
    }
    void sendStringToExecute(const QString& text) override { m_host.queued.append(text); }
    void addReactor(Reactor* reactor) override { m_reactors.push_back(reactor); }
    void removeReactor(Reactor* reactor) override { std::erase(m_reactors, reactor); }

    template <class Call>
    void tell(Call call)
    {
        const std::vector<Reactor*> reactors = m_reactors;
        for (Reactor* reactor : reactors)
            call(*reactor);
    }
    void makeCurrent(Document* document)
    {
        if (m_current == document)
            return;
        tell([&](Reactor& r) { r.documentToBeCurrent(document); });
        m_current = document;
        tell([&](Reactor& r) { r.documentBecameCurrent(document); });
    }
    void add(std::unique_ptr<Document> added)
    {
        Document* document = m_all.emplace_back(std::move(added)).get();
        tell([&](Reactor& r) { r.documentCreateStarted(document); });
        tell([&](Reactor& r) { r.documentCreated(document); });
        makeCurrent(document);
    }
    Document* find(const OdDbDatabase& database) const
    {
        const auto it = std::find_if(m_all.begin(), m_all.end(),
                                     [&](const auto& d) { return d->database() == &database; });
        return it == m_all.end() ? nullptr : it->get();
    }
    void remove(Document* document)
    {
        tell([&](Reactor& r) { r.docInstanceToBeDeactivated(document); });
        tell([&](Reactor& r) { r.documentToBeDestroyed(document); });
        const bool wasCurrent = m_current == document;
        if (wasCurrent)
            m_current = nullptr;
        const QString name = document->fileName();
        std::erase_if(m_all, [&](const auto& d) { return d.get() == document; });
        tell([&](Reactor& r) { r.documentDestroyed(name); });
        if (wasCurrent && !m_all.empty())
            makeCurrent(m_all.back().get());
    }

    bool m_busy = false;
    std::vector<Reactor*> m_reactors;

private:
    FakeHost& m_host;
    std::vector<std::unique_ptr<Document>> m_all;
    Document* m_current = nullptr;
};

class FakeHost::Variables : public IKestSysvarManager
{
public:
    explicit Variables(FakeHost& host)
        : m_host(host)
    { }
    int getInt(const QString& name, int& value) const override
    {
        const QString key = name.toUpper();
        if (m_host.unreadable.contains(key))
            return kest::kError;
        if (key == QStringLiteral("TILEMODE") && drawing()) {
            value = drawing()->getTILEMODE() ? 1 : 0;
            return kest::kNormal;
        }
        if (!m_host.ints.contains(key))
            return kest::kError;
        value = m_host.ints.value(key);
        return kest::kNormal;
    }
    int setInt(const QString& name, int value) override
    {
        m_host.ints[name.toUpper()] = value;
        return kest::kNormal;
    }
    int getReal(const QString&, double&) const override { return kest::kError; }
    int setReal(const QString&, double) override { return kest::kError; }
    int getString(const QString& name, QString& value) const override
    {
        const QString key = name.toUpper();
        if (m_host.unreadable.contains(key) || !m_host.strings.contains(key))
            return kest::kError;
        value = m_host.strings.value(key);
        return kest::kNormal;
    }
    int setString(const QString& name, const QString& value) override
    {
        m_host.strings[name.toUpper()] = value;
        return kest::kNormal;
    }
    int getId(const QString& name, OdDbObjectId& value) const override
    {
        const QString key = name.toUpper();
        if (m_host.unreadable.contains(key) || key != QStringLiteral("CLAYER") || !drawing())
            return kest::kError;
        value = drawing()->getCLAYER();
        return kest::kNormal;
    }
    int setId(const QString& name, OdDbObjectId value) override
    {
        if (name.toUpper() != QStringLiteral("CLAYER") || !drawing())
            return kest::kError;
        drawing()->setCLAYER(value);
        return kest::kNormal;
    }

private:
    OdDbDatabase* drawing() const
    {
        const KsApDocument* document = m_host.m_documents->curDocument();
        return document ? document->database() : nullptr;
    }

    FakeHost& m_host;
};

class FakeHost::Services : public IKestServicesManager
{
public:
    explicit Services(FakeHost& host)
        : m_host(host)
    { }
    QString lineWeightText(int weight) const override
    {
        return lineweightText(weight, m_host.ints.value(QStringLiteral("LWUNITS")) != 0);
    }
    QByteArray userState(const QString& key) const override { return m_host.userStates.value(key); }
    void setUserState(const QString& key, const QByteArray& state) override
    {
        m_host.userStates.insert(key, state);
    }
    void refreshView() override { ++m_host.viewRefreshes; }
    int pickColor(const KestPickRequest& request, OdCmColor& color) override
    {
        return take(request, color.colorNameForDisplay(), m_host.pickedColor, color);
    }
    int pickLinetype(const KestPickRequest& request, OdDbObjectId& linetype) override
    {
        const auto before = linetype.openObject<OdDbLinetypeTableRecord>();
        QString name;
        const int status =
            take(request, before ? before->getName() : name, m_host.pickedLinetype, name);
        const KsApDocument* document = m_host.m_documents->curDocument();
        if (status == kest::kNormal && document)
            linetype = document->database()->table(OdDbTableKind::Linetype).getAt(name);
        return status;
    }
    int pickLineweight(const KestPickRequest& request, int& weight) override
    {
        return take(request, QString::number(weight), m_host.pickedLineweight, weight);
    }
    int pickPlotStyle(const KestPickRequest& request, QString& name) override
    {
        return take(request, name, m_host.pickedPlotStyle, name);
    }
    void showHelp(int topic) override { m_host.helpTopics.append(topic); }

private:
    template <class Value>
    int take(const KestPickRequest& request, const QString& start,
             const std::optional<Value>& picked, Value& value)
    {
        m_host.pickRequests.push_back(request);
        m_host.pickStarts.append(start);
        if (!picked)
            return kest::kCancel;
        value = *picked;
        return kest::kNormal;
    }

    FakeHost& m_host;
};

class FakeHost::InputOutput : public IKestIOManager
{
public:
    explicit InputOutput(FakeHost& host)
        : m_host(host)
    { }
    void print(const QString& line) override { m_host.printed << line; }
    int getInt(const QString& prompt, int& value) override
    {
        m_host.intPrompts.append(prompt);
        value = m_host.intAnswer;
        return m_host.intStatus;
    }
    int getString(const QString&, QString&) override { return kest::kError; }
    int getKeyword(const QString&, const QStringList&, int&) override { return kest::kError; }
    int openDrawing(const QString& path, std::unique_ptr<OdDbDatabase>& drawing,
                    QString& why) override
    {
        try {
            drawing = readDrawing(path);
            return kest::kNormal;
        } catch (const OdError& error) {
            why = error.description();
            return kest::kError;
        }
    }
    int selectFile(const KestFileRequest& request, QString& path, int& filterIndex) override
    {
        m_host.fileRequests.push_back(request);
        m_host.fileFilters.append(filterIndex);
        if (!m_host.pickedFile)
            return kest::kCancel;
        path = *m_host.pickedFile;
        filterIndex = m_host.pickedFilter;
        return kest::kNormal;
    }
    int getPoint(const QString&, KestPoint&, const KestPoint*) override { return kest::kError; }

private:
    FakeHost& m_host;
};

class FakeHost::History : public CKsUndoRedoCommandHistory
{
public:
    explicit History(FakeHost& host)
        : m_host(host)
    { }
    void AddCommand(const QString& globalName) override { m_host.historyNames.append(globalName); }

private:
    FakeHost& m_host;
};

FakeHost::FakeHost(QWidget* mainWindow)
    : ints{{QStringLiteral("CMDACTIVE"), 0}, {QStringLiteral("LAYERMANAGERSTATE"), 0},
           {QStringLiteral("LWUNITS"), 1},   {QStringLiteral("SHOWLAYERUSAGE"), 0},
           {QStringLiteral("UNDOCTL"), 5},   {QStringLiteral("WNDLMDI"), 1}}
    , strings{{QStringLiteral("CMDNAMES"), QString()}}
    , m_documents(std::make_unique<Documents>(*this))
    , m_variables(std::make_unique<Variables>(*this))
    , m_services(std::make_unique<Services>(*this))
    , m_io(std::make_unique<InputOutput>(*this))
    , m_history(std::make_unique<History>(*this))
    , m_before(ksHost())
{
    m_parts.sysvars = m_variables.get();
    m_parts.io = m_io.get();
    m_parts.services = m_services.get();
    m_parts.documents = m_documents.get();
    m_parts.undoHistory = m_history.get();
    m_parts.mainWindow = mainWindow;
    m_parts.selectEntities = &FakeHost::select;
    s_current = this;
    ksSetHost(m_parts);
}

FakeHost::~FakeHost()
{
    while (const KsApDocument* document = m_documents->curDocument())
        close(*document->database());
    ksSetHost(m_before);
    s_current = nullptr;
}

OdDbDatabase& FakeHost::open(std::unique_ptr<OdDbDatabase> database, const QString& name)
{
    OdDbDatabase& opened = *database;
    m_documents->add(std::make_unique<Document>(std::move(database), name));
    return opened;
}

void FakeHost::setCurrent(const OdDbDatabase& database)
{
    m_documents->makeCurrent(m_documents->find(database));
}

void FakeHost::close(const OdDbDatabase& database)
{
    m_documents->remove(m_documents->find(database));
}

void FakeHost::setBusy(bool busy)
{
    m_documents->m_busy = busy;
}

int FakeHost::reactorCount() const
{
    return static_cast<int>(m_documents->m_reactors.size());
}

int FakeHost::select(const KestSelectionRequest& request, KestSelectionSet& selection)
{
    s_current->selectRequests.push_back(request);
    if (s_current->whileSelecting)
        s_current->whileSelecting();
    selection = s_current->selection;
    return s_current->selectStatus;
}
