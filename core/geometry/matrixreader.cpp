#include "core/geometry/matrix.h"

#include "core/geometry/point3d.h"
#include "core/geometry/transformation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <vector>

namespace OMC {

namespace {

/// Lengths and scales up to this are taken for a slip, and this much is put in their place.
constexpr double smallest = 0.001;

struct CellsForCount {
    std::size_t count;
    std::span<const std::size_t> cells;   ///< Which cells are written,
    std::span<const std::size_t> numbers; ///< and with which of the numbers.
};

constexpr std::array<std::size_t, 16> inOrder = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};
constexpr std::array<std::size_t, 3> origin = {12, 13, 14};
/// Required: of three numbers the second serves as the third, and scripts write lists of three with that in mind.
constexpr std::array<std::size_t, 3> secondTwice = {0, 1, 1};
constexpr std::array<std::size_t, 9> planeCells = {0, 1, 3, 4, 5, 7, 12, 13, 15};

/// The cells that a list of numbers writes, by the count of the numbers. Other counts write nothing.
constexpr std::array<CellsForCount, 4> meanings = {{
    {2, std::span(origin).first(2), inOrder},
    {3, origin, secondTwice},
    {9, planeCells, inOrder},
    {16, inOrder, inOrder},
}};

void writeNumbers(std::array<double, 16>& cells, const std::vector<double>& numbers)
{
    const std::size_t count = std::min<std::size_t>(numbers.size(), cells.size());
    const auto meaning = std::ranges::find(meanings, count, &CellsForCount::count);
    if (meaning == meanings.end())
        return;
    for (std::size_t i = 0; i < count; ++i)
        cells[meaning->cells[i]] = numbers[meaning->numbers[i]];
}

/// Puts something small in the place of nothing, so that no list makes a matrix that collapses an axis.
void keepAxes(std::array<double, 16>& cells)
{
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const double* cell = cells.data() + 4 * axis;
        if (std::hypot(cell[0], cell[1], cell[2]) <= smallest)
            cells[5 * axis] = smallest;
    }
    if (std::abs(cells[15]) <= smallest)
        cells[15] = smallest;
}

Math::Matrix4x4 movedTo(const Math::Vector3d& place)
{
    std::array<double, 16> cells = Math::Matrix4x4().cells();
    cells[12] = place.x;
    cells[13] = place.y;
    cells[14] = place.z;
    return Math::Matrix4x4(cells.data());
}

Math::Matrix4x4 readObject(const QObject* object)
{
    if (const auto* matrix = dynamic_cast<const Matrix*>(object))
        return matrix->getMatrix();
    if (const auto place = Point3d::coordinatesOf(object))
        return movedTo(*place);
    if (const auto* transformation = dynamic_cast<const Transformation*>(object))
        return Matrix::valueOf(transformation->getMatrix());
    return {};
}

Math::Matrix4x4 readNumber(const QVariant& value)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    Math::Matrix4x4 matrix;
    if (isNumber && std::abs(number) > smallest)
        matrix.scale(number, number, number);
    return matrix;
}

Math::Matrix4x4 readList(const QList<QVariant>& list)
{
    std::vector<double> numbers;
    std::vector<Math::Matrix4x4> matrices;
    for (const QVariant& item : list) {
        if (const QObject* object = BaseObject::QVariantToPointer(item)) {
            if (const auto* matrix = dynamic_cast<const Matrix*>(object))
                matrices.push_back(matrix->getMatrix());
            else if (const auto place = Point3d::coordinatesOf(object))
                numbers.insert(numbers.end(), {place->x, place->y, place->z});
            continue;
        }
        bool isNumber = false;
        const double number = item.toDouble(&isNumber);
        if (isNumber)
            numbers.push_back(number);
    }
    std::array<double, 16> cells = Math::Matrix4x4().cells();
    writeNumbers(cells, numbers);
    keepAxes(cells);
    Math::Matrix4x4 result(cells.data());
    for (const Math::Matrix4x4& matrix : matrices)
        result = result * matrix;
    return result;
}

} // namespace

Math::Matrix4x4 Matrix::valueOf(const QVariant& value)
{
    if (const QObject* object = QVariantToPointer(value))
        return readObject(object);
    if (value.typeId() == QMetaType::QVariantList)
        return readList(value.toList());
    return readNumber(value);
}

Matrix* Matrix::fromQVariant(const QVariant& value)
{
    return new Matrix(valueOf(value));
}

} // namespace OMC
