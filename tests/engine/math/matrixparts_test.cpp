#include "core/host/math_matrix4x4.h"

#include "tests/engine/math/matrices.h"

#include <gtest/gtest.h>

#include <Imath/ImathMatrixAlgo.h>

#include <limits>
#include <numbers>

namespace {

using Math::Matrix4x4;
using Math::Vector3d;

constexpr int partRounds = 5000;
constexpr Vector3d xAxis{1, 0, 0};
constexpr Vector3d yAxis{0, 1, 0};
constexpr Vector3d zAxis{0, 0, 1};

/// A matrix in the plane, taken apart and put together again.
struct Plane {
    double tx = 7, ty = 7, tz = 7, sx = 7, sy = 7, rotation = 7, skew = 7;
    bool exact = false;

    static Plane of(const Matrix4x4& matrix, bool negativeX = false, bool negativeY = false, double px = 0,
                    double py = 0)
    {
        Plane p;
        p.exact =
            matrix.extractParameters(negativeX, negativeY, px, py, p.tx, p.ty, p.tz, p.sx, p.sy, p.rotation, p.skew);
        return p;
    }
    Matrix4x4 matrix(double px = 0, double py = 0) const
    {
        Matrix4x4 m;
        m.translate(tx, ty, tz);
        m.translate(px, py, 0);
        m.rotateDegrees(rotation, zAxis);
        m.skew(skew);
        m.scale(sx, sy, 1);
        m.translate(-px, -py, 0);
        return m;
    }
};

struct Space {
    double tx = 7, ty = 7, tz = 7, sx = 7, sy = 7, sz = 7, rx = 7, ry = 7, rz = 7;
    bool exact = false;

    static Space of(const Matrix4x4& matrix, double px = 0, double py = 0, double pz = 0)
    {
        Space p;
        p.exact = matrix.extractParameters(px, py, pz, p.tx, p.ty, p.tz, p.sx, p.sy, p.sz, p.rx, p.ry, p.rz);
        return p;
    }
    Matrix4x4 matrix(double px = 0, double py = 0, double pz = 0) const
    {
        Matrix4x4 m;
        m.translate(tx, ty, tz);
        m.translate(px, py, pz);
        m.rotateDegrees(rz, zAxis);
        m.rotateDegrees(ry, yAxis);
        m.rotateDegrees(rx, xAxis);
        m.scale(sx, sy, sz);
        m.translate(-px, -py, -pz);
        return m;
    }
};

TEST(MatrixParts, InThePlaneTheyGiveARandomMatrixBackForEveryChoiceOfSigns)
{
    RandomMatrices random(11);
    for (int round = 0; round < partRounds; ++round) {
        // Any four numbers are a linear part.
        const double cells[16] = {random.number(-9, 9),
                                  random.number(-9, 9),
                                  0,
                                  0,
                                  random.number(-9, 9),
                                  random.number(-9, 9),
                                  0,
                                  0,
                                  0,
                                  0,
                                  1,
                                  0,
                                  random.number(-9, 9),
                                  random.number(-9, 9),
                                  random.number(-9, 9),
                                  1};
        const Matrix4x4 matrix(cells);
        const double px = random.number(-9, 9);
        const double py = random.number(-9, 9);
        const bool mirrors = cells[0] * cells[5] - cells[1] * cells[4] < 0;
        for (const bool negativeX : {false, true}) {
            for (const bool negativeY : {false, true}) {
                const Plane parts = Plane::of(matrix, negativeX, negativeY, px, py);
                EXPECT_TRUE(parts.exact);
                expectNear(parts.matrix(px, py), matrix);
                EXPECT_EQ(parts.sx < 0, negativeX || (negativeY && !mirrors));
                EXPECT_EQ(parts.sx * parts.sy < 0, mirrors);
                EXPECT_LE(std::abs(parts.rotation), 180);
                EXPECT_LT(std::abs(parts.skew), 90);
            }
        }
    }
}

TEST(MatrixParts, InThePlaneTheyAreThePartsThatItWasMadeOf)
{
    RandomMatrices random(12);
    for (int round = 0; round < partRounds; ++round) {
        Plane made;
        made.tx = random.number(-9, 9);
        made.ty = random.number(-9, 9);
        made.tz = random.number(-9, 9);
        made.rotation = random.number(-179, 179);
        made.skew = random.number(-80, 80);
        made.sx = random.scale(true);
        made.sy = random.scale(true);
        const double px = random.number(-9, 9);
        const double py = random.number(-9, 9);
        const Plane parts = Plane::of(made.matrix(px, py), made.sx < 0, made.sy < 0, px, py);
        EXPECT_NEAR(parts.tx, made.tx, 1e-7);
        EXPECT_NEAR(parts.ty, made.ty, 1e-7);
        EXPECT_NEAR(parts.tz, made.tz, 1e-9);
        EXPECT_NEAR(parts.rotation, made.rotation, 1e-9);
        EXPECT_NEAR(parts.skew, made.skew, 1e-9);
        EXPECT_NEAR(parts.sx / made.sx, 1, 1e-9);
        EXPECT_NEAR(parts.sy / made.sy, 1, 1e-9);
    }
}

TEST(MatrixParts, AMirrorHasItsNegativeScaleWhereItIsAskedFor)
{
    Matrix4x4 mirror;
    mirror.scale(-1, 1, 1);
    const Plane byDefault = Plane::of(mirror);
    EXPECT_EQ(byDefault.sx, 1);
    EXPECT_EQ(byDefault.sy, -1);
    EXPECT_EQ(std::abs(byDefault.rotation), 180);
    const Plane asked = Plane::of(mirror, true);
    EXPECT_EQ(asked.sx, -1);
    EXPECT_EQ(asked.sy, 1);
    EXPECT_EQ(asked.rotation, 0);
}

TEST(MatrixParts, ACollapsedPlaneIsGivenBackWhereItCanBe)
{
    struct Row {
        const char* name;
        double xx, xy, yx, yy;
        bool exact;
    };
    const Row rows[] = {{"nothing", 0, 0, 0, 0, true},
                        {"no x axis", 0, 0, 3, 4, true},
                        {"no y axis", 3, 4, 0, 0, true},
                        {"both on one line", 1, 2, 2, 4, false}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const double cells[16] = {row.xx, row.xy, 0, 0, row.yx, row.yy, 0, 0, 0, 0, 1, 0, 1, 2, 3, 1};
        for (const bool negative : {false, true}) {
            const Plane parts = Plane::of(Matrix4x4(cells), negative, negative, 5, 6);
            EXPECT_EQ(parts.exact, row.exact);
            if (row.exact)
                expectNear(parts.matrix(5, 6), Matrix4x4(cells));
            EXPECT_FALSE(parts.matrix().hasNan());
        }
    }
}

TEST(MatrixParts, WhatReachesOutOfThePlaneIsTold)
{
    Matrix4x4 tilted;
    tilted.rotateDegrees(30, xAxis);
    EXPECT_FALSE(Plane::of(tilted).exact);
    Matrix4x4 thick;
    thick.scale(1, 1, 2);
    EXPECT_FALSE(Plane::of(thick).exact);
    Matrix4x4 projected;
    projected.perspectiveProject(40, 1, 1, 9);
    EXPECT_FALSE(Plane::of(projected).exact);
    EXPECT_FALSE(Space::of(projected).exact);
}

TEST(MatrixParts, InSpaceTheyGiveARandomMatrixBack)
{
    RandomMatrices random(13);
    for (int round = 0; round < partRounds; ++round) {
        Matrix4x4 matrix;
        matrix.translate(random.number(-9, 9), random.number(-9, 9), random.number(-9, 9));
        matrix.rotateDegrees(random.number(-360, 360), random.vector(1));
        matrix.scale(random.scale(true), random.scale(true), random.scale(true));
        const double px = random.number(-9, 9);
        const double py = random.number(-9, 9);
        const double pz = random.number(-9, 9);
        const Space parts = Space::of(matrix, px, py, pz);
        EXPECT_TRUE(parts.exact);
        expectNear(parts.matrix(px, py, pz), matrix);
        EXPECT_GT(parts.sx, 0);
        EXPECT_GT(parts.sz, 0);
        EXPECT_LE(std::abs(parts.ry), 90);
    }
}

TEST(MatrixParts, InSpaceTheyAreThePartsThatItWasMadeOf)
{
    RandomMatrices random(14);
    for (int round = 0; round < partRounds; ++round) {
        Space made;
        made.rx = random.number(-179, 179);
        made.ry = random.number(-89, 89);
        made.rz = random.number(-179, 179);
        made.sx = random.scale(false);
        made.sy = random.scale(true);
        made.sz = random.scale(false);
        const Space parts = Space::of(made.matrix());
        EXPECT_NEAR(parts.rx, made.rx, 1e-9);
        EXPECT_NEAR(parts.ry, made.ry, 1e-9);
        EXPECT_NEAR(parts.rz, made.rz, 1e-9);
        EXPECT_NEAR(parts.sx / made.sx, 1, 1e-9);
        EXPECT_NEAR(parts.sy / made.sy, 1, 1e-9);
        EXPECT_NEAR(parts.sz / made.sz, 1, 1e-9);
    }
}

TEST(MatrixParts, TheAnglesAreImathsInTheOrderXyz)
{
    RandomMatrices random(15);
    for (int round = 0; round < partRounds; ++round) {
        Matrix4x4 matrix;
        matrix.rotateDegrees(random.number(-360, 360), random.vector(1));
        Imath::M44d cells;
        matrix.getValues(cells.getValue());
        Imath::V3d angles;
        Imath::extractEulerXYZ(cells, angles);
        const Space parts = Space::of(matrix);
        EXPECT_NEAR(std::remainder(parts.rx - angles.x * 180 / std::numbers::pi, 360), 0, 1e-6);
        EXPECT_NEAR(std::remainder(parts.ry - angles.y * 180 / std::numbers::pi, 360), 0, 1e-6);
        EXPECT_NEAR(std::remainder(parts.rz - angles.z * 180 / std::numbers::pi, 360), 0, 1e-6);
    }
}

TEST(MatrixParts, ATurnThatPointsXAlongZIsGivenBackToo)
{
    for (const double ry : {90.0, -90.0}) {
        for (const double rx : {0.0, 30.0, -120.0}) {
            for (const double rz : {0.0, 50.0, 170.0}) {
                Space made;
                made.tx = made.ty = made.tz = 0;
                made.sx = 2;
                made.sy = made.sz = 3;
                made.rx = rx;
                made.ry = ry;
                made.rz = rz;
                const Space parts = Space::of(made.matrix());
                EXPECT_TRUE(parts.exact);
                EXPECT_EQ(parts.rz, 0);
                expectNear(parts.matrix(), made.matrix());
            }
        }
    }
}

TEST(MatrixParts, ACollapsedSpaceIsGivenBackWhereItsAxesAreAtRightAngles)
{
    RandomMatrices random(16);
    for (int round = 0; round < partRounds; ++round) {
        for (int zeros = 0; zeros < 8; ++zeros) {
            Matrix4x4 matrix;
            matrix.rotateDegrees(random.number(-360, 360), random.vector(1));
            matrix.scale(zeros & 1 ? 0 : random.scale(true), zeros & 2 ? 0 : random.scale(true),
                         zeros & 4 ? 0 : random.scale(true));
            const Space parts = Space::of(matrix, 1, 2, 3);
            EXPECT_TRUE(parts.exact);
            expectNear(parts.matrix(1, 2, 3), matrix);
        }
    }
}

TEST(MatrixParts, AxesAtOtherAnglesAreTold)
{
    Matrix4x4 skewed;
    skewed.skew(20);
    EXPECT_FALSE(Space::of(skewed).exact);
    const double line[16] = {1, 2, 3, 0, 2, 4, 6, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    const Space parts = Space::of(Matrix4x4(line));
    EXPECT_FALSE(parts.exact);
    EXPECT_EQ(parts.sy, 0);
    EXPECT_FALSE(parts.matrix().hasNan());
}

TEST(MatrixParts, TheHomogeneousScaleIsDividedOut)
{
    const double doubled[16] = {4, 0, 0, 0, 0, 6, 0, 0, 0, 0, 2, 0, 8, 10, 12, 2};
    const Plane plane = Plane::of(Matrix4x4(doubled));
    EXPECT_TRUE(plane.exact);
    EXPECT_EQ(plane.sx, 2);
    EXPECT_EQ(plane.sy, 3);
    EXPECT_EQ(plane.tz, 6);
    const Space space = Space::of(Matrix4x4(doubled));
    EXPECT_TRUE(space.exact);
    EXPECT_EQ(space.sz, 1);
    EXPECT_EQ(space.tx, 4);
    double none[16];
    Matrix4x4().getValues(none);
    none[15] = 0;
    EXPECT_FALSE(Plane::of(Matrix4x4(none)).exact);
    EXPECT_FALSE(Space::of(Matrix4x4(none)).exact);
}

TEST(MatrixParts, ACellThatIsntFiniteGivesThePartsOfTheIdentity)
{
    for (const double cell : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        for (std::size_t i = 0; i < 16; ++i) {
            double cells[16];
            Matrix4x4().getValues(cells);
            cells[i] = cell;
            const Plane plane = Plane::of(Matrix4x4(cells), false, false, 3, 4);
            EXPECT_FALSE(plane.exact);
            EXPECT_TRUE(plane.matrix().isIdentity());
            const Space space = Space::of(Matrix4x4(cells), 3, 4, 5);
            EXPECT_FALSE(space.exact);
            EXPECT_TRUE(space.matrix().isIdentity());
            EXPECT_TRUE(Matrix4x4(cells).rotation().isIdentity());
            EXPECT_FALSE(Matrix4x4(cells).hasRotation());
        }
    }
}

TEST(MatrixParts, HugeAndTinyScalesAreGivenBack)
{
    for (const double size : {1e-300, 1e-150, 1e150, 1e300}) {
        Matrix4x4 matrix;
        matrix.rotateDegrees(30, zAxis);
        matrix.scale(size, -size, size);
        const Space space = Space::of(matrix);
        EXPECT_TRUE(space.exact) << size;
        EXPECT_NEAR(space.sx / size, 1, 1e-12);
        EXPECT_NEAR(space.sy / size, -1, 1e-12);
        EXPECT_NEAR(space.rz, 30, 1e-12);
        const Plane plane = Plane::of(matrix);
        EXPECT_NEAR(plane.sx / size, 1, 1e-12);
        EXPECT_NEAR(plane.rotation, 30, 1e-12);
    }
}

TEST(MatrixParts, TheRotationIsTheTurnAlone)
{
    RandomMatrices random(17);
    for (int round = 0; round < partRounds; ++round) {
        Matrix4x4 turn;
        turn.rotateDegrees(random.number(-360, 360), random.vector(1));
        Matrix4x4 matrix;
        matrix.translate(1, 2, 3);
        matrix = matrix * turn;
        matrix.scale(random.scale(false), random.scale(false), random.scale(false));
        expectNear(matrix.rotation(), turn);
        EXPECT_TRUE(matrix.hasRotation());
    }
    Matrix4x4 skewed;
    skewed.skew(30);
    skewed.scale(2, 3, 4);
    EXPECT_TRUE(skewed.rotation().isIdentity());
    EXPECT_FALSE(skewed.hasRotation());
}

} // namespace
