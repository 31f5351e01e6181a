#include "bench/support/project.h"

#include "core/host/mo_node.h"
#include "core/nodes/inport.h"
#include "core/nodes/node.h"
#include "core/nodes/nodelist.h"
#include "core/nodes/portlist.h"

#include <stdexcept>

namespace bench {

namespace {

std::unique_ptr<Project>& shared()
{
    static std::unique_ptr<Project> project;
    return project;
}

int sharedNodes = -1;

void check(const QString& error)
{
    if (!error.isEmpty())
        throw std::runtime_error(error.toStdString());
}

} // namespace

Project::Project(int nodes) : m_session(SC_SessionContext::create())
{
    QString error;
    projectManager().createProject(path(), error);
    check(error);
    if (nodes > 0)
        createNodes(nodes);
}

Project::~Project() = default;

Project& Project::ofSize(int nodes)
{
    if (!shared() || sharedNodes != nodes) {
        dropShared();
        shared() = std::make_unique<Project>(nodes);
        sharedNodes = nodes;
    }
    return *shared();
}

void Project::dropShared()
{
    shared().reset();
}

TUScene& Project::scene() const
{
    return dynamic_cast<TUScene&>(*projectManager().project()->sceneAt(0));
}

MO_Node& Project::node(int index) const
{
    MO_Node* node = scene().getRootGroup()->subNode(QStringLiteral("N%1").arg(index));
    if (!node)
        throw std::runtime_error("no such node");
    return *node;
}

void Project::createNodes(int count)
{
    OMC::History undoList = history();
    OMC::NodeList nodes(&scene(), false);
    const QString type = QStringLiteral("PEG");
    undoList.begin(QStringLiteral("create nodes"));
    std::unique_ptr<OMC::BaseObject> previous;
    for (int index = 0; index < count; ++index) {
        OMC::Obj created = nodes.create(type, QStringLiteral("N%1").arg(index));
        auto& node = require<OMC::Node>(created);
        if (previous) {
            const OMC::Obj ports = node.getPortsIn();
            const OMC::Obj port = require<OMC::PortList>(ports).get(0);
            require<OMC::InPort>(port).link(QVariant::fromValue<QObject*>(previous.get()));
        }
        previous.reset(created.releaseToCPP());
    }
    undoList.end();
}

void Project::reopen()
{
    QString error;
    projectManager().closeProject();
    projectManager().openProject(path(), error);
    check(error);
}

} // namespace bench
