#pragma once

#include "core/host/mo_node.h"
#include "core/host/sc_scene.h"

#include <QString>

#include <type_traits>
#include <vector>

// Nodes and a scene that lack everything until a field says else: for what the open engine always has, or never refuses.

/// What the nodes of a scene reach of it.
class StandInSceneCommon : public SC_SceneCommon {
public:
    CO_CommandManager* commandManager() const override { return commands; }
    TUSceneChangeManager* changeManager() const override { return nullptr; }
    SC_TimedValueListInterface* timedValues() const override { return columns; }
    TUGroup* rootGroup() const override { return nullptr; }
    int getNumberOfFrames() const override { return 60; }
    int getStartFrame() const override { return 1; }
    int getStopFrame() const override { return 60; }
    QString generateNodeName(const QString& base, const TUGroup*) const override { return base; }

    CO_CommandManager* commands = nullptr;
    SC_TimedValueListInterface* columns = nullptr;
};

/// A node of a host class, without ports and attributes.
template <typename Host>
class StandInNode : public Host {
public:
    explicit StandInNode(SC_SceneCommon* scene = nullptr) : scene(scene) {}

    SC_SceneCommon* sceneCommon() const override { return scene; }
    TUGroup* parentGroup() const override { return nullptr; }
    QString instanceName() const override { return QStringLiteral("Stand-In"); }
    QString qualifiedName() const override { return QStringLiteral("Top/Stand-In"); }
    QString typeName() const override { return QStringLiteral("STAND_IN"); }
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
    int x() const override { return placeX; }
    int y() const override { return placeY; }
    int z() const override { return placeZ; }
    void setX(int x) override { placeX = x; }
    void setY(int y) override { placeY = y; }
    void setZ(int z) override { placeZ = z; }
    void setScene(SC_SceneCommon* common) override { scene = common; }
    QString defaultInstanceName() const override { return QStringLiteral("Stand-In"); }
    bool setInstanceName(const QString&) override { return false; }
    bool isNameAcceptable(const QString&) const override { return true; }
    bool isEnabled() const override { return true; }
    void setDirty() override {}
    MO_PortMode portMode() const override { return mode; }
    unsigned int nInPorts() const override { return 0; }
    unsigned int nOutPorts() const override { return 0; }
    MO_Port* inPort(unsigned int) const override { return nullptr; }
    MO_Port* outPort(unsigned int) const override { return nullptr; }
    MO_Port* inPortFromId(unsigned int) const override { return nullptr; }
    MO_Port* outPortFromId(unsigned int) const override { return nullptr; }
    int inPortId(const MO_Port*) const override { return -1; }
    int outPortId(const MO_Port*) const override { return -1; }
    bool hasImageOutput() const override { return false; }
    bool isModeMultiInPort() const override { return false; }
    AT_Attr* findAttributeByKeyword(const QString&) const override { return nullptr; }
    MO_Node::AttrIterator attrsBegin() const override { return nullptr; }
    MO_Node::AttrIterator attrsEnd() const override { return nullptr; }

    SC_SceneCommon* scene;
    int placeX = 0;
    int placeY = 0;
    int placeZ = 0;
    MO_PortMode mode = MO_FixedPorts;
};

/// A module of a host class: MO_Module, or one that derives from it.
template <typename Host = MO_Module>
class StandInModule : public StandInNode<Host> {
public:
    using StandInNode<Host>::StandInNode;
    int version() const override { return 1; }
    int versionMax() const override { return 1; }
};

class StandInGroup : public StandInNode<TUGroup> {
public:
    using StandInNode<TUGroup>::StandInNode;
    NodeIterator subNodesBegin() const override { return subNodes.data(); }
    NodeIterator subNodesEnd() const override { return subNodes.data() + subNodes.size(); }
    unsigned int nSubNodes() const override { return static_cast<unsigned int>(subNodes.size()); }
    MO_Node* subNode(unsigned int index) const override { return index < subNodes.size() ? subNodes[index] : nullptr; }
    MO_Node* subNode(const QString&) const override { return nullptr; }
    void getRecursiveSubNodeList(std::vector<MO_Node*>& nodes) const override { nodes = subNodes; }
    TUMultiPortIn* getOutMultiPort() const override { return nullptr; }
    TUMultiPortOut* getInMultiPort() const override { return nullptr; }

    std::vector<MO_Node*> subNodes;
};
