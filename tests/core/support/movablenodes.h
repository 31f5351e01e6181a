#pragma once

#include "core/nodes/node.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/graph.h"

#include <functional>
#include <memory>
#include <string>

/// Top: Display, Composite, Body (Multi-Port-In, Arm (Hand), Leg), Peg, Bare. Bare has no multi-port node.
class NodeMoveTest : public GraphTest {
protected:
    static std::unique_ptr<OMC::Node> wrapped(MO_Node* node)
    {
        return std::unique_ptr<OMC::Node>(OMC::Node::getWrapped(node));
    }
    std::unique_ptr<OMC::Node> wrapped(const char* path) const { return wrapped(node(QString::fromLatin1(path))); }

    /// A call that changes the project: its label, one entry, and undo and redo to the byte.
    void expectMove(const std::function<void()>& call, const QString& label)
    {
        const std::string before = saved().toStdString();
        const QStringList entries = labels();
        ASSERT_EQ(failureOf(call), "no exception");
        EXPECT_EQ(labels(), entries + QStringList(label));
        const std::string after = saved().toStdString();
        for (int round = 0; round < 3; ++round) {
            undo();
            EXPECT_EQ(saved().toStdString(), before);
            redo();
            EXPECT_EQ(saved().toStdString(), after);
        }
    }

    /// A call that fails: its sentence, and nothing changed that can be undone, redone or saved.
    void expectFailure(const std::function<void()>& call, const std::string& sentence)
    {
        const std::string before = saved().toStdString();
        const QStringList entries = labels();
        const QStringList redoEntries = redoLabels();
        EXPECT_EQ(failureOf(call), sentence);
        EXPECT_EQ(saved().toStdString(), before);
        EXPECT_EQ(labels(), entries);
        EXPECT_EQ(redoLabels(), redoEntries);
    }

    QStringList names(TUGroup* group) const
    {
        QStringList names;
        for (auto node = group->subNodesBegin(); node != group->subNodesEnd(); ++node)
            names.append((*node)->instanceName());
        return names;
    }

    static OMC::Obj borrowed(OMC::Node& node)
    {
        node.setOwnership(OMC::OwnedByNative);
        return OMC::Obj(&node);
    }

    const QString moveLabel = QStringLiteral("Move to Group");
    const QString pathLabel = QStringLiteral("Changing the node path");
    TUGroup* body = addGroup(QStringLiteral("Body"));
    MO_Node* bodyEntry = add(QStringLiteral("MULTIPORT_IN"), QStringLiteral("Multi-Port-In"), body);
    TUGroup* arm = addGroup(QStringLiteral("Arm"), body);
    MO_Node* hand = add(QStringLiteral("READ"), QStringLiteral("Hand"), arm);
    MO_Node* leg = add(QStringLiteral("PEG"), QStringLiteral("Leg"), body);
    MO_Node* peg = add(QStringLiteral("PEG"), QStringLiteral("Peg"));
    TUGroup* bare = addGroup(QStringLiteral("Bare"));
};
