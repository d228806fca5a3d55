#pragma once

#include "host/canvas/render/FillPainter.h"
#include "host/canvas/render/ScenePart.h"
#include "host/canvas/render/StyleResolver.h"
#include "host/canvas/render/TextPainter.h"
#include "host/canvas/strokes/DashedPainter.h"
#include "host/canvas/strokes/StrokePainter.h"

#include <QDeadlineTimer>
#include <QImage>

class Scene;

/// What a picture is painted from.
struct FrameRequest
{
    std::shared_ptr<const Scene> scene;
    std::shared_ptr<TextShaper> shaper;
    std::shared_ptr<const ErasedFilter> erased;
    std::vector<ScenePart> parts; ///< from the bottom to the top
    Affine2 view; ///< from the drawing to pixels of the image
    QSize pixels;
    QRgb background = 0; ///< of model space, and of the paper of a sheet
    Box2 paper; ///< of a sheet, in the drawing's coordinates; empty: the background is all there is
    QRgb desk = 0; ///< around the paper
    QRgb paperEdge = 0;
    bool isDark = false;
    bool isSmooth = false; ///< antialiased strokes
    int penWidth = 1;
};

/// Paints one picture, a little at a time. Of every part fills come first, then strokes, then
/// texts.
class FrameRenderer
{
public:
    explicit FrameRenderer(const FrameRequest& request);

    /// Paints on until the time is over; true when the picture is complete.
    bool run(QDeadlineTimer until);
    bool isDone() const { return m_part > m_request.parts.size(); }
    const QImage& image() const { return m_image; }

private:
    enum class Pass { Fills, Strokes, Texts, End };

    /// A display list that is being painted, and how far.
    struct Level
    {
        const DisplayList* list;
        PaintContext context;
        std::size_t group = 0;
        std::size_t chunk = 0;
        bool isArcs = false;
        LineBatcher::Bucket* bucket = nullptr;
        StrokeLook look = {}; ///< of the group; without a pattern where it would not be seen
        std::size_t instance = 0;
        quint64 cell = 0;
    };

    void paintPaper();
    bool advance(QPainter& painter);
    bool nextPass(QPainter& painter);
    void beginPart(QPainter& painter);
    bool paintOwn(QPainter& painter, Level& level);
    void clipToOutline(QPainter& painter, const ScenePart& part);
    bool paintStrokes(Level& level);
    void beginGroup(Level& level, Style style);
    bool paintFills(QPainter& painter, Level& level);
    bool paintTexts(QPainter& painter, Level& level);
    bool descend(Level& level);
    bool skipChunk(Level& level) const;
    bool isWanted(const DisplayList& list) const;
    void enterCell(const Level& level, const BlockInstance& instance, quint64 cell);
    Affine2 rootMap(const ScenePart& part) const;

    const FrameRequest m_request;
    QImage m_image;
    LineBatcher m_batcher;
    StrokePainter m_strokes;
    DashedPainter m_dashes{m_strokes};
    FillPainter m_fills;
    TextPainter m_texts;
    std::optional<StyleResolver> m_styles;
    std::size_t m_part = 0; ///< one past the part being painted
    Pass m_pass = Pass::End;
    Box2 m_visible;
    std::vector<Level> m_stack;
};
