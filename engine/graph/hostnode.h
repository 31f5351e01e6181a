#pragma once

#include "engine/attributes/attributeset.h"
#include "engine/graph/node.h"
#include "engine/transformations/nodetransformation.h"

#include <type_traits>

namespace brindle::engine {

TUGroup* parentHost(const Node& node); ///< The node's group, or null.

/// Gives a node the host class of its type.
template <typename Host>
class HostNode : public Host, public Node {
public:
    explicit HostNode(const NodeType& type) : Node(type, static_cast<Host&>(*this)) {}

    SC_SceneCommon* sceneCommon() const override { return Node::scene(); }
    TUGroup* parentGroup() const override { return parentHost(*this); }
    QString instanceName() const override { return Node::name(); }
    QString qualifiedName() const override { return Node::path(); }
    QString typeName() const override { return sharedText(Node::type().name); }

    void accept(MO_ModuleVisitor& visitor) override { visitor.visit(static_cast<Host&>(*this)); }
    MO_Module* module() override
    {
        if constexpr (std::is_base_of_v<MO_Module, Host>)
            return this;
        else
            return nullptr;
    }
    TUGroup* group() override
    {
        if constexpr (std::is_base_of_v<TUGroup, Host>)
            return this;
        else
            return nullptr;
    }

    int x() const override { return Node::position().x; }
    int y() const override { return Node::position().y; }
    int z() const override { return Node::position().z; }
    void setX(int x) override { Node::setPosition({x, y(), z()}); }
    void setY(int y) override { Node::setPosition({x(), y, z()}); }
    void setZ(int z) override { Node::setPosition({x(), y(), z}); }

    void setScene(SC_SceneCommon* scene) override { Node::setScene(scene); }
    QString defaultInstanceName() const override { return sharedText(Node::type().defaultName); }
    bool setInstanceName(const QString& name) override { return Node::setName(name); }
    bool isNameAcceptable(const QString& name) const override { return Node::isNameAcceptable(name); }

    bool isEnabled() const override { return Node::isEnabled(); }
    QColor getNodeColor() const override
    {
        return Node::shownColour().isValid() ? Node::shownColour() : QColor(nodeColour(Node::type().nodeClass));
    }
    void setNodeColor(const QColor& colour) override { Node::showColour(colour); }
    void setDirty() override
    {
        forgetTransformations(*this);
        Node::announceChange();
    }
    bool isCacheable() const override { return Node::isCacheable(); }
    const MO_CacheConfig& cacheConfig() const override { return Node::marks().cache; }
    bool canLock() const override { return Node::canLock(); }
    bool lock() const override { return Node::marks().locked; }
    bool isShowTimelineThumbnails() const override { return Node::marks().thumbnails; }

    std::shared_ptr<TIR_PerformanceTimer> performanceTimer() const override { return Node::performanceTimer(); }

    MO_PortMode portMode() const override { return Node::type().portMode; }
    unsigned int nInPorts() const override { return static_cast<unsigned int>(portCount(PortSide::In)); }
    unsigned int nOutPorts() const override { return static_cast<unsigned int>(portCount(PortSide::Out)); }
    MO_Port* inPort(unsigned int index) const override { return Node::port(PortSide::In, index); }
    MO_Port* outPort(unsigned int index) const override { return Node::port(PortSide::Out, index); }
    MO_Port* inPortFromId(unsigned int id) const override { return Node::portFromId(PortSide::In, id); }
    MO_Port* outPortFromId(unsigned int id) const override { return Node::portFromId(PortSide::Out, id); }
    int inPortId(const MO_Port* port) const override { return Node::portPlace(PortSide::In, port); }
    int outPortId(const MO_Port* port) const override { return Node::portPlace(PortSide::Out, port); }
    bool hasImageOutput() const override { return Node::hasImageOutput(); }
    bool isModeMultiInPort() const override { return portMode() == MO_DynamicInPortsOnly; }

    AT_Attr* findAttributeByKeyword(const QString& keyword) const override { return attributes().findTop(keyword); }
    MO_Node::AttrIterator attrsBegin() const override { return attributes().begin(); }
    MO_Node::AttrIterator attrsEnd() const override { return attributes().end(); }
};

/// A node that computes something. There is one version of each type.
template <typename Host>
class HostModule : public HostNode<Host> {
public:
    using HostNode<Host>::HostNode;
    int version() const override { return 1; }
    int versionMax() const override { return 1; }
    const MO_PortTransform* getPortTransformation(const MO_BaseContext& context) const override
    {
        return transformationAt(*this, context.frame());
    }
};

} // namespace brindle::engine
