#include "host/canvas/scene/OutlineOf.h"

namespace {

constexpr std::size_t kMostPieces = 2000;
constexpr double kStep = kTurn / 96;

using Piece = std::vector<Vec2>;

Piece pieceOf(const CurveArc& arc)
{
    const int steps = std::max(1, static_cast<int>(std::ceil(std::abs(arc.sweep) / kStep)));
    Piece piece;
    for (int i = 0; i <= steps; ++i)
        piece.push_back(arc.at(arc.start + arc.sweep * i / steps));
    return piece;
}

std::vector<Piece> piecesOf(const DisplayList& list)
{
    std::vector<Piece> pieces;
    for (const DisplayList::StrokeGroup& group : list.groups()) {
        if (group.segments.size() + group.arcs.size() > kMostPieces)
            return {};
        for (std::size_t i = 0; i < group.segments.size(); ++i)
            pieces.push_back({group.segments[i].from, group.segments[i].to});
        for (std::size_t i = 0; i < group.arcs.size(); ++i)
            pieces.push_back(pieceOf(group.arcs[i]));
    }
    return pieces;
}

} // namespace

std::vector<Vec2> outlineOf(const DisplayList& list)
{
    std::vector<Piece> pieces = piecesOf(list);
    if (pieces.empty())
        return {};
    Piece outline = std::move(pieces.back());
    pieces.pop_back();
    while (!pieces.empty()) {
        const Vec2 end = outline.back();
        const auto distance = [end](const Piece& piece) {
            return std::min((piece.front() - end).length(), (piece.back() - end).length());
        };
        const auto nearest =
            std::min_element(pieces.begin(), pieces.end(), [&](const Piece& a, const Piece& b) {
                return distance(a) < distance(b);
            });
        if ((nearest->back() - end).length() < (nearest->front() - end).length())
            std::reverse(nearest->begin(), nearest->end());
        outline.insert(outline.end(), nearest->begin() + 1, nearest->end());
        pieces.erase(nearest);
    }
    return outline.size() < 3 ? Piece() : outline;
}
