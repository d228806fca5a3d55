#include "usage/BashCompletion.h"

namespace {
using Kind = CompletedValue::Kind;

// What the word before asks for is in `value`: its kind, then words.
constexpr const char* kStart = R"(# Completion of PROGRAM for bash, written by the program itself.

# Files whose names begin with $1 and end in one of the suffixes behind it, and folders. Suffixes
# count in upper and lower case; without any, all files.
_PROGRAM_files() {
    local start=$1 name path suffix
    shift
    while IFS= read -r name; do
        path=${name/#\~\//$HOME/}
        if [[ -d $path || $# -eq 0 ]]; then
            COMPREPLY+=("$name")
            continue
        fi
        for suffix; do
            [[ ${name,,} != *."$suffix" ]] || COMPREPLY+=("$name")
        done
    done < <(compgen -f -- "$start")
}

_PROGRAM() {
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]}
    local head="" options="" words="" suffixes="" value="" item
    COMPREPLY=()
    # NAME=VALUE comes in three words, or in one where the user took "=" out of COMP_WORDBREAKS.
    if [[ $cur == "=" ]]; then
        cur="" prev+="="
    elif [[ $prev == "=" ]]; then
        prev=${COMP_WORDS[COMP_CWORD - 2]}=
    elif [[ $cur == *=* ]]; then
        prev=${cur%%=*}= head=${cur%%=*}= cur=${cur#*=}
    fi
)";

constexpr const char* kEnd = R"(
    case $value in
        "text") return ;;
        "folder")
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -d -- "$cur")
            return
            ;;
        "file"*)
            compopt -o filenames 2>/dev/null
            # shellcheck disable=SC2086  # suffixes are words
            _PROGRAM_files "$cur" ${value#file}
            COMPREPLY=("${COMPREPLY[@]/#/$head}")
            return
            ;;
        "words "*) mapfile -t COMPREPLY < <(compgen -P "$head" -W "${value#words }" -- "$cur") ;;
        "list "*)
            compopt -o nospace 2>/dev/null
            [[ $cur != *,* ]] || head+=${cur%,*},
            for item in ${value#list }; do
                [[ ",$cur," == *",$item,"* || $item != "${cur##*,}"* ]] || COMPREPLY+=("$head$item")
            done
            ;;
    esac
    [[ -z $value ]] || return
    if [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$cur")
        return
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$cur")
    [[ ${#COMPREPLY[@]} -ne 1 || ${COMPREPLY[0]} != *= ]] || compopt -o nospace 2>/dev/null
    if [[ -n $suffixes ]]; then
        # Blanks are escaped for files; the words have none.
        [[ ${#COMPREPLY[@]} -gt 0 ]] || compopt -o filenames 2>/dev/null
        # shellcheck disable=SC2086  # suffixes are words
        _PROGRAM_files "$cur" $suffixes
    fi
}

complete -F _PROGRAM PROGRAM
)";

QString withName(const char* text, const QString& program)
{
    return QString::fromLatin1(text).replace(QStringLiteral("PROGRAM"), program);
}

QString assigned(const char* variable, const QStringList& words)
{
    return words.isEmpty()
        ? QString()
        : QStringLiteral("%1=\"%2\"\n").arg(QLatin1String(variable), words.join(QLatin1Char(' ')));
}

QString valueText(const CompletedValue& value)
{
    static constexpr const char* kKinds[] = {"", "text", "words", "list", "file", "folder"};
    return (QStringList(QLatin1String(kKinds[static_cast<std::size_t>(value.kind)])) + value.words)
        .join(QLatin1Char(' '));
}

/// An option's value stands behind it or behind its equals sign.
QString valueCases(const CompletedCommand& command, const QString& indent)
{
    QString cases;
    const auto add = [&](const QStringList& patterns, const CompletedValue& value) {
        cases += indent
            + QStringLiteral("    %1) value=\"%2\" ;;\n")
                  .arg(patterns.join(QStringLiteral(" | ")), valueText(value));
    };
    for (const CompletedOption& option : command.options) {
        QStringList patterns;
        for (const QString& name : option.names) {
            patterns << name;
            if (name.startsWith(QStringLiteral("--")))
                patterns << name + QLatin1Char('=');
        }
        if (option.value.kind != Kind::None)
            add(patterns, option.value);
    }
    for (const CompletedAssignment& assignment : command.assignments)
        add({assignment.name + QLatin1Char('=')},
            assignment.values.isEmpty() ? CompletedValue{Kind::Text, {}}
                                        : CompletedValue{Kind::Words, assignment.values});
    return cases.isEmpty()
        ? QString()
        : indent + QStringLiteral("case $prev in\n") + cases + indent + QStringLiteral("esac\n");
}

QString commandText(const CompletedCommand& command, const QStringList& moreWords,
                    const QString& indent)
{
    QStringList options;
    for (const CompletedOption& option : command.options)
        options << option.names;
    QStringList words = command.words + moreWords;
    for (const CompletedAssignment& assignment : command.assignments)
        words << assignment.name + QLatin1Char('=');
    QString text;
    for (const QString& line : {assigned("options", options), assigned("words", words),
                                assigned("suffixes", command.suffixes)})
        text += line.isEmpty() ? line : indent + line;
    return text + valueCases(command, indent);
}
} // namespace

QString bashCompletion(const CompletedProgram& program)
{
    QString text = withName(kStart, program.name);
    if (program.commands.empty())
        return text + commandText(program.plain, {}, QStringLiteral("    "))
            + withName(kEnd, program.name);

    const QString inner(16, QLatin1Char(' '));
    QStringList names;
    QString cases;
    for (const CompletedCommand& command : program.commands) {
        names << command.name;
        cases += QStringLiteral("            %1)\n").arg(command.name)
            + commandText(command, {}, inner) + inner + QStringLiteral(";;\n");
    }
    return text + QStringLiteral("    if [[ $COMP_CWORD -eq 1 ]]; then\n")
        + commandText(program.plain, names, QStringLiteral("        "))
        + QStringLiteral("    else\n        case ${COMP_WORDS[1]} in\n") + cases
        + QStringLiteral("        esac\n    fi\n") + withName(kEnd, program.name);
}
