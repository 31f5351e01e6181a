#include "core/nodes/pegnode.h"

#include "tests/core/support/graph.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

class PegNodeTest : public GraphTest {};

TEST_F(PegNodeTest, TheNamesThatSetItsTransformationAreShown)
{
    MO_Node* node = add(QStringLiteral("PEG"), QStringLiteral("Peg"));
    const std::unique_ptr<OMC::Node> peg(OMC::Node::getWrapped(node));
    const struct {
        std::string name;
        bool shown;
    } rows[] = {
        {"set_pivot", true},      {"set_matrix", true},  {"set_translation", true}, {"set_rotation", true},
        {"set_scale", true},      {"set_skew", true},    {"set_name", false},       {"get_name", false},
        {"set_", false},          {"get_matrix", false}, {"matrix", true},          {"attributes", true},
        {"set_pivot_now", false},
    };
    for (const auto& row : rows) {
        std::string name = row.name;
        EXPECT_EQ(peg->filterDir(name), row.shown) << row.name;
        EXPECT_EQ(name, row.name);
    }
    const std::unique_ptr<OMC::Node> other(OMC::Node::getWrapped(this->node(QStringLiteral("Top/Composite"))));
    std::string pivot = "set_pivot";
    EXPECT_FALSE(other->filterDir(pivot));
}

TEST_F(PegNodeTest, NothingGivesAnInvalidPeg)
{
    const OMC::PegNode peg(nullptr);
    EXPECT_FALSE(peg.getValid());
    EXPECT_FALSE(OMC::PegNode(peg).getValid());
}

} // namespace
