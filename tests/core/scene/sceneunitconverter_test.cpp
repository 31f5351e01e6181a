#include "core/scene/sceneunitconverter.h"

#include "core/geometry/vectors.h"
#include "core/scene/scene.h"
#include "tests/core/support/changetest.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/otherthread.h"
#include "tests/core/support/standinmetrics.h"
#include "tests/core/support/standins.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace {

using OMC::Point2d;
using OMC::Point3d;
using OMC::SceneUnitConverter;

const char* const noPoint = "Unable to convert the point.";
const char* const noAxis = "Invalid axis provided -- only X,Y,Z is allowed.";

class SceneUnitConverterTest : public ChangeTest {
protected:
    SceneUnitConverterTest() : converter(scene()) {}

    SceneUnitConverter converter;
};

/// With metrics whose factors are primes.
class UnitFactorsTest : public testing::Test {
protected:
    UnitFactorsTest() : converter(&scene) { scene.measures = &metrics; }

    StandInMetrics metrics;
    StandInScene scene;
    SceneUnitConverter converter;
};

TEST_F(UnitFactorsTest, APointInSpaceGivesAPointInSpace)
{
    const QVariant field = converter.toField(asArgument(Point3d(1, 1, 1)));
    ASSERT_NE(readAs<Point3d>(field), nullptr);
    EXPECT_EQ(*readAs<Point3d>(field), Point3d(2, 3, 6));
    const QVariant ogl = converter.toOgl(asArgument(Point3d(1, 1, 1)));
    EXPECT_EQ(*readAs<Point3d>(ogl), Point3d(7, 11, 14));
}

TEST_F(UnitFactorsTest, APointInThePlaneGivesAPointInThePlaneWithoutItsDepth)
{
    const QVariant field = converter.toField(asArgument(Point2d(1, 1)));
    ASSERT_NE(readAs<Point2d>(field), nullptr);
    EXPECT_EQ(*readAs<Point2d>(field), Point2d(2, 3));
    EXPECT_STREQ(readAs<Point2d>(field)->metaObject()->className(), "OMC::Point2d");
    EXPECT_EQ(*readAs<Point2d>(converter.toOgl(asArgument(Point2d(1, 1)))), Point2d(7, 11));
}

TEST_F(UnitFactorsTest, APointInAHandleOrByValueIsTakenToo)
{
    for (const QVariant& value :
         {QVariant::fromValue(OMC::Obj(new Point3d(1, 1, 1))), QVariant::fromValue(Point3d(1, 1, 1))})
        EXPECT_EQ(*readAs<Point3d>(converter.toField(value)), Point3d(2, 3, 6));
}

TEST_F(UnitFactorsTest, WhatThePointReaderReadsGivesAPointInSpace)
{
    const std::pair<QVariant, Point3d> rows[] = {
        {QVariantList{1, 1, 1}, Point3d(2, 3, 6)}, {QVariantList{1, 1}, Point3d(2, 3, 1)},
        {QVariantList{}, Point3d(0, 0, 1)},        {1.0, Point3d(2, 3, 6)},
        {QStringLiteral("x"), Point3d(0, 0, 1)},   {QVariant(), Point3d(0, 0, 1)},
        {QVariantMap{{"x", 1}}, Point3d(0, 0, 1)},
    };
    for (const auto& [value, point] : rows)
        EXPECT_EQ(*readAs<Point3d>(converter.toField(value)), point) << value.typeName();
}

TEST_F(UnitFactorsTest, AVectorIsConvertedAndThenRefused)
{
    EXPECT_EQ(failureOf([&] { converter.toField(asArgument(OMC::Vector3d(1, 2, 3))); }), noPoint);
    EXPECT_EQ(failureOf([&] { converter.toField(asArgument(OMC::Vector2d(1, 2))); }), noPoint);
    EXPECT_EQ(failureOf([&] { converter.toOgl(asArgument(OMC::Vector3d(1, 2, 3))); }), noPoint);
    EXPECT_EQ(failureOf([&] { converter.toOgl(asArgument(OMC::Vector2d(1, 2))); }), noPoint);
    EXPECT_EQ(metrics.conversions, 4);
}

TEST_F(UnitFactorsTest, AnObjectThatIsNoPointIsRefused)
{
    const OMC::Scene other(&scene);
    EXPECT_EQ(failureOf([&] { converter.toField(asArgument(other)); }), noPoint);
    EXPECT_EQ(failureOf([&] { converter.toOgl(asArgument(converter)); }), noPoint);
    EXPECT_EQ(metrics.conversions, 0);
}

TEST_F(UnitFactorsTest, ACoordinateTakesTheFactorOfItsAxis)
{
    const std::tuple<const char*, double, double> rows[] = {
        {"x", 2, 7}, {"y", 3, 11}, {"z", 5, 13}, {"X", 2, 7}, {"Y", 3, 11}, {"Z", 5, 13},
    };
    for (const auto& [axis, field, ogl] : rows) {
        EXPECT_EQ(converter.toField(1.0, QString::fromLatin1(axis)), field) << axis;
        EXPECT_EQ(converter.toOgl(1.0, QString::fromLatin1(axis)), ogl) << axis;
        EXPECT_EQ(converter.toOgl(-0.5, QString::fromLatin1(axis)), -0.5 * ogl) << axis;
    }
}

TEST_F(UnitFactorsTest, AnyOtherAxisIsRefused)
{
    for (const QString& axis : {QStringLiteral("w"), QStringLiteral("xy"), QStringLiteral(" x"), QStringLiteral("0"),
                                QString(), QStringLiteral("х")}) {
        EXPECT_EQ(failureOf([&] { converter.toField(1.0, axis); }), noAxis) << axis.toStdString();
        EXPECT_EQ(failureOf([&] { converter.toOgl(1.0, axis); }), noAxis) << axis.toStdString();
    }
}

TEST_F(UnitFactorsTest, WithoutMetricsItIsInvalidBeforeTheArgumentIsRead)
{
    scene.measures = nullptr;
    EXPECT_EQ(failureOf([&] { converter.toField(asArgument(converter)); }), objectGone);
    EXPECT_EQ(failureOf([&] { converter.toOgl(QVariant(1.0)); }), objectGone);
    EXPECT_EQ(failureOf([&] { converter.toField(1.0, QStringLiteral("w")); }), objectGone);
    EXPECT_EQ(failureOf([&] { converter.toOgl(1.0, QStringLiteral("x")); }), objectGone);
}

TEST_F(SceneUnitConverterTest, TheWayThereAndBackIsTheSamePoint)
{
    const QVariant ogl = converter.toOgl(asArgument(Point3d(6, -3, 2)));
    const auto* there = readAs<Point3d>(ogl);
    ASSERT_NE(there, nullptr);
    EXPECT_DOUBLE_EQ(there->x, 6.0 * (4.0 / 3.0) / 12.0);
    EXPECT_DOUBLE_EQ(there->y, -0.25);
    const QVariant back = converter.toField(asArgument(*there));
    EXPECT_DOUBLE_EQ(readAs<Point3d>(back)->x, 6.0);
    EXPECT_DOUBLE_EQ(readAs<Point3d>(back)->y, -3.0);
    EXPECT_DOUBLE_EQ(readAs<Point3d>(back)->z, 2.0);
}

TEST_F(SceneUnitConverterTest, ConvertingChangesNothing)
{
    leaves([&] { converter.toField(asArgument(Point2d(1, 1))); });
    leaves([&] { converter.toOgl(1.0, QStringLiteral("Z")); });
}

TEST_F(SceneUnitConverterTest, ItHasNoPropertiesAndAFixedText)
{
    EXPECT_EQ(converter.metaObject()->propertyCount(), OMC::BaseObject::staticMetaObject.propertyCount());
    EXPECT_EQ(converter.__str__(), "SceneUnitConverter()");
    const std::unique_ptr<OMC::BaseObject> copy(converter.copy());
    ASSERT_NE(dynamic_cast<SceneUnitConverter*>(copy.get()), nullptr);
    EXPECT_EQ(dynamic_cast<SceneUnitConverter&>(*copy).toOgl(12.0, QStringLiteral("y")), 1.0);
}

TEST_F(SceneUnitConverterTest, OnceTheSceneIsGoneItSaysSo)
{
    close();
    const Point2d point(1, 1);
    EXPECT_EQ(failureOf([&] { converter.toField(asArgument(point)); }), objectGone);
    EXPECT_EQ(failureOf([&] { converter.toOgl(asArgument(point)); }), objectGone);
    EXPECT_EQ(failureOf([&] { converter.toField(1.0, QStringLiteral("w")); }), objectGone);
    EXPECT_EQ(failureOf([&] { converter.toOgl(1.0, QStringLiteral("x")); }), objectGone);
    EXPECT_EQ(converter.__str__(), "SceneUnitConverter()");
}

TEST_F(SceneUnitConverterTest, NoThreadIsAsked)
{
    const Point2d point(1, 1);
    EXPECT_EQ(failuresOnOtherThread(
                  {[&] { converter.toField(asArgument(point)); }, [&] { converter.toOgl(1.0, QStringLiteral("x")); }}),
              std::vector<std::string>(2, "no exception"));
}

} // namespace
