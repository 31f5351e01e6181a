#include "core/host/gr_drawingaccess.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <stdexcept>
#include <vector>

// What a layer of many strokes computes of itself: contours and joints, boxes, outlines of its lines, and cutting.

namespace {

/// A layer of a drawing in no element.
class StrokesLayer {
public:
    StrokesLayer()
        : m_drawing(GR_CompositeVectorDrawingObj::Create(nullptr)),
          m_art(dynamic_cast<GR_VectorDrawingObj*>(m_drawing->GetArt(GR_CompositeVectorDrawingObj::kLine)))
    {
        m_access.SetDrawing(m_art);
        m_node = m_access.CreateLayerAbove(GR_Layer::kPen, nullptr);
        m_access.BeginOperations(1);
    }
    ~StrokesLayer() { m_access.EndOperations(true); }

    GR_Layer& layer() const { return *dynamic_cast<GR_LayerNode&>(*m_node).GetLayer(); }
    GR_DrawingAccess& access() { return m_access; }
    UT_Node* node() const { return m_node; }

    /// A stroke of four cubic curves that trembles about the line between two places.
    void addStroke(const Math::Point2d& from, const Math::Point2d& to, const GR_ThicknessPathPtr& thickness = nullptr)
    {
        constexpr int curves = 4;
        std::uniform_real_distribution<double> aside(-0.02, 0.02);
        const Math::Vector2d way = to - from;
        GR_BezierPath2d path;
        path.Append(from, true);
        for (int i = 1; i <= 3 * curves; ++i) {
            const Math::Point2d place = from + way * (i / (3.0 * curves));
            const bool isLast = i == 3 * curves;
            path.Append(isLast ? to : place + Math::Vector2d{-way.y, way.x} * aside(m_random), i % 3 == 0);
        }
        GR_StrokeData stroke(path);
        stroke.SetLineStyle(GR_LineStyle(GR_LineStyle::kThick, {}, 2));
        stroke.CopyThicknessBinder(GR_ThicknessBinder(thickness));
        m_access.Insert(stroke, m_node);
    }

    /// A grid of cells with about so many strokes between them.
    void addCells(int strokes)
    {
        constexpr double size = 10;
        const int cells = static_cast<int>(std::sqrt(strokes / 2.0));
        for (int i = 0; i <= cells; ++i) {
            for (int j = 0; j <= cells; ++j) {
                const Math::Point2d place{i * size, j * size};
                if (i < cells)
                    addStroke(place, {place.x + size, place.y});
                if (j < cells)
                    addStroke(place, {place.x, place.y + size});
            }
        }
    }

    /// Strokes at random, which cross.
    void addTangle(int strokes)
    {
        std::uniform_real_distribution<double> anywhere(-1000, 1000);
        std::uniform_real_distribution<double> nearby(-60, 60);
        for (int i = 0; i < strokes; ++i) {
            const Math::Point2d from{anywhere(m_random), anywhere(m_random)};
            addStroke(from, {from.x + nearby(m_random), from.y + nearby(m_random)});
        }
    }

    /// Makes the layer forget what it has computed: one stroke gets the path that it has.
    void forget()
    {
        GR_VectorStroke* stroke = layer().FindStroke((*layer().GetStrokeBegin())->id());
        GR_BezierPath2d path = stroke->GetStrokeData().GetPath();
        path.SetPoint(1, path.GetPoint(1) + Math::Vector2d{0, m_isMoved ? -1e-3 : 1e-3});
        m_isMoved = !m_isMoved;
        m_access.SetBezierPath(stroke, path);
    }

private:
    QExplicitlySharedDataPointer<GR_CompositeVectorDrawingObj> m_drawing;
    GR_VectorDrawingObj* m_art;
    GR_DrawingAccess m_access;
    UT_Node* m_node;
    bool m_isMoved = false;
    std::mt19937 m_random{1};
};

void topologyOfLayer(benchmark::State& state)
{
    StrokesLayer strokes;
    strokes.addCells(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        strokes.forget();
        state.ResumeTiming();
        benchmark::DoNotOptimize(strokes.layer().FindContour(*strokes.layer().GetStrokeBegin(), GR_StrokeSide::Left));
    }
    state.SetComplexityN(state.range(0));
}

void topologyOfLayerAgain(benchmark::State& state)
{
    StrokesLayer strokes;
    strokes.addCells(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(strokes.layer().FindContour(*strokes.layer().GetStrokeBegin(), GR_StrokeSide::Left));
}

void visibleBoxOfStroke(benchmark::State& state)
{
    StrokesLayer strokes;
    strokes.addTangle(1000);
    std::size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(strokes.layer().GetStrokeBegin()[++i % 1000]->GetVisibleBox());
}

void outlineOfStroke(benchmark::State& state)
{
    auto thickness = std::make_shared<GR_ThicknessPath>();
    for (const auto& [position, width] : {std::pair(0.0, 1.0), {0.3, 6.0}, {0.7, 3.0}, {1.0, 8.0}})
        thickness->insertThicknessKey(position, width, width / 2);
    StrokesLayer strokes;
    strokes.addStroke({0, 0}, {200, 100}, thickness);
    const GR_StrokeData data = (*strokes.layer().GetStrokeBegin())->GetStrokeData();
    for (auto _ : state)
        benchmark::DoNotOptimize(data.GetOutline(0.1));
}

void cutTangle(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto strokes = std::make_unique<StrokesLayer>();
        strokes->addTangle(static_cast<int>(state.range(0)));
        state.ResumeTiming();
        if (strokes->access().Cut(strokes->node()) == 0)
            throw std::runtime_error("nothing was cut");
        state.PauseTiming();
        strokes.reset();
        state.ResumeTiming();
    }
}

BENCHMARK(topologyOfLayer)->RangeMultiplier(10)->Range(100, 10000)->Complexity(benchmark::oNLogN);
BENCHMARK(topologyOfLayerAgain)->Arg(10000);
BENCHMARK(visibleBoxOfStroke);
BENCHMARK(outlineOfStroke);
BENCHMARK(cutTangle)->Arg(2000);

} // namespace
