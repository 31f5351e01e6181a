#include "tests/engine/support/memoryproject.h"

#include "core/host/mo_backdrop.h"

#include <QTextStream>

namespace {

QString end(const MO_Port* port)
{
    if (!port)
        return QStringLiteral("-");
    const MO_Node* node = port->node();
    const int in = node->inPortId(port);
    return node->qualifiedName() +
           (in >= 0 ? QStringLiteral("<%1").arg(in) : QStringLiteral(">%1").arg(node->outPortId(port)));
}

void dumpPort(QTextStream& out, const char* side, const MO_Port& port)
{
    out << "  " << side << port.id() << ' ' << port.typeName() << (port.isMattePort() ? " matte" : "");
    if (port.srcPort())
        out << " from " << end(port.srcPort());
    if (port.realSrcPort() != port.srcPort())
        out << " really " << end(port.realSrcPort());
    for (auto to = port.dstPortsBegin(); to != port.dstPortsEnd(); ++to)
        out << " to " << end(*to);
    out << '\n';
}

} // namespace

MemoryProject::MemoryProject() : m_project(std::make_unique<brindle::engine::Project>(QStringLiteral("/never/on/disk")))
{
    m_project->addFirstScene();
}

MO_Node* MemoryProject::node(const QString& path)
{
    return node_util::getNodeFromQualifiedName_optimized(scene().sceneCommon(), path);
}

bool MemoryProject::run(CO_Command* command, const QString& label)
{
    return manager().execute(command, label);
}

MO_Node* MemoryProject::add(const QString& type, const QString& name, TUGroup* group)
{
    bool flag = true;
    MO_Node* node = type == QLatin1String("GROUP") ? static_cast<MO_Node*>(TUGroup::create())
                                                   : TUGroup::createNode(type, 0, 0, 0, flag, nullptr);
    if (!node)
        return nullptr;
    node->setScene(scene().sceneCommon());
    if (!name.isNull())
        node->setInstanceName(name);
    return run(new tu_node::AddSubNodeCmd(group ? group : top(), node), QStringLiteral("Add ") + name) ? node : nullptr;
}

TUGroup* MemoryProject::addGroup(const QString& name, TUGroup* group)
{
    MO_Node* node = add(QStringLiteral("GROUP"), name, group);
    return node ? node->group() : nullptr;
}

bool MemoryProject::link(MO_Node* from, MO_Node* to, unsigned int outIndex, unsigned int inIndex)
{
    return run(new tu_node::LinkCmd(to, inIndex, from, outIndex), QStringLiteral("Link"));
}

bool MemoryProject::remove(const std::set<MO_Node*>& nodes, bool columns, bool bridge)
{
    SU_CleanUpCommands::DeleteStrategy strategy;
    strategy.deleteTimedValues = columns;
    return SU_CleanUpCommands::removeNodes(&scene(), nodes, strategy, bridge);
}

QString MemoryProject::dump()
{
    QString text;
    QTextStream out(&text);
    out << "frames " << scene().getNumberOfFrames() << ' ' << scene().getStartFrame() << ' ' << scene().getStopFrame()
        << ' ' << scene().frameRate().fps() << '\n';
    std::vector<MO_Node*> nodes;
    top()->getRecursiveSubNodeList(nodes);
    nodes.insert(nodes.begin(), top());
    for (const MO_Node* node : nodes) {
        out << node->qualifiedName() << ' ' << node->typeName() << ' ' << node->x() << ',' << node->y() << ','
            << node->z() << (node->isEnabled() ? "" : " off") << '\n';
        for (unsigned int i = 0; i < node->nInPorts(); ++i)
            dumpPort(out, "in", *node->inPort(i));
        for (unsigned int i = 0; i < node->nOutPorts(); ++i)
            dumpPort(out, "out", *node->outPort(i));
        if (const TUGroup* group = const_cast<MO_Node*>(node)->group()) {
            for (const std::shared_ptr<MO_Backdrop>& backdrop : group->backdrops()) {
                const MO_BackdropProperties& properties = backdrop->properties();
                out << "  backdrop " << properties.title.text << ' ' << properties.rect.left << ' '
                    << properties.colour.name(QColor::HexArgb) << '\n';
            }
        }
    }
    out << "columns";
    for (auto column = scene().timedValuesBegin(); column != scene().timedValuesEnd(); ++column)
        out << ' ' << (*column)->getName() << '/' << (*column)->getNumLinks();
    out << '\n';
    out.flush();
    return text;
}

QStringList MemoryProject::names(TUGroup* group)
{
    QStringList names;
    for (auto node = group->subNodesBegin(); node != group->subNodesEnd(); ++node)
        names.append((*node)->instanceName());
    return names;
}
