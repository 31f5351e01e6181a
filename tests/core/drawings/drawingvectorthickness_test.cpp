#include "core/drawings/drawingvectorthickness.h"

#include "core/drawings/drawingvectorthicknesspath.h"
#include "core/drawings/drawingvectorthicknesspathpoint.h"
#include "tests/core/support/properties.h"

#include <gtest/gtest.h>

namespace {

using OMC::DrawingVectorThickness;
using OMC::DrawingVectorThicknessPath;
using OMC::DrawingVectorThicknessPathPoint;
using OMC::Obj;

QVariant variantOf(OMC::BaseObject& object)
{
    return QVariant::fromValue<OMC::BaseObject*>(&object);
}

TEST(DrawingVectorThickness, ItsPropertiesAreWordForWord)
{
    const QMetaObject& base = OMC::BaseObject::staticMetaObject;
    expectProperties(DrawingVectorThickness::staticMetaObject, base,
                     {{"start_position", "double", true},
                      {"stop_position", "double", true},
                      {"start_tangent_left", "double", true},
                      {"start_tangent_right", "double", true},
                      {"stop_tangent_left", "double", true},
                      {"stop_tangent_right", "double", true},
                      {"thickness_path", "QVariant", true},
                      {"path", "QVariant", true}});
    expectProperties(DrawingVectorThicknessPath::staticMetaObject, base,
                     {{"empty", "bool", false},
                      {"thickness_constant", "bool", false},
                      {"closed", "bool", true},
                      {"thickness_min", "double", false},
                      {"thickness_min_inner", "double", false},
                      {"thickness_max", "double", false},
                      {"thickness_max_inner", "double", false},
                      {"tip_from_bezier", "QVariant", true},
                      {"tip_to_bezier", "QVariant", true}});
    expectProperties(DrawingVectorThicknessPathPoint::staticMetaObject, base,
                     {{"position", "double", true},
                      {"left_thickness", "double", true},
                      {"right_thickness", "double", true},
                      {"left_thickness_from_control", "double", true},
                      {"left_thickness_from_control_position", "double", true},
                      {"left_thickness_to_control", "double", true},
                      {"left_thickness_to_control_position", "double", true},
                      {"right_thickness_from_control", "double", true},
                      {"right_thickness_from_control_position", "double", true},
                      {"right_thickness_to_control", "double", true},
                      {"right_thickness_to_control_position", "double", true}});
}

TEST(DrawingVectorThicknessPath, ItSharesTheEnginesPathUntilItIsChanged)
{
    const auto engine = std::make_shared<const GR_ThicknessPath>(2);
    const std::unique_ptr<DrawingVectorThicknessPath> path(DrawingVectorThicknessPath::createShared(engine));
    EXPECT_EQ(path->path(), engine);
    const std::unique_ptr<DrawingVectorThicknessPath> copy(path->copy());
    EXPECT_EQ(copy->path(), engine);
    EXPECT_NE(DrawingVectorThicknessPath(engine.get()).path(), engine);
    EXPECT_TRUE(DrawingVectorThicknessPath(nullptr).getEmpty());

    path->set(0, 5.0);
    EXPECT_NE(path->path(), engine);
    EXPECT_EQ(copy->path(), engine);
    EXPECT_EQ(*engine, GR_ThicknessPath(2));
}

TEST(DrawingVectorThicknessPath, AFailedChangeKeepsTheVeryPath)
{
    DrawingVectorThicknessPath path;
    const GR_ThicknessPathPtr before = path.path();
    DrawingVectorThicknessPathPoint usable(0.5, 1);
    EXPECT_THROW(path.insert(QVariantList{variantOf(usable), QStringLiteral("a")}), OMC::Exception);
    EXPECT_EQ(path.path(), before);
    EXPECT_THROW(path.remove(0), OMC::Exception);
    EXPECT_EQ(path.path(), before);
}

TEST(DrawingVectorThicknessPath, TheLastOfEqualKeysGoesFirst)
{
    GR_ThicknessPath engine(2);
    const DrawingVectorThicknessPathPoint point(engine.thicknessKey(1));
    DrawingVectorThicknessPath path(&engine);
    DrawingVectorThicknessPathPoint other(point);
    path.remove(variantOf(other));
    EXPECT_EQ(path.size(), 1u);
    EXPECT_FALSE(path.contains(variantOf(other)));
}

TEST(DrawingVectorThickness, StrokesWithOnePathHoldOnePath)
{
    DrawingVectorThicknessPath path;
    path.insert(QVariantList{0.0, 3.0});
    DrawingVectorThickness one;
    DrawingVectorThickness other;
    one.setThicknessPath(variantOf(path));
    other.shareThickness(variantOf(one));
    EXPECT_TRUE(one.binder().isSharing(other.binder()));
    EXPECT_EQ(one.binder().thicknessPath(), path.path());
    path.set(0, 4.0);
    EXPECT_TRUE(one.binder().isSharing(other.binder()));
    EXPECT_EQ(one.binder().thicknessPath()->maxThickness(), 3);
}

} // namespace
