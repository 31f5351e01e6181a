#pragma once

#include "core/frame/obj.h"
#include "core/host/mo_port.h"
#include "core/host/tu_node.h"
#include "tests/core/support/openproject.h"

#include <stdexcept>

/// An object as a script passes it: the script keeps it.
inline QVariant asArgument(const OMC::BaseObject& object)
{
    return QVariant::fromValue(static_cast<QObject*>(const_cast<OMC::BaseObject*>(&object)));
}

/// The object of a property that is read, under the class that the test expects; null when it is another.
template <typename T>
const T* readAs(const QVariant& value)
{
    return OMC::objectFrom<T>(value);
}

/// A project whose graph is set up by commands that leave no entry: the undo list begins with what the test does.
class GraphTest : public ProjectTest {
protected:
    MO_Node* add(const QString& type, const QString& name, TUGroup* group = nullptr)
    {
        bool flag = true;
        if (type == QLatin1String("GROUP"))
            return added(TUGroup::create(), name, group);
        return added(TUGroup::createNode(type, 0, 0, 0, flag, nullptr), name, group);
    }

    TUGroup* addGroup(const QString& name, TUGroup* group = nullptr)
    {
        return add(QStringLiteral("GROUP"), name, group)->group();
    }

    /// A group with an in-port and an out-port of images, and the node `inside` between them.
    TUGroup* addPassage(const QString& name)
    {
        TUGroup* group = addGroup(name);
        MO_Node* entry = added(TUMultiPortIn::create(), QStringLiteral("Entry"), group);
        MO_Node* exit = added(TUMultiPortOut::create(), QStringLiteral("Exit"), group);
        prepare(new tu_node::AddInPortCmd(group, 0, MO_Port::createImagePort()));
        prepare(new tu_node::AddOutPortCmd(group, 0, MO_Port::createImagePort()));
        MO_Node* inside = add(QStringLiteral("BLUR"), QStringLiteral("Inside"), group);
        link(entry, 0, inside, 0);
        link(inside, 0, exit, 0);
        return group;
    }

    void link(MO_Node* from, unsigned int outIndex, MO_Node* to, unsigned int inIndex)
    {
        prepare(new tu_node::LinkCmd(to, inIndex, from, outIndex, nullptr));
    }

    void removeNode(MO_Node* node)
    {
        SU_CleanUpCommands::removeNodes(scene(), {node}, false);
        manager().clearHistory();
    }

    void prepare(CO_Command* command)
    {
        if (!manager().execute(command, QString()))
            throw std::runtime_error("the graph could not be set up");
        manager().clearHistory();
    }

private:
    MO_Node* added(MO_Node* node, const QString& name, TUGroup* group)
    {
        TUGroup* parent = group ? group : top();
        node->setScene(sceneCommon());
        node->setInstanceName(name);
        prepare(new tu_node::AddSubNodeCmd(parent, node));
        return node;
    }
};
