#pragma once

#include "host/commands/selection/SelectionFinder.h"

#include <deque>
#include <functional>

class HostCore;
struct HostQuestion;

/// Lets the user, or the rest of a line, select entities of the current drawing: by points, by
/// keywords, until an empty answer or the end of a script's line. What is selected so far is the
/// drawing's selection meanwhile, and so can be seen.
class SelectionPrompt
{
public:
    using Entities = SelectionFinder::Entities;

    struct Rules
    {
        QString prompt; ///< empty: "Select objects:"
        QString removePrompt; ///< empty: "Remove objects:"
        QStringList types; ///< DXF types to choose from; empty: all
        bool takesMany = true; ///< else the first find ends the selection
        bool takesKeywords = true;
        bool takesRectangles = true; ///< a point with nothing there begins one, in the window
        bool takesPickSet = true; ///< what was selected before, where the command keeps it
        bool takesLocked = true;
        bool tellsCounts = true;
        bool isRemembered = true; ///< as what Previous finds
    };
    enum class End {
        Done, ///< something is selected
        None, ///< asked, and nothing is
        Cancelled,
        Unasked, ///< nobody can be asked
    };

    SelectionPrompt(HostCore& core, HostDocument& document, const Rules& rules);

    /// The selection is then in entities(), and still the drawing's own.
    End run();
    const Entities& entities() const { return m_entities; }
    /// Whether a keyword found what ended the selection.
    bool isEndedByKeyword() const { return m_isEndedByKeyword; }

private:
    enum class Step { Again, Finished, Cancelled };

    std::optional<QString> next(const HostQuestion& question);
    bool isGone() const;
    bool isScriptOver() const;
    Step readOne();
    Step take(const QString& answer);
    Step takePoint(const QString& answer);
    Step takeKeyword(int word);
    Step takeBox(bool isCrossing);
    Step takeLayer();
    std::optional<Vec2> askPoint(const QString& prompt, std::optional<Vec2> from);
    Step use(const Entities& found);
    void undoStep();
    void tellCounts(std::size_t found, std::size_t changed, const SelectionFinder::Kept& kept);
    Step refuse(const QString& sentence);
    void tell(const QString& sentence);
    bool takePickSet();
    End finish(End end);

    HostCore& m_core;
    HostDocument& m_document;
    Rules m_rules;
    SelectionFinder m_finder;
    Entities m_entities;
    std::vector<Entities> m_steps; ///< before each gesture, for Undo
    std::deque<QString> m_words; ///< of an answer that holds several
    bool m_isRemoving = false;
    bool m_isEndedByKeyword = false;
    bool m_anyAnswer = false;
};
