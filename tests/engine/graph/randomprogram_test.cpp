#include "tests/engine/support/memoryproject.h"

#include <random>

namespace {

/// A program of random commands on a graph. Many of them are refused, and that has to change nothing.
class RandomProgram {
public:
    RandomProgram(MemoryProject& project, unsigned int seed) : m_project(project), m_random(seed) {}

    void step()
    {
        switch (pick(14)) {
        case 0:
        case 1:
        case 2:
            m_project.add(type(), name(), group());
            break;
        case 3:
        case 4:
        case 5:
            m_project.link(node(), node(), pick(3), pick(3));
            break;
        case 6:
            m_project.run(new tu_node::UnlinkInPortFromOutsideCmd(node(), pick(3)));
            break;
        case 7:
            m_project.run(new tu_node::UnlinkOutPortFromOutsideCmd(node(), pick(2)));
            break;
        case 8:
            m_project.run(new tu_node::AddInPortCmd(node(), pick(3), port()));
            break;
        case 9:
            m_project.run(new tu_node::AddOutPortCmd(node(), pick(3), port()));
            break;
        case 10:
            if (pick(2))
                m_project.run(new tu_node::DeleteInPortCmd(node(), pick(3)));
            else
                m_project.run(new tu_node::DeleteOutPortCmd(node(), pick(3)));
            break;
        case 11:
            m_project.run(new tu_node::SetInstanceNameCmd(node(), name()));
            break;
        case 12:
            if (pick(2))
                m_project.run(new tu_node::SetXYZCmd(node(), number(), number(), number()));
            else
                m_project.run(new tu_node::EnabledNodeCmd(node(), pick(2)));
            break;
        default:
            if (pick(3) == 0)
                m_project.remove({node(), node(), node()}, pick(2), pick(2));
            else
                m_project.scene().setNumberOfFrames(number(), number(), true, true);
        }
    }

    unsigned int pick(unsigned int count)
    {
        return std::uniform_int_distribution<unsigned int>(0, count - 1)(m_random);
    }

private:
    int number() { return static_cast<int>(pick(80)) - 20; }
    QString type()
    {
        static const char* const types[] = {"PEG",  "READ",   "COMPOSITE",    "GROUP",         "GROUP",
                                            "BLUR", "CUTTER", "MULTIPORT_IN", "MULTIPORT_OUT", "DISPLAY"};
        return types[pick(std::size(types))];
    }
    QString name()
    {
        static const char* const names[] = {"A", "B", "A_1", "A_2", "B_01", "x/y", ""};
        return names[pick(std::size(names))];
    }
    MO_Node* node()
    {
        std::vector<MO_Node*> nodes;
        m_project.top()->getRecursiveSubNodeList(nodes);
        EXPECT_EQ(m_project.top()->nRecursiveSubNodes(), nodes.size());
        const std::size_t place = pick(static_cast<unsigned int>(nodes.size()) + 1);
        EXPECT_EQ(m_project.top()->recursiveSubNode(place), place < nodes.size() ? nodes[place] : nullptr);
        nodes.push_back(m_project.top());
        return nodes[pick(static_cast<unsigned int>(nodes.size()))];
    }
    TUGroup* group()
    {
        MO_Node* found = node();
        return found->group() ? found->group() : found->parentGroup();
    }
    std::unique_ptr<MO_Port> port() { return pick(2) ? MO_Port::createImagePort() : MO_Port::createMatrixPort(); }

    MemoryProject& m_project;
    std::mt19937 m_random;
};

class RandomProgramTest : public testing::TestWithParam<unsigned int>, public MemoryProject {};

} // namespace

TEST_P(RandomProgramTest, EveryStateComesBackByUndoAndByRedo)
{
    RandomProgram program(*this, GetParam());
    QStringList states{dump()};
    for (int i = 0; i < 400; ++i) {
        const int entries = manager().executedHistorySize();
        {
            CO_CommandAccumScope scope(&manager(), "Several", nullptr, CO_CommandAccumScope::kDefault);
            for (unsigned int count = program.pick(3); count > 0; --count)
                program.step();
            if (program.pick(6) == 0)
                scope.cancel();
            program.step();
        }
        const int added = manager().executedHistorySize() - entries;
        ASSERT_LE(added, 1);
        if (added == 1)
            states.append(dump());
        ASSERT_EQ(dump(), states.last()) << "refused commands changed something at step " << i;
    }
    ASSERT_GT(states.size(), 150);

    for (qsizetype i = states.size() - 1; i > 0; --i) {
        ASSERT_EQ(dump(), states[i]) << "before undo " << i;
        undo();
    }
    EXPECT_EQ(dump(), states.first());
    for (qsizetype i = 1; i < states.size(); ++i) {
        redo();
        ASSERT_EQ(dump(), states[i]) << "after redo " << i;
    }
    undo(100'000);
    EXPECT_EQ(dump(), states.first());
    redo(100'000);
    EXPECT_EQ(dump(), states.last());
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomProgramTest, testing::Range(1u, 31u));
