#include "layerman/arguments/Completion.h"

#include "database/states/LayerStateMask.h"
#include "host/text/ColorText.h"
#include "layerman/CompanionText.h"
#include "layerman/arguments/CommandTable.h"
#include "layerman/editing/PropertyTable.h"
#include "layerman/listing/ColumnTable.h"
#include "layerman/states/MaskNames.h"
#include "layerman/states/StateActions.h"
#include "usage/DrawingSuffixes.h"

namespace {
template <typename Rows>
QStringList namesOf(const Rows& rows)
{
    QStringList names;
    for (const auto& row : rows)
        names << QLatin1String(row.name);
    return names;
}

/// What is offered behind a property's equals sign; nothing where any text can stand.
QStringList wordsOf(PropertyKind kind)
{
    switch (kind) {
    case PropertyKind::Flag:
    case PropertyKind::Reconciled:
        return {QStringLiteral("yes"), QStringLiteral("no")};
    case PropertyKind::Current:
        return {QStringLiteral("yes")};
    case PropertyKind::Color:
        return colorNames();
    default:
        return {};
    }
}

CompletedValue valueOf(OptionId id, const CommandInfo& command)
{
    switch (id) {
    case OptionId::Columns:
        return {CompletedValue::Kind::WordList, namesOf(listColumns())};
    case OptionId::Mask:
        return {CompletedValue::Kind::WordList,
                namesOf(maskNames()) + QStringList{maskText(LayerStateMask::kAll), maskText(0)}};
    case OptionId::Format: {
        QStringList formats;
        for (const char* format : command.formats)
            formats << QLatin1String(format);
        return {CompletedValue::Kind::Words, formats};
    }
    case OptionId::Output:
        return {CompletedValue::Kind::File, drawingSuffixes()};
    default:
        return {optionInfo(id).argument ? CompletedValue::Kind::Text : CompletedValue::Kind::None,
                {}};
    }
}

std::vector<CompletedOption> optionsOf(const CommandInfo& command)
{
    std::vector<CompletedOption> options;
    for (const OptionId id : command.options) {
        const OptionInfo& info = optionInfo(id);
        QStringList names{QStringLiteral("--") + QLatin1String(info.name)};
        if (info.letter != 0)
            names.prepend(QLatin1Char('-') + QString(QLatin1Char(info.letter)));
        options.push_back({names, CompanionText::tr(info.text), valueOf(id, command)});
    }
    return options;
}

CompletedCommand completed(const CommandInfo& command)
{
    CompletedCommand result{QLatin1String(command.name),
                            CompanionText::tr(command.summary),
                            optionsOf(command),
                            {},
                            {},
                            drawingSuffixes()};
    if (command.id == CommandId::Set) {
        for (const PropertyInfo& property : properties())
            result.assignments.push_back({QLatin1String(property.name), wordsOf(property.kind)});
    }
    if (command.id == CommandId::States) {
        result.words = namesOf(stateActions());
        result.suffixes << QStringLiteral("las");
    }
    return result;
}
} // namespace

CompletedProgram completedCompanion()
{
    CompletedProgram program;
    program.name = QStringLiteral("layerman");
    for (const OperandInfo& option : programOptions())
        program.plain.options.push_back(
            {{QLatin1String(option.name)}, CompanionText::tr(option.text), {}});
    for (const CommandInfo& command : commands())
        program.commands.push_back(completed(command));
    return program;
}
