#include "layerman/states/StateList.h"

#include "database/states/LayerStates.h"
#include "host/text/TextTable.h"
#include "layerman/CompanionText.h"
#include "layerman/Output.h"
#include "layerman/listing/JsonText.h"
#include "layerman/states/MaskNames.h"

using Space = ListedState::Space;

namespace {
const char* spaceKey(Space space)
{
    switch (space) {
    case Space::Model:
        return QT_TRANSLATE_NOOP("layerman", "Model");
    case Space::Layout:
        return QT_TRANSLATE_NOOP("layerman", "Layout");
    case Space::External:
        break;
    }
    return QT_TRANSLATE_NOOP("layerman", "Reference");
}

QString yesNo(bool value)
{
    return value ? CompanionText::tr("Yes") : CompanionText::tr("No");
}

ListedState listed(const LayerStates& states, const LayerStateSummary& state)
{
    if (state.external)
        return {state.name, state.description, Space::External, false, 0, 0};
    return {state.name,
            state.description,
            state.inLayout ? Space::Layout : Space::Model,
            state.sameAsDrawing,
            static_cast<int>(states.layers(state.name).size()),
            states.restoreMask(state.name)};
}

QStringList cellsOf(const ListedState& state)
{
    if (state.space == Space::External)
        return {state.name,       CompanionText::tr(spaceKey(state.space)), {}, {}, {},
                state.description};
    return {state.name,
            CompanionText::tr(spaceKey(state.space)),
            yesNo(state.sameAsDrawing),
            QString::number(state.layers),
            maskText(state.mask),
            state.description};
}
} // namespace

std::vector<ListedState> listedStates(OdDbDatabase& drawing)
{
    const LayerStates states(drawing);
    std::vector<ListedState> result;
    for (const LayerStateSummary& state : states.list())
        result.push_back(listed(states, state));
    return result;
}

QString stateTable(const std::vector<ListedState>& states)
{
    TextTable table({CompanionText::tr("Name"), CompanionText::tr("Space"),
                     CompanionText::tr("Same As Dwg"), CompanionText::tr("Layers"),
                     CompanionText::tr("Restores"), CompanionText::tr("Description")});
    for (const ListedState& state : states) {
        QStringList cells = cellsOf(state);
        for (QString& cell : cells)
            cell = Output::escaped(cell);
        table.addRow(std::move(cells));
    }
    return table.toString();
}

QString statesJson(const std::vector<ListedState>& states)
{
    using namespace json_text;
    QStringList objects;
    for (const ListedState& state : states) {
        QStringList members{
            key(QStringLiteral("name")) + string(state.name),
            key(QStringLiteral("space"))
                + string(QString::fromLatin1(spaceKey(state.space)).toLower()),
        };
        if (state.space != Space::External) {
            QStringList mask;
            for (const MaskName& property : maskNames()) {
                if ((state.mask & property.bit) != 0)
                    mask << string(QLatin1String(property.name));
            }
            members << key(QStringLiteral("sameAsDrawing")) + boolean(state.sameAsDrawing)
                    << key(QStringLiteral("layers")) + QString::number(state.layers)
                    << key(QStringLiteral("restores")) + QLatin1Char('[')
                    + mask.join(QStringLiteral(", ")) + QLatin1Char(']');
        }
        members << key(QStringLiteral("description")) + string(state.description);
        objects << QStringLiteral("\n  {") + members.join(QStringLiteral(", ")) + QLatin1Char('}');
    }
    return objects.join(QLatin1Char(','));
}
