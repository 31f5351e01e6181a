#include "core/host/at_attr.h"
#include "core/host/em_commands.h"
#include "core/host/tu_createtimedvalue.h"
#include "core/host/tu_elementmgr.h"
#include "core/host/tu_node.h"
#include "core/host/tu_seqtimedvalue.h"
#include "engine/curves/column.h"
#include "engine/curves/columnkinds.h"
#include "engine/session/scene.h"

#include <algorithm>

namespace brindle::engine {

namespace {

/// Gives a drawing column a new element; false where there can be none of the kind.
bool addElement(Scene& scene, TUTimedValue& column, const TUSceneCreateTimedValueParams& request)
{
    TUElementMgr* elements = scene.elementManager();
    auto* drawings = dynamic_cast<TUElementTimedValue*>(&column);
    if (!elements || !drawings)
        return false;
    // Without a name of its own the element has the column's.
    const auto& [name, scanType, fieldChart, pixmapFormat] = request.element();
    // A request has no vector type: the element gets that of every new element.
    TUSceneCreateTimedValueParams::Element defaults;
    int vectorType = TUElement::kNoVector;
    elements->defaults(defaults.scanType, defaults.fieldChart, defaults.pixmapFormat, vectorType);
    const int id = elements
                       ->createElement(name.isEmpty() ? column.getName() : name, scanType, fieldChart, pixmapFormat,
                                       vectorType, elements->useTemporaryFolder())
                       .id();
    CO_CommandManager& manager = *scene.commandManager();
    return id >= 0 && manager.execute(new EM_Commands::FakeAddElementsCmd(elements, {id}, true, true, 0), QString()) &&
           manager.execute(new tu_timedvalue::element::SetElementIdCmd(drawings, id), QString());
}

/// Adds a node that shows the drawings of a column.
bool addReadNode(Scene& scene, TUTimedValue& column)
{
    bool flag = true;
    MO_Node* node = TUGroup::createNode(QStringLiteral("READ"), 0, 0, 0, flag, nullptr);
    node->setInstanceName(TUModuleNameValidator::getValidName(column.getName()));
    CO_CommandManager& manager = *scene.commandManager();
    if (!manager.execute(new tu_node::AddSubNodeCmd(scene.getRootGroup(), node), QString()))
        return false;
    const auto* drawing = dynamic_cast<AT_ComplexAttr*>(node->findAttributeByKeyword(QStringLiteral("drawing")));
    const auto element = std::find_if(drawing->attrsBegin(), drawing->attrsEnd(), [](const AT_Attr* attribute) {
        return attribute->meta().keyword() == QLatin1String("element");
    });
    return manager.execute(new tu_tv_socket::LinkCmd((*element)->socket(), &column), QString());
}

} // namespace

TUTimedValue* Scene::createTimedValue(const TUSceneCreateTimedValueParams& request)
{
    const auto kinds = columnKinds();
    const auto kind = std::find_if(kinds.begin(), kinds.end(),
                                   [&](const ColumnKind* known) { return known->type == request.type(); });
    if (kind == kinds.end() || findTimedValue(request.name(), 0))
        return nullptr;
    CO_CommandAccumScope scope(commandManager(), QStringLiteral("Add Column"), nullptr, CO_CommandAccumScope::kDefault);
    TUTimedValue* column = Column::asTimedValue((*kind)->make(request.name(), request.isAnonymous())).release();
    if (!commandManager()->execute(new SC_SceneCmds::AddTimedValueCmd(this, column, -1, -1), QString()))
        return nullptr;
    if ((request.createElement() && !addElement(*this, *column, request)) ||
        (request.createReadModule() && !addReadNode(*this, *column))) {
        scope.cancel();
        return nullptr;
    }
    return column;
}

} // namespace brindle::engine
