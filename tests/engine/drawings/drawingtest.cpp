#include "tests/engine/drawings/drawingtest.h"

using namespace brindle::engine;

bool EditSession::end(CO_CommandManager& manager)
{
    std::unique_ptr<DT_Command> step(m_undo.Release());
    return step && !step->IsEmpty() && manager.execute(step.release(), QStringLiteral("Edit"));
}

DrawingTest::DrawingTest()
{
    element = elements().createElement("Arm", 0, 12, 0, TUElement::kPnt, false).id();
    run(new EM_Commands::FakeAddElementsCmd(&elements(), {element}, true, true, 0));
    addDrawing("1");
}

ElementManager& DrawingTest::elementsOf(Project& project)
{
    return *engineElements(project.projectCommon()->elementManager());
}

bool DrawingTest::addDrawing(const QString& name)
{
    CO_Command* command = EM_Commands::NewDrawingCmd::Create(&elements(), element, name, false, false);
    return command && run(command) && createVectorDrawing(elements(), key(name));
}

CA_CelKeyElement DrawingTest::key(const QString& name)
{
    return CA_CelKeyElement(element, elements().getDrawingId(element, name, false));
}

LiveDrawing& DrawingTest::drawing(const QString& name)
{
    return *vectorDrawing(elements(), key(name));
}

QByteArray DrawingTest::bytes(const QString& name)
{
    return bytesOf(project(), name);
}

QByteArray DrawingTest::bytesOf(Project& project, const QString& name)
{
    const TUElement* first = *elementsOf(project).elementBegin();
    const Drawing* drawing = elementsOf(project).find(first->id())->drawings().named(name);
    const ContentPointer content = drawing ? drawing->content(EM_DefaultLayerId) : nullptr;
    return content ? content->bytes() : QByteArray();
}

GR_StrokeData straightStroke(const Math::Point2d& from, const Math::Point2d& to)
{
    const Math::Vector2d third = (to - from) * (1.0 / 3);
    GR_BezierPath2d path;
    path.Append(from, true);
    path.Append(from + third, false);
    path.Append(to - third, false);
    path.Append(to, true);
    return GR_StrokeData(path);
}

GR_ColorPtr colourOf(quint64 id)
{
    return GR_Color::CreateWith(CM_ColorId_t(id));
}

GR_ThicknessPathPtr widthPath(double thickness)
{
    return std::make_shared<const GR_ThicknessPath>(thickness);
}

GR_Layer& strokesOf(UT_Node* leaf)
{
    return *dynamic_cast<GR_LayerNode*>(leaf)->GetLayer();
}

GR_VectorStroke* strokeAt(UT_Node* leaf, std::size_t index)
{
    return const_cast<GR_VectorStroke*>(strokesOf(leaf).GetStrokeBegin()[index]);
}

std::vector<UT_Node*> leavesOf(GR_VectorDrawingObj& art)
{
    std::vector<UT_Node*> leaves;
    for (UT_Node* leaf = art.GetRootnode()->GetNextLeaf(); leaf; leaf = leaf->GetNextLeaf())
        leaves.push_back(leaf);
    return leaves;
}
