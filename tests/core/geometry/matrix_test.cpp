#include "core/geometry/matrix.h"

#include "core/geometry/vectors.h"
#include "tests/core/support/countedobject.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/matrices.h"
#include "tests/support/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace {

using OMC::Matrix;
using OMC::Obj;
using OMC::Point2d;
using OMC::Point3d;
using OMC::Vector2d;
using OMC::Vector3d;

const std::string noInverse = "Matrix cannot be inverted.";

template <typename T>
T valueIn(const QVariant& value)
{
    const T* object = OMC::objectFrom<T>(value);
    EXPECT_TRUE(object);
    return object ? *object : T();
}

void expectNear(const Math::Matrix4x4& matrix, const Math::Matrix4x4& expected)
{
    for (std::size_t i = 0; i < 16; ++i)
        EXPECT_NEAR(matrix.cells()[i], expected.cells()[i], 1e-12) << "cell " << i;
}

TEST(MatrixTest, StartsAsTheIdentity)
{
    const Matrix matrix;
    EXPECT_TRUE(matrix.getIdentity());
    EXPECT_EQ(cellsOf(matrix), (QList<double>{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}));
}

TEST(MatrixTest, ACopyIsEqualAndStandsAlone)
{
    Matrix matrix(scaled(2));
    ++matrix;
    Matrix copy(matrix);
    const std::unique_ptr<OMC::BaseObject> clone(matrix.copy());
    matrix.reset();
    EXPECT_TRUE(copy.getMatrix().compare(scaled(2)));
    EXPECT_TRUE(dynamic_cast<Matrix&>(*clone).getMatrix().compare(scaled(2)));
    EXPECT_EQ(copy.__iterItem__().toDouble(), 2) << "its iteration starts anew";
    matrix = copy;
    EXPECT_TRUE(matrix.getMatrix().compare(scaled(2)));
}

TEST(MatrixTest, TravelsInsideAVariantByValue)
{
    const QVariant value = QVariant::fromValue(Matrix(scaled(3)));
    EXPECT_TRUE(OMC::objectFrom<Matrix>(value)->getMatrix().compare(scaled(3)));
}

TEST(MatrixTest, IsBuiltFromAnAxisAndAnOrigin)
{
    EXPECT_TRUE(Matrix(QVariant(), QVariant()).getIdentity());
    const Matrix moved(QVariant(), QList<QVariant>{1, 2, 3});
    EXPECT_EQ(valueIn<Point3d>(moved.getOrigin()), Point3d(1, 2, 3));
    const Matrix turned(QVariant::fromValue(Vector3d(-5, 0, 0)), QVariant());
    EXPECT_EQ(valueIn<Vector3d>(turned.getYAxis()), Vector3d(-1, 0, 0));
    EXPECT_EQ(valueIn<Vector3d>(turned.getXAxis()), Vector3d(0, 1, 0));
}

TEST(MatrixTest, ACellIsReadByItsIndex)
{
    const Matrix matrix(numbers(16));
    for (int index = 0; index < 16; ++index)
        EXPECT_EQ(matrix.get(index), QVariant(index + 1.0));
    EXPECT_EQ(matrix.size(), 16);
    for (const int index : {-1, 16, 17, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        EXPECT_EQ(failureOf([&] { matrix.get(index); }), indexOutOfRange) << index;
}

TEST(MatrixTest, SettingACellChangesNothing)
{
    Matrix matrix(scaled(2));
    matrix.set(3, 9.0);
    matrix.set(0, QString("no number"));
    EXPECT_TRUE(matrix.getMatrix().compare(scaled(2)));
    for (const int index : {-1, 16, std::numeric_limits<int>::max()})
        EXPECT_EQ(failureOf([&] { matrix.set(index, 0); }), indexOutOfRange) << index;
    EXPECT_TRUE(matrix.getMatrix().compare(scaled(2)));
}

TEST(MatrixTest, ListCutsTheCellsOffToWholeNumbers)
{
    Matrix turned;
    turned.rotateDegrees(30, QVariant());
    EXPECT_EQ(turned.list(), (QList<int>{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}));
    Matrix odd(cells({1.9, -1.9, nan, infinity, -infinity, 1e300, -1e300, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    constexpr int highest = std::numeric_limits<int>::max();
    constexpr int lowest = std::numeric_limits<int>::min();
    EXPECT_EQ(odd.list(), (QList<int>{1, -1, 0, highest, lowest, highest, lowest, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(MatrixTest, AnIterationSeesFifteenCells)
{
    const Matrix matrix(numbers(16));
    const Obj iterator = matrix.__iter__();
    auto& cell = *OMC::objectIn<Matrix>(iterator);
    int count = 0;
    for (; !cell.__atend__(); ++cell)
        EXPECT_EQ(cell.__iterItem__(), QVariant(++count + 0.0));
    EXPECT_EQ(count, 15);
    ++cell;
    EXPECT_EQ(cell.__iterItem__(), QVariant(16.0)) << "it stays there";
    EXPECT_TRUE(cell.__atend__());
    EXPECT_FALSE(OMC::objectIn<Matrix>(cell.__iter__())->__atend__()) << "another iteration starts at the first cell";
    EXPECT_FALSE(matrix.__atend__());
}

TEST(MatrixTest, ReadsAsFourLinesOfNineColumns)
{
    EXPECT_EQ(Matrix().__str__(), "Matrix(         1,         0,         0,         0,\n"
                                  "                0,         1,         0,         0,\n"
                                  "                0,         0,         1,         0,\n"
                                  "                0,         0,         0,         1 )");
}

TEST(MatrixTest, ALongNumberIsCutToNineColumns)
{
    const Matrix matrix(cells({1.0 / 3, -123456.789, 1e-300, nan, infinity, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 100}));
    EXPECT_EQ(matrix.__str__(), "Matrix(  0.333333,   -123457,    1e-300,       nan,\n"
                                "              inf,         0,         0,         0,\n"
                                "                0,         0,         0,         0,\n"
                                "                0,         0,         0,       100 )");
    EXPECT_NE(
        Matrix(cells({-1.23457e-100, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0})).__str__().find("( -1.23457e,"),
        std::string::npos);
}

TEST(MatrixTest, TheAxesAndTheOriginAreReadAndWritten)
{
    Matrix matrix(numbers(16));
    EXPECT_EQ(valueIn<Vector3d>(matrix.getXAxis()), Vector3d(1, 2, 3));
    EXPECT_EQ(valueIn<Vector3d>(matrix.getYAxis()), Vector3d(5, 6, 7));
    EXPECT_EQ(valueIn<Vector3d>(matrix.getZAxis()), Vector3d(9, 10, 11));
    EXPECT_EQ(valueIn<Point3d>(matrix.getOrigin()), Point3d(13, 14, 15));
    matrix.setXAxis(list({-1, -2, -3}));
    matrix.setYAxis(QVariant::fromValue(Vector2d(-5, -6)));
    matrix.setZAxis(-9);
    matrix.setOrigin(QVariant::fromValue(Matrix(moved(7, 8, 9))));
    EXPECT_EQ(cellsOf(matrix), (QList<double>{-1, -2, -3, 4, -5, -6, 0, 8, -9, -9, -9, 12, 7, 8, 9, 16}));
    matrix.setXAxis(QString("nothing"));
    EXPECT_EQ(valueIn<Vector3d>(matrix.getXAxis()), Vector3d());
}

TEST(MatrixTest, IdentityIsWrittenByTrueOnly)
{
    Matrix matrix(scaled(2));
    matrix.setIdentity(false);
    EXPECT_FALSE(matrix.getIdentity());
    matrix.setIdentity(true);
    EXPECT_TRUE(matrix.getIdentity());
}

TEST(MatrixTest, StepsAreAddedFromTheRight)
{
    Matrix matrix;
    matrix.translate(10, 0, 0);
    matrix.scale(2, 2, 2);
    EXPECT_EQ(valueIn<Point3d>(matrix.apply(QVariant::fromValue(Point3d(1, 1, 1)))), Point3d(12, 2, 2));
    matrix.reset();
    matrix.translate(QVariant::fromValue(Vector2d(1, 2)));
    matrix.translate(list({1, 2, 3}));
    EXPECT_EQ(valueIn<Point3d>(matrix.getOrigin()), Point3d(2, 4, 3));
    matrix.reset();
    matrix.multiply(list({1, 2}));
    matrix.multiply(3);
    EXPECT_TRUE(matrix.getMatrix().compare(moved(1, 2, 0) * scaled(3)));
    matrix.reset();
    matrix.skew(45);
    EXPECT_NEAR(matrix.get(4).toDouble(), 1, 1e-15);
}

TEST(MatrixTest, ARotationIsAboutZUnlessAnAxisIsGiven)
{
    Matrix degrees;
    degrees.rotateDegrees(90, QVariant());
    EXPECT_EQ(valueIn<Vector3d>(degrees.getXAxis()), Vector3d(0, 1, 0));
    Matrix radians;
    radians.rotateRadians(std::numbers::pi / 2, QVariant());
    expectNear(radians.getMatrix(), degrees.getMatrix());
    Matrix about;
    about.rotateDegrees(90, list({4, 0, 0}));
    EXPECT_EQ(valueIn<Vector3d>(about.getYAxis()), Vector3d(0, 0, 1));
    about.rotateRadians(-std::numbers::pi / 2, QVariant::fromValue(Vector3d(1, 0, 0)));
    expectNear(about.getMatrix(), Math::Matrix4x4());
    about.reset();
    about.rotateDegrees(90, list({}));
    EXPECT_TRUE(about.getIdentity()) << "an axis without length";
}

TEST(MatrixTest, TheRotationAloneIsANewMatrix)
{
    Matrix matrix;
    matrix.translate(1, 2, 3);
    matrix.rotateDegrees(90, QVariant());
    matrix.scale(2, 3, 4);
    const Obj rotation = matrix.matrixRotation();
    Matrix expected;
    expected.rotateDegrees(90, QVariant());
    EXPECT_TRUE(OMC::objectIn<Matrix>(rotation)->getMatrix().compare(expected.getMatrix()));
    EXPECT_TRUE(matrix.getRotationExists());
    EXPECT_FALSE(Matrix(scaled(2)).getRotationExists());
}

TEST(MatrixTest, TheInverseUndoesIt)
{
    Matrix matrix;
    matrix.translate(1, 2, 3);
    matrix.rotateDegrees(25, list({1, 1, 0}));
    matrix.scale(2, -3, 0.5);
    const Obj inverse = matrix.getInverse();
    expectNear(matrix.getMatrix() * OMC::objectIn<Matrix>(inverse)->getMatrix(), Math::Matrix4x4());
    Matrix inverted(matrix);
    inverted.inverse();
    EXPECT_TRUE(inverted.getMatrix().compare(OMC::objectIn<Matrix>(inverse)->getMatrix()));
}

TEST(MatrixTest, WithoutAnInverseItStaysAsItIs)
{
    for (const double factor : {0.0, nan, infinity}) {
        Matrix matrix(cells({factor, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 4, 5, 6, 1}));
        EXPECT_TRUE(matrix.getSingular());
        EXPECT_EQ(failureOf([&] { matrix.getInverse(); }), noInverse);
        EXPECT_EQ(failureOf([&] { matrix.inverse(); }), noInverse);
        EXPECT_EQ(valueIn<Point3d>(matrix.getOrigin()), Point3d(4, 5, 6));
        EXPECT_EQ(matrix.get(5), QVariant(1.0));
    }
}

TEST(MatrixTest, NormalizeAndTransposeAreTheMatrixs)
{
    Matrix matrix(numbers(16));
    matrix.transpose();
    EXPECT_EQ(valueIn<Vector3d>(matrix.getXAxis()), Vector3d(1, 5, 9));
    Matrix grown(scaled(4));
    grown.normalize();
    EXPECT_TRUE(grown.getIdentity());
}

TEST(MatrixTest, LookAtFromTheDefaultPlaceChangesNothing)
{
    Matrix matrix;
    matrix.lookAt(QVariant(), QVariant(), QVariant());
    EXPECT_TRUE(matrix.getIdentity());
    matrix.lookAt(list({0, 0, 5}), QVariant(), QVariant());
    EXPECT_TRUE(matrix.getMatrix().compare(moved(0, 0, -5)));
    matrix.reset();
    matrix.lookAt(QVariant(), QVariant(), QVariant::fromValue(Vector3d(1, 0, 0)));
    EXPECT_EQ(valueIn<Point3d>(matrix.apply(QVariant::fromValue(Point3d(1, 0, 0)))), Point3d(0, 1, 0));
    matrix.reset();
    matrix.lookAt(QVariant(), QVariant::fromValue(Point3d(7, 0, 0)), QVariant());
    EXPECT_EQ(valueIn<Point3d>(matrix.apply(QVariant::fromValue(Point3d(7, 0, 0)))), Point3d(0, 0, -7));
}

TEST(MatrixTest, ProjectionsAreAddedFromTheRight)
{
    Matrix matrix;
    matrix.orthogonalProject(-2, 2, -4, 4, 1, 3);
    EXPECT_EQ(valueIn<Point3d>(matrix.apply(QVariant::fromValue(Point3d(2, 4, -1)))), Point3d(1, 1, -1));
    EXPECT_FALSE(matrix.getPerspective());
    matrix.reset();
    matrix.perspectiveProject(-2, 2, -4, 4, 1, 3);
    EXPECT_EQ(valueIn<Point3d>(matrix.apply(QVariant::fromValue(Point3d(2, 4, -1)))), Point3d(1, 1, -1));
    EXPECT_TRUE(matrix.getPerspective());
    matrix.reset();
    matrix.perspectiveProject(90, 2, 1, 3);
    const Point3d corner = valueIn<Point3d>(matrix.apply(QVariant::fromValue(Point3d(2, 1, -1))));
    EXPECT_NEAR(corner.x, 1, 1e-12);
    EXPECT_NEAR(corner.y, 1, 1e-12);
    EXPECT_NEAR(corner.z, -1, 1e-12);
}

TEST(MatrixTest, AProjectionWithoutVolumeIsRefused)
{
    Matrix matrix(scaled(2));
    const std::string empty = "The volume of the projection is empty.";
    EXPECT_EQ(failureOf([&] { matrix.orthogonalProject(1, 1, 0, 1, 0, 1); }), empty);
    EXPECT_EQ(failureOf([&] { matrix.orthogonalProject(0, 0, 0, 0, 0, 0); }), empty);
    EXPECT_EQ(failureOf([&] { matrix.perspectiveProject(0, 1, 0, 1, 0, 1); }), empty);
    EXPECT_EQ(failureOf([&] { matrix.perspectiveProject(0, 1, 1, 2); }), empty);
    EXPECT_TRUE(matrix.getMatrix().compare(scaled(2)));
}

TEST(MatrixTest, AnArgumentThatIsntFiniteIsRefusedByItsIndex)
{
    Matrix matrix(scaled(2));
    for (const double number : {nan, infinity, -infinity}) {
        const auto refused = [](unsigned int index) {
            return "Invalid argument at index " + std::to_string(index) + ".";
        };
        EXPECT_EQ(failureOf([&] { matrix.translate(number, 0, 0); }), refused(0));
        EXPECT_EQ(failureOf([&] { matrix.translate(0, 0, number); }), refused(2));
        EXPECT_EQ(failureOf([&] { matrix.scale(0, number, number); }), refused(1));
        EXPECT_EQ(failureOf([&] { matrix.skew(number); }), refused(0));
        EXPECT_EQ(failureOf([&] { matrix.rotateDegrees(number, QVariant()); }), refused(0));
        EXPECT_EQ(failureOf([&] { matrix.rotateRadians(number, QVariant()); }), refused(0));
        EXPECT_EQ(failureOf([&] { matrix.orthogonalProject(0, 1, 0, 1, 0, number); }), refused(5));
        EXPECT_EQ(failureOf([&] { matrix.perspectiveProject(0, 1, 0, number, 1, 2); }), refused(3));
        EXPECT_EQ(failureOf([&] { matrix.perspectiveProject(40, number, 1, 2); }), refused(1));
    }
    EXPECT_TRUE(matrix.getMatrix().compare(scaled(2)));
}

TEST(MatrixTest, ApplyGivesAnObjectOfTheSameClass)
{
    Matrix matrix;
    matrix.translate(10, 20, 30);
    matrix.scale(2, 2, 2);
    const QVariant space = matrix.apply(QVariant::fromValue(Vector3d(1, 2, 3)));
    EXPECT_EQ(valueIn<Vector3d>(space), Vector3d(12, 24, 36)) << "a vector is moved like a point";
    EXPECT_EQ(valueIn<Vector2d>(matrix.apply(QVariant::fromValue(Vector2d(1, 2)))), Vector2d(12, 24));
    const QVariant point = matrix.apply(QVariant::fromValue(Point3d(1, 2, 3)));
    EXPECT_EQ(valueIn<Point3d>(point), Point3d(12, 24, 36));
    EXPECT_FALSE(OMC::objectFrom<Vector3d>(point));
    const QVariant planar = matrix.apply(QVariant::fromValue(Point2d(1, 2)));
    EXPECT_EQ(valueIn<Point2d>(planar), Point2d(12, 24));
    EXPECT_FALSE(OMC::objectFrom<Vector2d>(planar));
    const QVariant product = matrix.apply(QVariant::fromValue(Matrix(moved(1, 2, 3))));
    EXPECT_EQ(product.typeId(), QMetaType::fromType<Obj>().id());
    EXPECT_TRUE(OMC::objectFrom<Matrix>(product)->getMatrix().compare(matrix.getMatrix() * moved(1, 2, 3)));
}

TEST(MatrixTest, ApplyGivesAListForWhatIsNoObjectAndNothingForOtherObjects)
{
    const Matrix matrix(moved(10, 20, 30));
    EXPECT_EQ(matrix.apply(list({1, 2, 3})), list({11.0, 22.0, 33.0}));
    EXPECT_EQ(matrix.apply(5), list({15.0, 25.0, 35.0}));
    EXPECT_EQ(matrix.apply(QString("a")), list({10.0, 20.0, 30.0}));
    EXPECT_EQ(matrix.apply(QVariant()), list({10.0, 20.0, 30.0}));
    CountedObject object;
    EXPECT_FALSE(matrix.apply(QVariant::fromValue<QObject*>(&object)).isValid());
}

TEST(MatrixTest, ItsPartsInThePlaneGiveItBack)
{
    Matrix matrix;
    matrix.translate(1, 2, 3);
    matrix.translate(5, 6, 0);
    matrix.rotateDegrees(30, QVariant());
    matrix.skew(20);
    matrix.scale(2, 0.5, 1);
    matrix.translate(-5, -6, 0);
    const QList<QVariant> parts = matrix.extractParameters_2d(false, false, list({5, 6}));
    ASSERT_EQ(parts.size(), 4);
    const auto translation = valueIn<Vector3d>(parts[0]);
    EXPECT_NEAR(translation.x, 1, 1e-12);
    EXPECT_NEAR(translation.y, 2, 1e-12);
    EXPECT_NEAR(translation.z, 3, 1e-12);
    const auto scale = valueIn<Vector2d>(parts[1]);
    EXPECT_NEAR(scale.x, 2, 1e-12);
    EXPECT_NEAR(scale.y, 0.5, 1e-12);
    EXPECT_EQ(parts[2].typeId(), QMetaType::Double);
    EXPECT_NEAR(parts[2].toDouble(), 30, 1e-12);
    EXPECT_NEAR(parts[3].toDouble(), 20, 1e-12);
    const QList<QVariant> negative = matrix.extractParameters_2d(true, false, list({5, 6}));
    EXPECT_NEAR(valueIn<Vector2d>(negative[1]).x, -2, 1e-12);
    EXPECT_NEAR(negative[2].toDouble(), -150, 1e-12);
    EXPECT_NEAR(valueIn<Vector2d>(matrix.extractParameters_2d(false, true, QVariant())[1]).y, -0.5, 1e-12);
}

TEST(MatrixTest, ItsPartsInSpaceGiveItBack)
{
    Matrix matrix;
    matrix.translate(1, 2, 3);
    matrix.translate(5, 6, 7);
    matrix.rotateDegrees(30, QVariant());
    matrix.rotateDegrees(20, list({0, 1, 0}));
    matrix.rotateDegrees(10, list({1, 0, 0}));
    matrix.scale(2, 3, 4);
    matrix.translate(-5, -6, -7);
    const QList<QVariant> parts = matrix.extractParameters_3d(list({5, 6, 7}));
    ASSERT_EQ(parts.size(), 3);
    const Vector3d expected[] = {Vector3d(1, 2, 3), Vector3d(2, 3, 4), Vector3d(10, 20, 30)};
    for (qsizetype i = 0; i < 3; ++i) {
        const auto part = valueIn<Vector3d>(parts[i]);
        EXPECT_NEAR(part.x, expected[i].x, 1e-12);
        EXPECT_NEAR(part.y, expected[i].y, 1e-12);
        EXPECT_NEAR(part.z, expected[i].z, 1e-12);
    }
    EXPECT_EQ(valueIn<Vector3d>(Matrix(moved(1, 2, 3)).extractParameters_3d(QVariant())[0]), Vector3d(1, 2, 3));
}

TEST(MatrixTest, EqualsWhatReadsAsTheSameMatrix)
{
    const Matrix matrix(moved(1, 2, 2));
    EXPECT_TRUE(matrix == QVariant::fromValue(Matrix(moved(1, 2, 2))));
    EXPECT_TRUE(matrix == list({1, 2, 3}));
    EXPECT_FALSE(matrix == list({1, 2}));
    EXPECT_TRUE(Matrix() == QVariant());
    EXPECT_TRUE(Matrix() == QVariant(QString("anything")));
}

TEST(MatrixTest, ItsPropertiesTellOfIt)
{
    struct Row {
        const char* property;
        QVariant identity;
        QVariant tilted;
    };
    Matrix tilted(cells({0, 2, 1, 0, -8, 0, 0, 0.5, 0, 0, 0, 0, 0, 0, 4.0 / 3, 1}));
    const Row rows[] = {{"has_nan", false, false},   {"has_infinity", false, false}, {"identity", true, false},
                        {"singular", false, true},   {"truck_factor", 1.0, 2.0},     {"rotation_exists", false, true},
                        {"constant_z", true, false}, {"transform_2d", true, false},  {"perspective", false, true}};
    Matrix identity;
    for (const Row& row : rows) {
        EXPECT_EQ(identity.property(row.property), row.identity) << row.property;
        EXPECT_EQ(tilted.property(row.property), row.tilted) << row.property;
    }
    EXPECT_EQ(Matrix(scaled(3)).property("scale_factor"), QVariant(3.0));
    EXPECT_EQ(Matrix(scaled(nan)).property("has_nan"), QVariant(true));
    EXPECT_EQ(Matrix(scaled(infinity)).property("has_infinity"), QVariant(true));
    EXPECT_TRUE(tilted.setProperty("origin", list({1, 2, 3})));
    EXPECT_EQ(valueIn<Point3d>(tilted.property("origin")), Point3d(1, 2, 3));
    EXPECT_TRUE(tilted.setProperty("identity", true));
    EXPECT_TRUE(tilted.getIdentity());
}

TEST(MatrixTest, ItsPropertiesStandInTheirOrder)
{
    bool extendNative = false;
    bool filter = false;
    EXPECT_EQ(Matrix().getDir(extendNative, filter),
              (std::vector<std::string>{"objectName", "has_nan", "has_infinity", "axis_x", "axis_y", "axis_z", "origin",
                                        "identity", "singular", "truck_factor", "scale_factor", "rotation_exists",
                                        "constant_z", "transform_2d", "perspective"}));
}

TEST(MatrixTest, GetInverseShowsInAListingAndAccessorsDont)
{
    const Matrix matrix;
    for (const auto& [name, shown] : {std::pair<std::string, bool>{"get_inverse", true},
                                      {"get_origin", false},
                                      {"set_origin", false},
                                      {"inverse", true}}) {
        std::string text = name;
        EXPECT_EQ(matrix.filterDir(text), shown) << name;
    }
}

TEST(MatrixTest, PrintsItselfUnderAText)
{
    testing::internal::CaptureStdout();
    Matrix().print("camera");
    EXPECT_EQ(testing::internal::GetCapturedStdout().rfind("camera\n           1 ", 0), 0U);
}

} // namespace
