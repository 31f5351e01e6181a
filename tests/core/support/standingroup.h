#pragma once

#include "tests/core/support/standin.h"

#include <vector>

/// A group of no engine, without ports and attributes, for what the open engine's always has or never refuses.
class StandInGroup : public StandIn<TUGroup> {
public:
    explicit StandInGroup(SC_SceneCommon* scene = nullptr) : StandIn(scene) {}

    QString instanceName() const override { return QStringLiteral("StandInGroup"); }
    QString typeName() const override { return QStringLiteral("GROUP"); }
    void accept(MO_ModuleVisitor& visitor) override { visitor.visit(static_cast<TUGroup&>(*this)); }
    MO_Module* module() override { return nullptr; }
    TUGroup* group() override { return this; }
    QColor getNodeColor() const override { return {}; }
    MO_PortMode portMode() const override { return MO_DynamicPorts; }
    unsigned int nInPorts() const override { return 0; }
    unsigned int nOutPorts() const override { return 0; }
    MO_Port* inPort(unsigned int) const override { return nullptr; }
    MO_Port* outPort(unsigned int) const override { return nullptr; }
    MO_Port* inPortFromId(unsigned int) const override { return nullptr; }
    MO_Port* outPortFromId(unsigned int) const override { return nullptr; }
    int inPortId(const MO_Port*) const override { return -1; }
    int outPortId(const MO_Port*) const override { return -1; }
    bool hasImageOutput() const override { return false; }

    NodeIterator subNodesBegin() const override { return subNodes.data(); }
    NodeIterator subNodesEnd() const override { return subNodes.data() + subNodes.size(); }
    unsigned int nSubNodes() const override { return static_cast<unsigned int>(subNodes.size()); }
    MO_Node* subNode(unsigned int index) const override { return index < subNodes.size() ? subNodes[index] : nullptr; }
    MO_Node* subNode(const QString&) const override { return nullptr; }
    void getRecursiveSubNodeList(std::vector<MO_Node*>& nodes) const override { nodes = subNodes; }
    std::size_t nRecursiveSubNodes() const override { return subNodes.size(); }
    MO_Node* recursiveSubNode(std::size_t index) const override
    {
        return index < subNodes.size() ? subNodes[index] : nullptr;
    }
    const std::vector<std::shared_ptr<MO_Backdrop>>& backdrops() const override { return backdropList; }
    TUMultiPortIn* getOutMultiPort() const override { return nullptr; }
    TUMultiPortOut* getInMultiPort() const override { return nullptr; }

    std::vector<MO_Node*> subNodes;
    std::vector<std::shared_ptr<MO_Backdrop>> backdropList;
};
