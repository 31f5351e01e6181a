#pragma once

#include "core/drawings/drawing.h"
#include "core/drawings/drawingaccessimpl.h"
#include "core/drawings/drawingvectorartlayer.h"
#include "core/host/gr_drawingaccess.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/openproject.h"

#include <QExplicitlySharedDataPointer>

#include <vector>

/// An open project and a drawing of no element, whose edits the project's undo list keeps. No session is left open.
class DrawingTest : public ProjectTest {
public:
    ~DrawingTest() override { access().vectorTakeBack(); }

    static OMC::DrawingAccessImpl& access() { return OMC::DrawingAccessImpl::get(); }

    GR_VectorDrawingObj* art(int index = GR_CompositeVectorDrawingObj::kLine) const
    {
        return static_cast<GR_VectorDrawingObj*>(drawing->GetArt(index));
    }
    CA_DrawingLayerKey key(int index = GR_CompositeVectorDrawingObj::kLine) const
    {
        return CA_DrawingLayerKey(CA_CelKey(), index);
    }
    /// The wrapper of an art layer.
    OMC::DrawingVectorArtLayer wrapper(int index = GR_CompositeVectorDrawingObj::kLine) const
    {
        return OMC::DrawingVectorArtLayer(art(index), key(index));
    }
    std::vector<UT_Node*> leaves() const
    {
        std::vector<UT_Node*> all;
        for (UT_Node* leaf = art()->GetNonConstRootnode()->GetNextLeaf(); leaf; leaf = leaf->GetNextLeaf())
            all.push_back(leaf);
        return all;
    }
    /// Opens a session on the art layer of lines, or joins it; says which.
    bool begin()
    {
        bool created = false;
        access().vectorBegin(art(), key(), created);
        return created;
    }
    UT_Node* addLayer()
    {
        bool created = false;
        return access().vectorBegin(art(), key(), created)->CreateLayerAbove(GR_Layer::kPen, nullptr);
    }

    GR_ColorDict colours;
    QExplicitlySharedDataPointer<GR_CompositeVectorDrawingObj> drawing = GR_CompositeVectorDrawingObj::Create(&colours);
};

inline constexpr char step[] = "Drawing Modified with Python";
