#include "host/dialogs/WindowDialogs.h"

#include "base/NameCharacters.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbDictionary.h"
#include "database/store/HeaderVariables.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "database/values/OdCmColor.h"
#include "host/application/FileFilterList.h"
#include "host/application/HostCore.h"
#include "host/dialogs/color/ColourValues.h"
#include "host/help/CHelpViewer.h"
#include "host/help/HelpKey.h"
#include "host/resources/DataFiles.h"
#include "host/text/HostText.h"
#include "sdk/KestStatus.h"
#include "toolkit/Prompts.h"

#include <QApplication>
#include <QFileInfo>

namespace {

QString nameOf(OdDbObjectId linetype)
{
    const auto record = linetype.openObject<OdDbLinetypeTableRecord>();
    return record ? record->getName() : QString();
}

QList<LinetypeItem> linetypesOf(const OdDbDatabase& drawing)
{
    QList<LinetypeItem> items;
    for (const OdDbObjectId id : drawing.table(OdDbTableKind::Linetype).records()) {
        const auto record = id.openObject<OdDbLinetypeTableRecord>();
        if (!record)
            continue;
        const QString name = record->getName();
        // The two of the table that stand for none.
        if (name.compare(QLatin1String("ByLayer"), Qt::CaseInsensitive) == 0
            || name.compare(QLatin1String("ByBlock"), Qt::CaseInsensitive) == 0)
            continue;
        items.append({name, record->comments(), record->dashes()});
    }
    return items;
}

QStringList plotStylesOf(const OdDbDatabase& drawing)
{
    const QString normal = QStringLiteral("Normal");
    QStringList names;
    const auto styles =
        drawing.namedObject({QStringLiteral("ACAD_PLOTSTYLENAME")}).openObject<OdDbDictionary>();
    if (styles) {
        for (const DictionaryEntry& entry : styles->entries())
            names << entry.key;
    }
    names.removeAll(normal);
    names.sort(Qt::CaseInsensitive);
    names.prepend(normal);
    return names;
}

} // namespace

WindowDialogs::WindowDialogs(HostCore& core, QWidget& window)
    : m_core(core)
    , m_window(window)
    , m_helpKey(new HelpKey(&window))
{
    m_core.setDialogs(this);
}

WindowDialogs::~WindowDialogs()
{
    m_core.setDialogs(nullptr);
    delete m_helpKey;
    delete m_help.data();
}

QWidget* WindowDialogs::parentOf(QWidget* wanted) const
{
    if (wanted)
        return wanted;
    QWidget* modal = QApplication::activeModalWidget();
    return modal ? modal : &m_window;
}

OdDbDatabase* WindowDialogs::drawing() const
{
    const HostDocument* document = m_core.documents().curDocument();
    return document ? document->database() : nullptr;
}

int WindowDialogs::pickColor(const KestPickRequest& request, OdCmColor& color)
{
    ColourQuestion question;
    question.title = request.title;
    question.start = colour_values::fromDrawing(color);
    question.offersByLayer = request.offersByLayer;
    question.offersByBlock = request.offersByBlock;
    // The drawing's background is the palette's base colour.
    question.isOnDark = m_window.palette().color(QPalette::Base).lightness() < 128;
    const auto answer = Prompts::current().pickColour(parentOf(request.parent), question);
    if (!answer)
        return kest::kCancel;
    color = colour_values::toDrawing(*answer);
    return kest::kNormal;
}

int WindowDialogs::pickLinetype(const KestPickRequest& request, OdDbObjectId& linetype)
{
    const OdDbDatabase* database = drawing();
    if (!database)
        return kest::kError;
    LinetypeQuestion question;
    question.title = request.title;
    question.linetypes = linetypesOf(*database);
    question.current = nameOf(linetype);
    question.offersByLayer = request.offersByLayer;
    question.offersByBlock = request.offersByBlock;
    question.load = [this](const LinetypeItem& item) { return addLinetype(item); };
    const auto answer = Prompts::current().pickLinetype(parentOf(request.parent), question);
    if (!answer)
        return kest::kCancel;
    const OdDbObjectId picked = database->table(OdDbTableKind::Linetype).getAt(*answer);
    if (picked.isNull())
        return kest::kError;
    linetype = picked;
    return kest::kNormal;
}

QString WindowDialogs::addLinetype(const LinetypeItem& item) const
{
    if (!name_characters::canNameRecord(item.name))
        return HostText::tr("\"%1\" cannot be the name of a linetype.").arg(item.name);
    HostDocument* document = m_core.documents().curDocument();
    OdDbDatabase* database = drawing();
    if (!database)
        return HostText::tr("No drawing is open.");
    const bool isOwnRecord = !database->isUndoRecordOpen();
    if (isOwnRecord)
        document->startUndoRecord(QStringLiteral("_LINETYPE"));
    QString problem;
    try {
        auto record = std::make_unique<OdDbLinetypeTableRecord>();
        record->stateForLoading() = {item.name, item.description, item.dashes, false};
        database->table(OdDbTableKind::Linetype).addRecord(std::move(record));
    } catch (const OdError& error) {
        problem = error.description();
    }
    if (isOwnRecord)
        document->endUndoRecord();
    return problem;
}

int WindowDialogs::pickLineweight(const KestPickRequest& request, int& weight)
{
    int millimetres = 1;
    m_core.sysvars().getInt(QStringLiteral("LWUNITS"), millimetres);
    LineweightQuestion question;
    question.title = request.title;
    question.current = weight;
    question.inMillimetres = millimetres != 0;
    question.offersByLayer = request.offersByLayer;
    question.offersByBlock = request.offersByBlock;
    question.offersDefault = request.offersDefault;
    const auto answer = Prompts::current().pickLineweight(parentOf(request.parent), question);
    if (!answer)
        return kest::kCancel;
    weight = *answer;
    return kest::kNormal;
}

int WindowDialogs::pickPlotStyle(const KestPickRequest& request, QString& name)
{
    const OdDbDatabase* database = drawing();
    if (!database)
        return kest::kError;
    PlotStyleQuestion question;
    question.title = request.title;
    question.names = plotStylesOf(*database);
    question.current = name;
    if (database->header().intValue(QStringLiteral("$PSTYLEMODE"), 1) != 0)
        question.whyFixed =
            HostText::tr("In this drawing plot styles follow the colors of the layers, so none "
                         "can be chosen. Drawings with named plot styles offer a choice.");
    const auto answer = Prompts::current().pickPlotStyle(parentOf(request.parent), question);
    if (!answer)
        return kest::kCancel;
    name = *answer;
    return kest::kNormal;
}

int WindowDialogs::selectFile(const KestFileRequest& request, QString& path, int& filterIndex)
{
    const FileFilterList filters(request.filters);
    int chosen = filters.validIndex(filterIndex);
    FileQuestion question;
    question.title = request.title;
    question.path = request.start;
    question.filter = filters.forDialog();
    question.filterIndex = chosen;
    question.chosenFilter = &chosen;
    QWidget* parent = parentOf(request.parent);
    Prompts& prompts = Prompts::current();
    for (;;) {
        QString answer = request.toSave ? prompts.saveFile(parent, question)
                                        : prompts.openFile(parent, question);
        if (answer.isEmpty())
            return kest::kCancel;
        if (request.toSave) {
            const QString whole = filters.withExtension(answer, chosen);
            // The dialog asked about the name as it was; with its extension it may be another file.
            if (whole != answer && QFileInfo::exists(whole)
                && !prompts.confirm(parent,
                                    HostText::tr("%1 exists already. Overwrite it?").arg(whole)))
            {
                question.path = whole;
                question.filterIndex = chosen;
                continue;
            }
            answer = whole;
        }
        path = answer;
        filterIndex = filters.validIndex(chosen);
        return kest::kNormal;
    }
}

void WindowDialogs::showHelp(int topic)
{
    const QString contents = dataFile(QStringLiteral("help/index.md"));
    if (contents.isEmpty()) {
        Prompts::current().message(
            parentOf(nullptr),
            HostText::tr("The help is not installed: there is no share/kest/help beside the "
                         "program."));
        return;
    }
    if (!m_help)
        m_help = new CHelpViewer(QFileInfo(contents).path(), &m_window);
    m_help->showTopic(topic);
    m_help->present();
}
