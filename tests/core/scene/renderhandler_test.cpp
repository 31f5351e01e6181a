#include "core/scene/renderhandler.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

TEST(RenderHandlerTest, ACopyIsANewOne)
{
    OMC::RenderHandler handler;
    handler.setOwnership(OMC::OwnedByPython);
    const std::unique_ptr<OMC::BaseObject> copy(handler.copy());
    ASSERT_NE(dynamic_cast<OMC::RenderHandler*>(copy.get()), nullptr);
    EXPECT_NE(copy.get(), &handler);
    EXPECT_EQ(copy->getOwnership(), OMC::Unowned);
    EXPECT_EQ(copy->__str__(), "RenderHandler()");
}

} // namespace
