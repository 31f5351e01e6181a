#include "core/geometry/transformation.h"

#include "core/geometry/deformation.h"
#include "core/geometry/matrix.h"
#include "core/geometry/vectors.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/matrices.h"
#include "tests/core/support/standindeformation.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <numbers>

namespace {

using OMC::Deformation;
using OMC::Matrix;
using OMC::Obj;
using OMC::Point3d;
using OMC::Transformation;
using OMC::Vector3d;

const std::string invalidSet = "Failed to set the matrix - transformation is invalid.";
const std::string invalidRead = "Transformation is invalid.";

/// One that is invalid all its life.
class InvalidTransformation : public Transformation {
public:
    InvalidTransformation() : Transformation(std::unique_ptr<MO_PortTransform>()) {}
};

Math::Matrix4x4 matrixIn(const Obj& handle)
{
    const auto* matrix = OMC::objectIn<Matrix>(handle);
    EXPECT_TRUE(matrix);
    return matrix ? matrix->getMatrix() : Math::Matrix4x4();
}

Math::Matrix4x4 matrixOf(const Transformation& transformation)
{
    return Matrix::valueOf(transformation.getMatrix());
}

/// A port's transformation with deformations of the given ids, in that order.
MO_PortTransform deformed(std::initializer_list<unsigned int> ids)
{
    MO_PortTransform transform(nullptr, MO_FrameKey(1.0));
    for (const unsigned int id : ids)
        transform.transformation().addDeformation(CC_Transformation::Deformation(new BendDeformation(id, 1)));
    return transform;
}

std::vector<unsigned int> idsOf(const Transformation& transformation)
{
    std::vector<MO_Deformation*> deformations;
    transformation.getPortTransform()->transformation().allDeformations(deformations);
    std::vector<unsigned int> ids;
    for (const MO_Deformation* deformation : deformations)
        ids.push_back(deformation->id());
    return ids;
}

TEST(TransformationTest, StartsDetachedAtFrameOneAndNotSet)
{
    for (const Transformation& transformation : {Transformation(), Transformation(nullptr)}) {
        EXPECT_FALSE(transformation.getValid());
        EXPECT_EQ(transformation.getDepth(), 0);
        EXPECT_TRUE(matrixOf(transformation).isIdentity());
        ASSERT_TRUE(transformation.getPortTransform());
        EXPECT_EQ(*transformation.getPortTransform(), MO_PortTransform(nullptr, MO_FrameKey(1.0)));
        EXPECT_EQ(transformation.__str__(), "Transformation()");
    }
}

TEST(TransformationTest, IsACopyOfAPorts)
{
    MO_PortTransform transform(nullptr, MO_FrameKey(7.0));
    transform.setDepth(3);
    transform.transformation().set(scaled(2));
    Transformation transformation(&transform);
    EXPECT_EQ(*transformation.getPortTransform(), transform);
    transformation.scale(2, 2, 2);
    EXPECT_TRUE(transform.transformation().matrix(false).compare(scaled(2))) << "the port's own stays as it is";
}

TEST(TransformationTest, ACopyIsEqualUntilOneOfThemChanges)
{
    Transformation one;
    one.translate(1, 2, 3);
    one.setDepth(4);
    Transformation copy(one);
    const std::unique_ptr<OMC::BaseObject> clone(one.copy());
    EXPECT_TRUE(copy == one);
    EXPECT_TRUE(dynamic_cast<Transformation&>(*clone) == one);
    copy.setDepth(5);
    EXPECT_FALSE(copy == one);
    copy = one;
    EXPECT_TRUE(copy == one);
    copy.scale(2, 2, 2);
    EXPECT_FALSE(copy == one);
}

TEST(TransformationTest, TravelsInsideAVariantByValue)
{
    Transformation transformation;
    transformation.translate(1, 2, 3);
    const QVariant value = QVariant::fromValue(transformation);
    transformation.reset();
    EXPECT_TRUE(matrixOf(*OMC::objectFrom<Transformation>(value)).compare(moved(1, 2, 3)));
    EXPECT_TRUE(Matrix::valueOf(value).compare(moved(1, 2, 3))) << "a matrix is read from it";
}

TEST(TransformationTest, IsValidOnceAnythingWasSet)
{
    Transformation transformation;
    transformation.set(QVariant());
    EXPECT_TRUE(transformation.getValid());
    transformation.reset();
    EXPECT_FALSE(transformation.getValid());
    transformation.multiply(2);
    EXPECT_TRUE(transformation.getValid());
}

TEST(TransformationTest, TheMatrixIsReplaced)
{
    Transformation transformation;
    transformation.scale(2, 2, 2);
    transformation.setMatrix(list({1, 2}));
    EXPECT_TRUE(matrixOf(transformation).compare(moved(1, 2, 0)));
    transformation.set(QVariant::fromValue(Matrix(scaled(3))));
    EXPECT_TRUE(matrixOf(transformation).compare(scaled(3)));
    EXPECT_TRUE(transformation.setProperty("matrix", 4));
    EXPECT_TRUE(Matrix::valueOf(transformation.property("matrix")).compare(scaled(4)));
}

TEST(TransformationTest, StepsAreAddedFromTheRight)
{
    Transformation transformation;
    Math::Matrix4x4 expected;
    transformation.translate(1, 2, 3);
    expected.translate(1, 2, 3);
    transformation.scale(2, 3, 4);
    expected.scale(2, 3, 4);
    transformation.translate(QVariant::fromValue(Vector3d(5, 6, 7)));
    expected.translate(5, 6, 7);
    transformation.skew(10);
    expected.skew(10);
    transformation.rotateDegrees(30, QVariant());
    expected.rotateDegrees(30, {0, 0, 1});
    transformation.rotateDegrees(30, list({1, 0, 0}));
    expected.rotateDegrees(30, {1, 0, 0});
    transformation.rotateRadians(std::numbers::pi, list({0, 1, 0}));
    expected.rotateRadians(std::numbers::pi, {0, 1, 0});
    transformation.multiply(list({8, 9}));
    expected.translate(8, 9, 0);
    for (std::size_t i = 0; i < 16; ++i)
        EXPECT_NEAR(matrixOf(transformation).cells()[i], expected.cells()[i], 1e-12) << "cell " << i;
    const Obj origin = transformation.getOrigin();
    EXPECT_EQ(OMC::objectIn<Point3d>(origin)->x, matrixOf(transformation).origin().x);
}

TEST(TransformationTest, AddJoinsATransformationWithItsDeformationsAndMultipliesByAnythingElse)
{
    MO_PortTransform bent = deformed({4, 5});
    bent.transformation().set(scaled(2));
    Transformation transformation;
    transformation.add(list({1, 2}));
    transformation.add(QVariant::fromValue(Transformation(&bent)));
    EXPECT_TRUE(matrixOf(transformation).compare(moved(1, 2, 0) * scaled(2)));
    EXPECT_EQ(idsOf(transformation), (std::vector<unsigned int>{4, 5}));
    transformation.add(QVariant::fromValue<QObject*>(&transformation));
    EXPECT_EQ(idsOf(transformation), (std::vector<unsigned int>{4, 5, 4, 5}));
    InvalidTransformation invalid;
    EXPECT_EQ(failureOf([&] { transformation.add(QVariant::fromValue<QObject*>(&invalid)); }), invalidRead);
    EXPECT_EQ(idsOf(transformation).size(), 4U);
}

TEST(TransformationTest, MultiplyTakesTheMatrixOfATransformationAlone)
{
    MO_PortTransform bent = deformed({4});
    bent.transformation().set(scaled(2));
    Transformation transformation;
    transformation.multiply(QVariant::fromValue(Transformation(&bent)));
    EXPECT_TRUE(matrixOf(transformation).compare(scaled(2)));
    EXPECT_FALSE(transformation.getDeformationValid());
}

TEST(TransformationTest, TheInverseIsANewMatrix)
{
    Transformation transformation;
    transformation.translate(1, 2, 3);
    EXPECT_TRUE(matrixIn(transformation.matrixInversed()).compare(moved(-1, -2, -3)));
    EXPECT_TRUE(matrixOf(transformation).compare(moved(1, 2, 3)));
    transformation.scale(1, 0, 1);
    EXPECT_EQ(failureOf([&] { transformation.matrixInversed(); }), "Matrix cannot be inverted.");
}

TEST(TransformationTest, ResetClearsTheMatrixTheDepthAndTheDeformations)
{
    MO_PortTransform bent = deformed({4});
    bent.setDepth(3);
    Transformation transformation(&bent);
    transformation.reset();
    EXPECT_TRUE(transformation == Transformation());
}

TEST(TransformationTest, BadArgumentsLeaveItAsItIs)
{
    Transformation transformation;
    transformation.translate(1, 2, 3);
    const Transformation before(transformation);
    EXPECT_EQ(failureOf([&] { transformation.translate(QVariant()); }), "Failed to identify vector argument.");
    for (const double number : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(failureOf([&] { transformation.translate(0, number, 0); }), "Invalid argument at index 1.");
        EXPECT_EQ(failureOf([&] { transformation.scale(0, 0, number); }), "Invalid argument at index 2.");
        EXPECT_EQ(failureOf([&] { transformation.skew(number); }), "Invalid argument at index 0.");
        EXPECT_EQ(failureOf([&] { transformation.rotateDegrees(number, QVariant()); }), "Invalid argument at index 0.");
        EXPECT_EQ(failureOf([&] { transformation.rotateRadians(number, QVariant()); }), "Invalid argument at index 0.");
    }
    EXPECT_TRUE(transformation == before);
}

TEST(TransformationTest, AnInvalidOneFailsInItsWordsOrStaysSilent)
{
    InvalidTransformation invalid;
    EXPECT_FALSE(invalid.getValid());
    EXPECT_EQ(invalid.getDepth(), 0);
    invalid.setDepth(4);
    EXPECT_EQ(invalid.getDepth(), 0);
    invalid.reset();
    EXPECT_EQ(invalid.getPortTransform(), nullptr);
    EXPECT_EQ(invalid.__str__(), "Transformation()");

    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::pair<const char*, std::function<void()>> calls[] = {
        {"setMatrix", [&] { invalid.setMatrix(2); }},
        {"set", [&] { invalid.set(2); }},
        {"multiply", [&] { invalid.multiply(2); }},
        {"add", [&] { invalid.add(QVariant::fromValue(Transformation())); }},
        {"translate", [&] { invalid.translate(1, 2, nan); }},
        {"translate by a vector", [&] { invalid.translate(QVariant()); }},
        {"scale", [&] { invalid.scale(1, 2, 3); }},
        {"skew", [&] { invalid.skew(1); }},
        {"rotateDegrees", [&] { invalid.rotateDegrees(1, QVariant()); }},
        {"rotateRadians", [&] { invalid.rotateRadians(1, QVariant()); }},
        {"getOrigin", [&] { invalid.getOrigin(); }},
        {"getDeformationValid", [&] { invalid.getDeformationValid(); }},
        {"deformationReset", [&] { invalid.deformationReset(); }},
        {"matrixWithDeformation", [&] { invalid.matrixWithDeformation(); }},
        {"matrixInversed", [&] { invalid.matrixInversed(); }},
    };
    for (const auto& [name, call] : calls)
        EXPECT_EQ(failureOf(call), invalidSet) << name;
    EXPECT_EQ(failureOf([&] { invalid.getMatrix(); }), invalidRead);
    EXPECT_EQ(failureOf([&] { invalid.getDeformation(); }), invalidRead);
    EXPECT_EQ(failureOf([&] { Matrix(QVariant::fromValue<QObject*>(&invalid)); }), invalidRead);
}

TEST(TransformationTest, CopiesOfAnInvalidOneAreInvalidAndEqual)
{
    const InvalidTransformation invalid;
    Transformation copy(invalid);
    EXPECT_EQ(copy.getPortTransform(), nullptr);
    EXPECT_TRUE(copy == invalid);
    EXPECT_FALSE(copy == Transformation());
    EXPECT_FALSE(Transformation() == copy);
    copy = Transformation();
    EXPECT_TRUE(copy == Transformation());
}

TEST(TransformationTest, WithoutDeformationsThereIsNoDeformation)
{
    const Transformation transformation;
    EXPECT_FALSE(transformation.getDeformationValid());
    EXPECT_EQ(transformation.getDeformation().get(), nullptr);
}

TEST(TransformationTest, WhatADeformationDoesAsAWholeIsTold)
{
    MO_PortTransform bent = deformed({4, 5});
    bent.transformation().set(scaled(2));
    const Transformation transformation(&bent);
    EXPECT_TRUE(transformation.getDeformationValid());
    EXPECT_TRUE(matrixIn(transformation.matrixWithDeformation()).compare(scaled(2) * moved(9, 0, 0)));
    EXPECT_TRUE(matrixOf(transformation).compare(scaled(2)));
}

TEST(TransformationTest, TheDeformersAreThoseOfTheDeformationsThatCanAct)
{
    MO_PortTransform transform(nullptr, MO_FrameKey(1.0));
    const auto add = [&](MO_Deformation* deformation) {
        transform.transformation().addDeformation(CC_Transformation::Deformation(deformation));
    };
    auto* off = new BendDeformation(1, 1);
    off->isEnabled = false;
    auto* hidden = new BendDeformation(2, 2);
    hidden->isDrawn = false;
    auto* still = new BendDeformation(3, 3);
    still->movesPoints = false;
    add(off);
    add(new BendDeformation(4, 10));
    add(new PlainDeformation(5));
    add(hidden);
    add(new BendDeformation(6, 20));
    add(still);

    BendDeformation::caches.clear();
    const int renderers = BendDeformation::renderers;
    const Transformation transformation(&transform);
    const Obj deformation = transformation.getDeformation();
    EXPECT_EQ(deformation.get()->__str__(), "Deformation()[2]");
    EXPECT_EQ(BendDeformation::renderers, renderers + 1) << "only the last renderer stays";
    ASSERT_EQ(BendDeformation::caches.size(), 3U);
    EXPECT_EQ(BendDeformation::caches.front(), BendDeformation::caches.back());
    const QVariant bent = OMC::objectIn<Deformation>(deformation)->transform(list({1, 0}), true);
    EXPECT_EQ(*OMC::objectFrom<Point3d>(bent), Point3d(1, 20, 0));
}

TEST(TransformationTest, DeformationsOfWhichNoneActsGiveADeformationWithoutDeformers)
{
    MO_PortTransform transform(nullptr, MO_FrameKey(1.0));
    transform.transformation().addDeformation(CC_Transformation::Deformation(new PlainDeformation));
    const Transformation transformation(&transform);
    EXPECT_EQ(transformation.getDeformation().get()->__str__(), "Deformation()[0]");
}

TEST(TransformationTest, TheDeformationIsOneSharedObjectUntilItIsReset)
{
    const MO_PortTransform bent = deformed({4});
    Transformation transformation(&bent);
    const Obj first = transformation.getDeformation();
    const Obj second = transformation.getDeformation();
    EXPECT_TRUE(first.hasRealOwner());
    EXPECT_EQ(first.get(), second.get());
    EXPECT_EQ(first.get()->getOwnership(), OMC::OwnedByNative);
    const Transformation copy(transformation);
    EXPECT_NE(copy.getDeformation().get(), first.get()) << "a copy has one of its own";
    transformation.deformationReset();
    EXPECT_EQ(transformation.getDeformation().get(), nullptr);
}

TEST(TransformationTest, ACopyOfTheDeformationOutlivesTheTransformation)
{
    const int alive = Bend::alive;
    std::unique_ptr<OMC::BaseObject> copy;
    {
        const MO_PortTransform bent = deformed({4});
        const Transformation transformation(&bent);
        copy.reset(transformation.getDeformation().get()->copy());
    }
    EXPECT_EQ(Bend::alive, alive + 1);
    EXPECT_TRUE(dynamic_cast<Deformation&>(*copy).transform(list({1, 1}), false).isValid());
    copy.reset();
    EXPECT_EQ(Bend::alive, alive);
}

TEST(TransformationTest, DeformationResetDropsEachIdOnce)
{
    const MO_PortTransform bent = deformed({9, 2, 9, 5});
    Transformation transformation(&bent);
    transformation.translate(1, 2, 3);
    transformation.deformationReset();
    EXPECT_FALSE(transformation.getDeformationValid());
    EXPECT_TRUE(matrixOf(transformation).compare(moved(1, 2, 3)));
    EXPECT_EQ(bent.transformation().hasDeformation(), true) << "the port's own stay";
    transformation.deformationReset();
    EXPECT_FALSE(transformation.getDeformationValid());
}

TEST(TransformationTest, ItsPropertiesStandInTheirOrderAndAnswer)
{
    const MO_PortTransform bent = deformed({4});
    Transformation transformation(&bent);
    bool extendNative = false;
    bool filter = false;
    EXPECT_EQ(transformation.getDir(extendNative, filter),
              (std::vector<std::string>{"objectName", "depth", "valid", "matrix", "deformation_valid", "deformation",
                                        "origin"}));
    EXPECT_TRUE(transformation.setProperty("depth", 6));
    EXPECT_EQ(transformation.property("depth"), QVariant(6));
    EXPECT_EQ(transformation.property("valid"), QVariant(true));
    EXPECT_EQ(transformation.property("deformation_valid"), QVariant(true));
    EXPECT_EQ(OMC::objectFrom<Deformation>(transformation.property("deformation"))->__str__(), "Deformation()[1]");
    EXPECT_EQ(*OMC::objectFrom<Point3d>(transformation.property("origin")), Point3d());
    EXPECT_FALSE(transformation.setProperty("valid", false));
}

} // namespace
