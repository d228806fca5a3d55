#pragma once

#include "database/values/OdError.h"
#include "host/application/HostQuestion.h"
#include "host/canvas/geometry/Vec3.h"
#include "host/commands/KeywordList.h"
#include "sdk/commands/OdEdCommand.h"

#include <optional>
#include <span>
#include <variant>

class HostCore;
class HostDocument;

/// A question that words answer.
struct KeywordQuestion
{
    QString text; ///< without words and colon
    std::span<const char* const> words; ///< English; see KeywordList
    int fallback = -1; ///< the word that an empty answer stands for; -1: none
};

/// One run of a host command: what it works on and where its answers come from.
class HostCommandRun
{
public:
    explicit HostCommandRun(HostCore& core)
        : m_core(core)
    { }

    HostCore& core() const { return m_core; }
    /// The current document; raises OdError with NoDatabase without one.
    HostDocument& document() const;
    /// The next answer; raises OdError when it is cancelled or missing.
    QString answer(const HostQuestion& question) const;
    /// The next answer; the fallback when it is empty, or when nobody can answer.
    QString answerOr(const HostQuestion& question, const QString& fallback) const;
    /// The next answer as `read` understands it. Where `read` raises InvalidInput, OutOfRange or
    /// KeyNotFound, a person is told and asked again, and what is left of the typed line is
    /// dropped; a script's command fails.
    template <class Read>
    auto asked(const HostQuestion& question, Read read) const
    {
        for (;;) {
            try {
                return read(answer(question));
            } catch (const OdError& error) {
                askAgain(error);
            }
        }
    }
    /// The index of the word that is answered. The fallback, or nothing where there is none, when
    /// the answer is empty or the line of a script holds no more.
    std::optional<int> askKeyword(const KeywordQuestion& question) const;
    /// The index of the word that is answered; raises OdError without an answer.
    int requireKeyword(const KeywordQuestion& question) const;
    /// A question with a default: Enter answers it, and so does the end of a script's line.
    bool yes(const QString& text, bool fallback) const;
    bool hasAnswer() const;
    /// Takes the next word of the line if it is that one.
    bool takeWord(const QString& word) const;
    /// A point, a word's index, or neither where the answer is empty.
    struct PointAnswer
    {
        std::optional<Vec3> point;
        int word = -1;
    };
    using Words = std::span<const char* const>; ///< English; see KeywordList
    /// Points and lengths; the question is without words and colon, the words are added. What
    /// cannot be read is told and asked again; in a script it raises OdError, here and below.
    PointAnswer pointOrWord(const HostQuestion& question, Words words) const;
    Vec3 point(const HostQuestion& question) const;
    /// A length above 0, also as the distance from the question's base point to another one; or a
    /// word's index.
    std::variant<double, int> distanceOrWord(const HostQuestion& question, Words words) const;
    /// An empty answer is the fallback, where there is one.
    double distance(const HostQuestion& question, std::optional<double> fallback = {}) const;
    /// Degrees, also as the direction from the question's base point to another one; the fallback
    /// when the answer is empty.
    double angle(const HostQuestion& question, double fallback) const;

    bool isInteractive() const;
    void print(const QString& text) const;
    /// Prints where a person reads along; scripts stay silent about what went well.
    void tell(const QString& text) const;

private:
    void askAgain(const OdError& error) const;

    HostCore& m_core;
};

/// A row of a table of host commands.
struct HostCommandDefinition
{
    const char* name; ///< without underscore
    int flags;
    void (*run)(const HostCommandRun&); ///< raises OdError when the command fails
};

/// A command of the host's own.
class HostCommand : public OdEdCommand
{
public:
    HostCommand(HostCore& core, const HostCommandDefinition& definition);

    QString groupName() const override { return QStringLiteral("KEST_HOST"); }
    QString globalName() const override { return QLatin1Char('_') + localName(); }
    QString localName() const override { return QLatin1String(m_definition.name); }
    void execute(OdEdCommandContext* context) override;
    int flags() const override { return m_definition.flags; }
    /// Raises OdError: host commands stay.
    void undefine(bool undefineIt) override;

private:
    HostCore& m_core;
    const HostCommandDefinition& m_definition;
};

std::span<const HostCommandDefinition> drawCommands();
std::span<const HostCommandDefinition> fileCommands();
std::span<const HostCommandDefinition> layerCommands();
std::span<const HostCommandDefinition> selectionCommands();
std::span<const HostCommandDefinition> undoCommands();
std::span<const HostCommandDefinition> variableCommands();
std::span<const HostCommandDefinition> viewCommands();
std::span<const HostCommandDefinition> viewportCommands();
std::span<const HostCommandDefinition> zoomCommands();

/// Adds all host commands to the process's command stack, or takes them away.
void registerHostCommands(HostCore& core);
void unregisterHostCommands();
