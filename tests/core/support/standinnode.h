#pragma once

#include "core/host/mo_port.h"
#include "core/host/sc_scene.h"
#include "core/host/sc_scenemarker.h"
#include "tests/core/support/refusingmanager.h"
#include "tests/core/support/standin.h"

#include <algorithm>
#include <memory>
#include <vector>

// A node and ports of no engine: they lack and refuse what the open engine's can't be made to.

/// Carries out nothing, and says so only for the labels that it refuses.
class SelectiveManager : public RefusingManager {
public:
    bool execute(CO_Command* command, const QString& label) override
    {
        labels.append(label);
        if (!refused.contains(label)) {
            delete command;
            return true;
        }
        return RefusingManager::execute(command, label);
    }

    QStringList refused;
    QStringList labels; ///< The labels of all commands.
};

class StandInSceneCommon : public SC_SceneCommon {
public:
    CO_CommandManager* commandManager() const override { return commands; }
    TUSceneChangeManager* changeManager() const override { return nullptr; }
    SC_TimedValueListInterface* timedValues() const override { return nullptr; }
    TUGroup* rootGroup() const override { return nullptr; }
    const SC_SceneMetrics* metrics() const override { return measures; }
    TUCameraModule* camera(bool) const override { return defaultCamera; }
    TUDisplayModule* defaultDisplay() const override { return shownBy; }
    const std::vector<SC_SceneMarker>& sceneMarkers() const override { return markers; }
    int getNumberOfFrames() const override { return 60; }
    int getStartFrame() const override { return 1; }
    int getStopFrame() const override { return 60; }
    QString generateNodeName(const QString& base, const TUGroup*) const override { return base; }

    CO_CommandManager* commands = nullptr;
    const SC_SceneMetrics* measures = nullptr;
    TUCameraModule* defaultCamera = nullptr;
    TUDisplayModule* shownBy = nullptr;
    std::vector<SC_SceneMarker> markers;
};

class StandInPort : public MO_Port {
public:
    StandInPort(MO_Node* node, unsigned int id) : m_id(id), m_node(node) {}

    unsigned int id() const override { return m_id; }
    MO_Node* node() const override { return lost ? nullptr : m_node; }
    QString typeName() const override { return type; }
    bool isMattePort() const override { return matte; }
    std::unique_ptr<MO_Port> clone() const override { return std::make_unique<StandInPort>(nullptr, 0); }
    bool isLinkable(const MO_Port*) const override { return linkable; }
    MO_Port* srcPort() const override { return source; }
    PortIterator dstPortsBegin() const override { return destinations.data(); }
    PortIterator dstPortsEnd() const override { return destinations.data() + destinations.size(); }
    MO_Port* realSrcPort() const override { return realSource; }
    MO_Node* realSrcNode() const override { return realSource ? realSource->node() : nullptr; }
    void realDstPorts(std::vector<MO_Port*>& ports) const override { ports = realDestinations; }

    QString type = QStringLiteral("IMAGE");
    bool matte = false;
    bool linkable = true;
    bool lost = false; ///< On no node.
    MO_Port* source = nullptr;
    MO_Port* realSource = nullptr;
    std::vector<MO_Port*> destinations;
    std::vector<MO_Port*> realDestinations;

private:
    unsigned int m_id;
    MO_Node* m_node;
};

/// A node with the ports that a test gives it. Null may stand for a port that isn't there.
class StandInNode : public StandIn<MO_Module> {
public:
    explicit StandInNode(SC_SceneCommon* scene = nullptr) : StandIn(scene) {}

    StandInPort* addIn() { return addTo(ins); }
    StandInPort* addOut() { return addTo(outs); }

    QString instanceName() const override { return QStringLiteral("StandIn"); }
    QString typeName() const override { return QStringLiteral("STAND_IN"); }
    void accept(MO_ModuleVisitor& visitor) override { visitor.visit(static_cast<MO_Module&>(*this)); }
    MO_Module* module() override { return this; }
    TUGroup* group() override { return nullptr; }
    int version() const override { return 1; }
    int versionMax() const override { return 1; }
    const MO_PortTransform* getPortTransformation(const MO_BaseContext&) const override { return transformation; }
    QColor getNodeColor() const override { return colour; }
    MO_PortMode portMode() const override { return mode; }
    unsigned int nInPorts() const override { return static_cast<unsigned int>(ins.size()); }
    unsigned int nOutPorts() const override { return static_cast<unsigned int>(outs.size()); }
    MO_Port* inPort(unsigned int index) const override { return index < ins.size() ? ins[index].get() : nullptr; }
    MO_Port* outPort(unsigned int index) const override { return index < outs.size() ? outs[index].get() : nullptr; }
    MO_Port* inPortFromId(unsigned int id) const override { return withId(ins, id); }
    MO_Port* outPortFromId(unsigned int id) const override { return withId(outs, id); }
    int inPortId(const MO_Port* port) const override { return placeOf(ins, port); }
    int outPortId(const MO_Port* port) const override { return placeOf(outs, port); }
    bool hasImageOutput() const override { return imageOutput; }

    using Ports = std::vector<std::unique_ptr<StandInPort>>;
    MO_PortMode mode = MO_FixedPorts;
    bool imageOutput = true;
    QColor colour;
    const MO_PortTransform* transformation = nullptr;
    bool placesKnown = true; ///< False: the node tells no port's place.
    Ports ins;
    Ports outs;

private:
    StandInPort* addTo(Ports& ports)
    {
        ports.push_back(std::make_unique<StandInPort>(this, m_nextId++));
        return ports.back().get();
    }
    static MO_Port* withId(const Ports& ports, unsigned int id)
    {
        const auto found =
            std::find_if(ports.begin(), ports.end(), [id](const auto& port) { return port && port->id() == id; });
        return found == ports.end() ? nullptr : found->get();
    }
    int placeOf(const Ports& ports, const MO_Port* port) const
    {
        const auto found =
            std::find_if(ports.begin(), ports.end(), [port](const auto& own) { return own && own.get() == port; });
        return !placesKnown || found == ports.end() ? -1 : static_cast<int>(found - ports.begin());
    }

    unsigned int m_nextId = 0;
};
