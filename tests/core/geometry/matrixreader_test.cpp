#include "core/geometry/matrix.h"

#include "core/geometry/vectors.h"
#include "tests/core/support/countedobject.h"
#include "tests/core/support/matrices.h"
#include "tests/support/numbers.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <vector>

namespace {

using OMC::Matrix;
using OMC::Point2d;
using OMC::Point3d;
using OMC::Vector2d;
using OMC::Vector3d;

struct Reading {
    const char* name;
    QVariant value;
    Math::Matrix4x4 expected;
};

std::vector<Reading> readings()
{
    const QVariant twice = QVariant::fromValue(Matrix(scaled(2)));
    const QVariant step = QVariant::fromValue(Matrix(moved(10, 20, 30)));
    const Math::Matrix4x4 identity;
    const Math::Matrix4x4 tiny = cells({0.001, 0, 0, 0, 0, 0.001, 0, 0, 0, 0, 0.001, 0, 0, 0, 0, 0.001});
    return {
        {"null", QVariant(), identity},
        {"a matrix", twice, scaled(2)},
        {"a vector in space", QVariant::fromValue(Vector3d(1, 2, 3)), moved(1, 2, 3)},
        {"a vector in the plane", QVariant::fromValue(Vector2d(1, 2)), moved(1, 2, 0)},
        {"a point in space", QVariant::fromValue(Point3d(1, 2, 3)), moved(1, 2, 3)},
        {"a point in the plane", QVariant::fromValue(Point2d(1, 2)), moved(1, 2, 0)},
        {"a number", 2, scaled(2)},
        {"a negative number", -0.5, scaled(-0.5)},
        {"a number in a text", QString("4"), scaled(4)},
        {"zero", 0.0, identity},
        {"close to zero", 0.0005, identity},
        {"at the limit", 0.001, identity},
        {"above the limit", -0.0011, scaled(-0.0011)},
        {"no number", nan, identity},
        {"a text", QString("a"), identity},
        {"a list of texts", QStringList{"1", "2"}, identity},
        {"an empty list", list({}), identity},
        {"a list of nothing usable", list({QString("a"), QVariant(), list({1, 2})}), identity},
        {"one number", numbers(1), identity},
        {"two numbers", numbers(2), moved(1, 2, 0)},
        {"three numbers, the second twice", numbers(3), moved(1, 2, 2)},
        {"four numbers", numbers(4), identity},
        {"five numbers", numbers(5), identity},
        {"eight numbers", numbers(8), identity},
        {"nine numbers", numbers(9), cells({1, 2, 0, 3, 4, 5, 0, 6, 0, 0, 1, 0, 7, 8, 0, 9})},
        {"ten numbers", numbers(10), identity},
        {"fifteen numbers", numbers(15), identity},
        {"sixteen numbers", numbers(16), cells({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16})},
        {"twenty numbers", numbers(20), cells({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16})},
        {"sixteen zeros", QList<QVariant>(16, 0), tiny},
        {"numbers among what isn't", list({1, QString("a"), QVariant(), 2}), moved(1, 2, 0)},
        {"numbers in texts", list({QString("3"), QString("4")}), moved(3, 4, 0)},
        {"a vector in a list", list({QVariant::fromValue(Vector3d(1, 2, 3))}), moved(1, 2, 2)},
        {"a point of the plane in a list", list({QVariant::fromValue(Point2d(1, 2))}), moved(1, 2, 2)},
        {"three vectors",
         list({QVariant::fromValue(Vector3d(1, 2, 3)), QVariant::fromValue(Vector2d(4, 5)),
               QVariant::fromValue(Point3d(6, 7, 8))}),
         cells({1, 2, 0, 3, 4, 5, 0, 0, 0, 0, 1, 0, 6, 7, 0, 8})},
        {"a matrix in a list", list({twice}), scaled(2)},
        {"matrices in their order", list({twice, step}), scaled(2) * moved(10, 20, 30)},
        {"the numbers act last, wherever they stand", list({twice, 1, 2}), moved(1, 2, 0) * scaled(2)},
        {"matrices between numbers", list({1, twice, 2, step}), moved(1, 2, 0) * scaled(2) * moved(10, 20, 30)},
    };
}

TEST(MatrixReaderTest, IsReadFromEveryForm)
{
    for (const Reading& reading : readings()) {
        const Matrix matrix(reading.value);
        EXPECT_TRUE(matrix.getMatrix().compare(reading.expected))
            << reading.name << ": " << matrix.__str__() << "\nexpected " << Matrix(reading.expected).__str__();
        const std::unique_ptr<Matrix> read(Matrix::fromQVariant(reading.value));
        ASSERT_TRUE(read) << reading.name;
        EXPECT_TRUE(read->getMatrix().compare(reading.expected)) << reading.name;
        EXPECT_TRUE(*read == reading.value) << reading.name;
    }
}

TEST(MatrixReaderTest, APointThatIsNotFiniteIsTheOriginAndSpoilsNoOtherCell)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const Matrix matrix(QVariant::fromValue(Point3d(infinity, -infinity, 3)));
    EXPECT_EQ(cellsOf(matrix), (QList<double>{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, infinity, -infinity, 3, 1}));
    EXPECT_FALSE(matrix.getHasNan());
}

TEST(MatrixReaderTest, AnyOtherObjectReadsAsTheIdentity)
{
    CountedObject object;
    const QVariant value = QVariant::fromValue<QObject*>(&object);
    EXPECT_TRUE(Matrix(value).getIdentity());
    EXPECT_TRUE(Matrix(list({value, 3, 4})).getMatrix().compare(moved(3, 4, 0)));
}

TEST(MatrixReaderTest, AListKeepsNoAxisWithoutLength)
{
    QList<QVariant> values(16, 0);
    values[1] = 0.0009; // the x axis, still too short
    values[4] = 0.002;  // the y axis, long enough
    values[10] = -0.001;
    values[15] = -0.001;
    const Matrix matrix{QVariant(values)};
    EXPECT_EQ(cellsOf(matrix), (QList<double>{0.001, 0.0009, 0, 0, 0.002, 0, 0, 0, 0, 0, 0.001, 0, 0, 0, 0, 0.001}));
}

} // namespace
