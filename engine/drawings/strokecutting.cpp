#include "engine/drawings/cutting.h"
#include "engine/drawings/drawingaccess.h"
#include "engine/drawings/jointgrid.h"

#include <utility>

namespace engine = brindle::engine;

namespace {

/// What a piece has of its stroke: its colours, its line style, and its part of the thickness. An end that was made is
/// flat, so that both pieces together look as the stroke did.
GR_StrokeData dataOf(const engine::StrokePiece& piece, const GR_StrokeData& stroke)
{
    GR_StrokeData data = stroke;
    data.SetPath(piece.path);
    GR_ThicknessBinder thickness = stroke.GetThicknessBinder();
    thickness.truncate(piece.from, piece.to);
    data.CopyThicknessBinder(thickness);
    for (const auto& [end, isMade] :
         {std::pair(GR_StrokeEnd::From, piece.tailCut), std::pair(GR_StrokeEnd::To, piece.headCut)}) {
        if (isMade) {
            data.setCut(end, true);
            data.setTipType(end, kFlatTip);
        }
    }
    return data;
}

} // namespace

int GR_DrawingAccess::Cut(UT_Node* layer)
{
    engine::LiveLeaf& leaf = d->strokeLeaf(layer);
    std::vector<engine::StrokePointer> before;
    std::vector<engine::MapStroke> read;
    leaf.strokes()->strokes().forEach([&](const engine::StrokePointer& stroke) {
        before.push_back(stroke);
        read.push_back({stroke->id, &stroke->data.GetPath()});
    });
    const std::vector<engine::StrokePiece> pieces = cutPieces(read, engine::JointGrid::defaultReach);
    if (pieces.empty())
        return 0;

    d->aboutToChange();
    int cuts = 0;
    engine::StrokeSequence after;
    auto piece = pieces.begin();
    for (std::size_t index = 0; index < before.size(); ++index) {
        if (piece == pieces.end() || piece->stroke != static_cast<int>(index)) {
            after.append(before[index]);
            continue;
        }
        for (; piece != pieces.end() && piece->stroke == static_cast<int>(index); ++piece) {
            const quint32 id = piece->tailCut ? d->drawing().newStrokeId() : before[index]->id;
            const engine::StrokeRecord record{id, dataOf(*piece, before[index]->data)};
            after.append(std::make_shared<const engine::StrokeRecord>(record));
            cuts += piece->tailCut;
        }
    }
    d->drawing().edit(leaf).strokes = std::move(after);
    leaf.strokes()->show(&leaf.value());
    return cuts;
}
