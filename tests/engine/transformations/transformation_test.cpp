#include "core/host/cc_transformation.h"
#include "core/host/gr_deform.h"
#include "core/host/mo_porttransform.h"
#include "core/host/vs_cacheid.h"

#include <gtest/gtest.h>

namespace {

/// A deformation that moves the drawing sideways.
class Shift : public MO_Deformation {
public:
    Shift(unsigned int id, double way) : m_id(id), m_way(way) {}

    unsigned int id() const override { return m_id; }
    Math::Matrix4x4 matrix() const override
    {
        Math::Matrix4x4 matrix;
        matrix.translate(m_way, 0, 0);
        return matrix;
    }

private:
    unsigned int m_id;
    double m_way;
};

CC_Transformation::Deformation shift(unsigned int id, double way)
{
    return CC_Transformation::Deformation(new Shift(id, way));
}

Math::Matrix4x4 grown(double factor)
{
    Math::Matrix4x4 matrix;
    matrix.scale(factor, factor, factor);
    return matrix;
}

std::vector<unsigned int> idsOf(const CC_Transformation& transformation)
{
    std::vector<MO_Deformation*> deformations;
    transformation.allDeformations(deformations);
    std::vector<unsigned int> ids;
    for (const MO_Deformation* deformation : deformations)
        ids.push_back(deformation->id());
    return ids;
}

TEST(PortTransform, ADetachedOneIsTheIdentityAndNotSet)
{
    const MO_PortTransform transform(nullptr, MO_FrameKey(1.0));
    EXPECT_FALSE(transform.isTransformationSet());
    EXPECT_TRUE(transform.transformation().matrix(false).isIdentity());
    EXPECT_FALSE(transform.transformation().hasDeformation());
    EXPECT_EQ(transform.depth(), 0);
    EXPECT_EQ(transform.key().frame(), 1.0);
    EXPECT_TRUE(transform.isAt(nullptr));
}

TEST(PortTransform, IsSetByAnyMatrixAndClearedAltogether)
{
    MO_PortTransform transform(nullptr, MO_FrameKey(1.0));
    transform.transformation().set(Math::Matrix4x4());
    EXPECT_TRUE(transform.isTransformationSet());
    transform.transformation().addDeformation(shift(1, 2));
    transform.setDepth(4);
    transform.clear();
    EXPECT_EQ(transform, MO_PortTransform(nullptr, MO_FrameKey(1.0)));
}

TEST(PortTransform, TwoAreEqualWhenFrameDepthMatrixAndDeformationsAre)
{
    const MO_PortTransform one(nullptr, MO_FrameKey(1.0));
    EXPECT_EQ(one, MO_PortTransform(nullptr, MO_FrameKey(1.0)));
    EXPECT_FALSE(one == MO_PortTransform(nullptr, MO_FrameKey(2.0)));
    MO_PortTransform deeper = one;
    deeper.setDepth(1);
    EXPECT_FALSE(one == deeper);
    MO_PortTransform moved = one;
    moved.transformation().set(grown(2));
    EXPECT_FALSE(one == moved);
    MO_PortTransform bent = one;
    bent.transformation().addDeformation(shift(1, 2));
    EXPECT_FALSE(one == bent);
    EXPECT_EQ(bent, MO_PortTransform(bent)) << "copies share the deformations";
}

TEST(Transformation, MatricesAreAddedFromTheRight)
{
    CC_Transformation transformation;
    transformation.set(grown(2));
    Math::Matrix4x4 move;
    move.translate(1, 0, 0);
    transformation.add(move);
    EXPECT_EQ(transformation.matrix(false).origin(), (Math::Point3d{2, 0, 0}));
}

TEST(Transformation, WhatADeformationDoesToADrawingAsAWholeIsLeftOutUnlessAskedFor)
{
    CC_Transformation transformation;
    transformation.set(grown(2));
    transformation.addDeformation(shift(1, 3));
    transformation.addDeformation(shift(2, 4));
    EXPECT_EQ(transformation.matrix(false), grown(2));
    EXPECT_EQ(transformation.matrix(true).origin(), (Math::Point3d{14, 0, 0}));
}

TEST(Transformation, AddingAnotherTakesItsDeformationsAlong)
{
    CC_Transformation one;
    one.set(grown(2));
    one.addDeformation(shift(1, 0));
    CC_Transformation two;
    two.set(grown(3));
    two.addDeformation(shift(2, 0));
    one.addTransformation(two);
    EXPECT_EQ(one.matrix(false), grown(6));
    EXPECT_EQ(idsOf(one), (std::vector<unsigned int>{1, 2}));
    one.addTransformation(one);
    EXPECT_EQ(one.matrix(false), grown(36));
    EXPECT_EQ(idsOf(one), (std::vector<unsigned int>{1, 2, 1, 2}));
}

TEST(Transformation, DeformationsAreResetById)
{
    CC_Transformation transformation;
    for (const unsigned int id : {3U, 1U, 3U, 2U})
        transformation.addDeformation(shift(id, 0));
    transformation.resetAllDeformation(3);
    EXPECT_EQ(idsOf(transformation), (std::vector<unsigned int>{1, 2}));
    transformation.resetAllDeformation(9);
    EXPECT_TRUE(transformation.hasDeformation());
    transformation.resetAllDeformation(1);
    transformation.resetAllDeformation(2);
    EXPECT_FALSE(transformation.hasDeformation());
}

TEST(Deform, TheScalingHasAnExactInverse)
{
    const Math::Matrix4x4 scaling = GR_Deform::implicitScalingMatrix();
    EXPECT_FALSE(scaling.isIdentity());
    EXPECT_TRUE((scaling * scaling.getInverse()).isIdentity());
}

TEST(CacheId, NoTwoAreTheSame)
{
    const VS_CacheId one;
    const VS_CacheId two;
    EXPECT_FALSE(one == two);
    EXPECT_EQ(one, VS_CacheId(one));
    EXPECT_LT(one.value(), two.value());
    EXPECT_LT(two.value(), VS_CacheId::next_cache_id);
}

} // namespace
