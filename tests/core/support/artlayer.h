#pragma once

#include "core/drawings/drawinglayerimplshared.h"
#include "core/host/gr_bezierpath.h"
#include "core/host/gr_drawingaccess.h"
#include "tests/core/support/openproject.h"

#include <vector>

/// An open project, and beside it a drawing of no element with one layer of strokes, which wrappers can be made of.
class ArtLayerTest : public ProjectTest {
protected:
    ArtLayerTest()
        : drawing(GR_CompositeVectorDrawingObj::Create(&m_colours)),
          art(*dynamic_cast<GR_VectorDrawingObj*>(drawing->GetArt(GR_CompositeVectorDrawingObj::kLine)))
    {
        access.SetDrawing(&art);
        leaf = access.CreateLayerAbove(GR_Layer::kPen, nullptr);
        record = DrawingLayerImplSharedPointer(OMC::DrawingLayerImplShared::of(&art, leaf, {}));
    }

    /// A path of straight lines, as cubics.
    static GR_BezierPath2d lines(const std::vector<Math::Point2d>& points)
    {
        GR_BezierPath2d path;
        for (std::size_t index = 0; index < points.size(); ++index) {
            if (index > 0) {
                const Math::Vector2d way = points[index] - points[index - 1];
                path.Append(points[index - 1] + way * (1. / 3), false);
                path.Append(points[index - 1] + way * (2. / 3), false);
            }
            path.Append(points[index], true);
        }
        return path;
    }
    GR_VectorStroke* insert(const std::vector<Math::Point2d>& points)
    {
        return access.Insert(GR_StrokeData(lines(points)), leaf);
    }

private:
    using DrawingLayerImplSharedPointer = OMC::DrawingLayerImplShared::Pointer;

    GR_ColorDict m_colours;

protected:
    QExplicitlySharedDataPointer<GR_CompositeVectorDrawingObj> drawing;
    GR_VectorDrawingObj& art;
    GR_DrawingAccess access; ///< Changes that no session and no undo list hears of.
    UT_Node* leaf;
    DrawingLayerImplSharedPointer record;
};
