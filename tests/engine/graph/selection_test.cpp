#include "core/host/sl_selection.h"

#include "tests/core/support/standins.h"
#include "tests/engine/support/memoryproject.h"

#include <vector>

namespace {

class SelectionTest : public GraphTest {};

} // namespace

TEST_F(SelectionTest, NodesAreSelectedOnceAndInOrder)
{
    MO_Node* a = add("PEG", "A");
    MO_Node* b = add("PEG", "B");
    SL_Selection selection(scene().changeManager());
    for (MO_Node* node : {b, a, b, static_cast<MO_Node*>(nullptr)})
        SL_SelectionUtil::addToSelection(selection, node);
    EXPECT_EQ(SL_SelectionUtil::getNodes(selection), (std::vector<MO_Node*>{b, a}));
    remove({b});
    EXPECT_EQ(SL_SelectionUtil::getNodes(selection), std::vector<MO_Node*>{a});
    undo();
    EXPECT_EQ(SL_SelectionUtil::getNodes(selection), std::vector<MO_Node*>{a});
    SL_SelectionUtil::clear(selection);
    EXPECT_TRUE(SL_SelectionUtil::getNodes(selection).empty());
}

TEST_F(SelectionTest, ChangesAreToldAndThoseOfABatchAsOne)
{
    StandInChangeManager changes;
    SL_Selection selection(&changes);
    SL_SelectionUtil::addToSelection(selection, top());
    EXPECT_EQ(changes.notices, 1);
    {
        const SL_Selection::BatchSelectionModeScope batch(&selection);
        SL_SelectionUtil::clear(selection);
        {
            const SL_Selection::BatchSelectionModeScope inner(&selection);
            SL_SelectionUtil::addToSelection(selection, top());
        }
        EXPECT_EQ(changes.notices, 1);
    }
    EXPECT_EQ(changes.notices, 2);
    {
        const SL_Selection::BatchSelectionModeScope batch(&selection);
    }
    SL_SelectionUtil::clear(selection);
    SL_SelectionUtil::clear(selection);
    EXPECT_EQ(changes.notices, 3);
}
