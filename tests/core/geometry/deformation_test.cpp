#include "core/geometry/deformation.h"

#include "core/geometry/vectors.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/matrices.h"
#include "tests/core/support/standindeformation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using OMC::Deformation;
using OMC::Point2d;
using OMC::Point3d;

constexpr bool inUnits = true;
constexpr bool inScene = false;

Deformation bending(std::initializer_list<float> strengths)
{
    std::vector<Deformation::VertexTransform> transforms;
    for (const float strength : strengths)
        transforms.emplace_back(new Bend(strength));
    return {nullptr, std::move(transforms), VS_CacheId()};
}

Point3d point3dIn(const QVariant& value)
{
    const auto* point = OMC::objectFrom<Point3d>(value);
    EXPECT_TRUE(point);
    return point ? *point : Point3d(-1, -1, -1);
}

TEST(DeformationTest, TellsHowManyDeformersItHas)
{
    EXPECT_EQ(bending({}).__str__(), "Deformation()[0]");
    EXPECT_EQ(bending({1, 2, 3}).__str__(), "Deformation()[3]");
}

TEST(DeformationTest, APointIsBent)
{
    const Deformation deformation = bending({0.5F});
    EXPECT_EQ(point3dIn(deformation.transform(QVariant::fromValue(Point2d(4, 1)), inUnits)), Point3d(4, 9, 0));
    EXPECT_EQ(point3dIn(deformation(QVariant::fromValue(Point2d(4, 1)), inUnits)), Point3d(4, 9, 0));
}

TEST(DeformationTest, InSceneUnitsThePointIsScaledForTheDeformersAndBack)
{
    Math::Matrix4x4 doubling;
    doubling.scale(2, 2, 2);
    const DeformScaling scaling(doubling);
    const Deformation deformation = bending({0.5F});
    EXPECT_EQ(point3dIn(deformation.transform(QVariant::fromValue(Point2d(4, 1)), inScene)), Point3d(4, 17, 0));
    EXPECT_EQ(point3dIn(deformation.transform(QVariant::fromValue(Point2d(4, 1)), inUnits)), Point3d(4, 9, 0));
}

TEST(DeformationTest, TheEnginesScalingKeepsSimplePointsExact)
{
    const Deformation deformation = bending({0.0F});
    EXPECT_EQ(point3dIn(deformation.transform(list({3.25, -0.5}), inScene)), Point3d(3.25, -0.5, 0));
}

TEST(DeformationTest, AScalingWithoutAnInverseIsUnexpected)
{
    Math::Matrix4x4 flat;
    flat.scale(1, 0, 1);
    const DeformScaling scaling(flat);
    const Deformation deformation = bending({1});
    EXPECT_EQ(failureOf([&] { deformation.transform(list({1, 2}), inScene); }), "An unexpected error has occurred.");
    EXPECT_EQ(failureOf([&] { deformation.transform(list({1, 2}), inUnits); }), "no exception");
}

TEST(DeformationTest, AValueIsOnePointOrMany)
{
    struct Row {
        const char* name;
        QVariant value;
        QList<Point3d> expected;
        bool many;
    };
    const QVariant point = QVariant::fromValue(Point2d(2, 0));
    const std::vector<Row> rows = {
        {"a point", point, {Point3d(2, 4)}, false},
        {"a number", 3, {Point3d(3, 12)}, false},
        {"nothing usable", QVariant(), {Point3d()}, false},
        {"a list of one number", list({2}), {Point3d(2, 4)}, false},
        {"of two", list({2.0, 1.0}), {Point3d(2, 5)}, false},
        {"of three", list({2, 1, 9}), {Point3d(2, 5)}, false},
        {"a number and a point, added up", list({1, point}), {Point3d(3, 9)}, false},
        {"four numbers are four points",
         list({1, 2, 3, 0}),
         {Point3d(1, 2), Point3d(2, 6), Point3d(3, 12), Point3d()},
         true},
        {"a list of one point", list({point}), {Point3d(2, 4)}, true},
        {"points and lists", list({point, list({1, 1})}), {Point3d(2, 4), Point3d(1, 2)}, true},
        {"a text and a number", list({QString("a"), 2}), {Point3d(), Point3d(2, 6)}, true},
        {"no points", list({}), {}, true},
    };
    const Deformation deformation = bending({1});
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const QVariant result = deformation.transform(row.value, inUnits);
        ASSERT_EQ(result.typeId() == QMetaType::QVariantList, row.many);
        const QList<QVariant> points = row.many ? result.toList() : QList<QVariant>{result};
        ASSERT_EQ(points.size(), row.expected.size());
        for (qsizetype i = 0; i < points.size(); ++i)
            EXPECT_EQ(point3dIn(points[i]), row.expected[i]) << point3dIn(points[i]).__str__();
    }
}

TEST(DeformationTest, TheDepthIsDropped)
{
    EXPECT_EQ(point3dIn(bending({0}).transform(QVariant::fromValue(Point3d(1, 2, 3)), inUnits)), Point3d(1, 2, 0));
}

TEST(DeformationTest, WithoutDeformersEveryPointGoesToTheOrigin)
{
    EXPECT_EQ(point3dIn(bending({}).transform(list({4, 5}), inScene)), Point3d());
    Math::Matrix4x4 shifting;
    shifting.translate(-3, -4, 0);
    const DeformScaling scaling(shifting);
    EXPECT_EQ(point3dIn(bending({}).transform(list({4, 5}), inScene)), Point3d(3, 4, 0));
}

TEST(DeformationTest, EachDeformerIsGivenTheSamePointsUnderOneNewId)
{
    Bend::caches.clear();
    const Deformation deformation = bending({1, 2});
    EXPECT_EQ(point3dIn(deformation.transform(list({1, 0}), inUnits)), Point3d(1, 2, 0)) << "the last one has the word";
    ASSERT_EQ(Bend::caches.size(), 2U);
    EXPECT_EQ(Bend::caches[0], Bend::caches[1]);
    deformation.transform(list({1, 0}), inUnits);
    EXPECT_NE(Bend::caches[2], Bend::caches[0]);
    deformation.transform(list({}), inUnits);
    EXPECT_EQ(Bend::caches.size(), 4U) << "without points none is called";
}

TEST(DeformationTest, PointsBeyondSinglePrecisionComeBackAsNoNumbers)
{
    const Deformation deformation = bending({0});
    for (const double beyond : {1e300, std::numeric_limits<double>::infinity(), std::nan("")}) {
        for (const bool units : {inUnits, inScene})
            EXPECT_FALSE(std::isfinite(point3dIn(deformation.transform(list({beyond, 1}), units)).x)) << beyond;
    }
}

TEST(DeformationTest, CopiesShareTheDeformersUntilTheLastOneGoes)
{
    const int before = Bend::alive;
    auto deformation = std::make_unique<Deformation>(bending({1, 2}));
    std::unique_ptr<OMC::BaseObject> copy(deformation->copy());
    EXPECT_EQ(Bend::alive, before + 2);
    deformation.reset();
    EXPECT_EQ(Bend::alive, before + 2);
    EXPECT_EQ(copy->__str__(), "Deformation()[2]");
    copy.reset();
    EXPECT_EQ(Bend::alive, before);
}

} // namespace
