#include "core/host/math_matrix4x4.h"

#include "engine/math/angle.h"
#include "engine/math/imath.h"
#include "engine/math/turn.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <stdexcept>

namespace Math {

namespace {

bool allFinite(const std::array<double, 16>& cells)
{
    return std::all_of(cells.begin(), cells.end(), [](double cell) { return std::isfinite(cell); });
}

/// Divides each line of four cells, `stride` apart from each other, by its largest; false where one is all zero.
bool equalize(std::array<double, 16>& cells, std::size_t line, std::size_t stride)
{
    for (std::size_t start = 0; start < 4; ++start) {
        double largest = 0.0;
        for (std::size_t i = 0; i < 4; ++i)
            largest = std::max(largest, std::abs(cells[start * line + i * stride]));
        if (largest == 0.0)
            return false;
        for (std::size_t i = 0; i < 4; ++i)
            cells[start * line + i * stride] /= largest;
    }
    return true;
}

/// Adds a projection from the right where it could be computed.
bool project(Matrix4x4& matrix, const double (&cells)[16])
{
    const Matrix4x4 projection(cells);
    if (!allFinite(projection.cells()))
        return false;
    matrix = matrix * projection;
    return true;
}

} // namespace

Matrix4x4::Matrix4x4(const double* cells)
{
    std::copy_n(cells, 16, m_cells.begin());
}

Matrix4x4::Matrix4x4(const Vector3d& axis, const Point3d& origin)
    : Matrix4x4(brindle::engine::Turn::shortest(1, axis).matrix())
{
    m_cells[12] = origin.x;
    m_cells[13] = origin.y;
    m_cells[14] = origin.z;
}

void Matrix4x4::getValues(double* cells) const
{
    std::copy(m_cells.begin(), m_cells.end(), cells);
}

Vector3d Matrix4x4::axis(int index) const
{
    if (index < 0 || index > 2)
        return {};
    const double* cells = m_cells.data() + 4 * index;
    return {cells[0], cells[1], cells[2]};
}

Matrix4x4 Matrix4x4::operator*(const Matrix4x4& first) const
{
    // By columns, so that the four sums of one are formed side by side: 27 ns, where the way through Imath's product and
    // its three copies takes 36 ns.
    double cells[16];
    for (std::size_t column = 0; column < 16; column += 4) {
        const double* by = first.m_cells.data() + column;
        for (std::size_t row = 0; row < 4; ++row)
            cells[column + row] =
                m_cells[row] * by[0] + m_cells[4 + row] * by[1] + m_cells[8 + row] * by[2] + m_cells[12 + row] * by[3];
    }
    return Matrix4x4(cells);
}

Point3d Matrix4x4::operator*(const Point3d& point) const
{
    const auto row = [&](std::size_t i) {
        return point.x * m_cells[i] + point.y * m_cells[4 + i] + point.z * m_cells[8 + i] + m_cells[12 + i];
    };
    const double divisor = row(3);
    if (divisor == 1.0 || divisor == 0.0)
        return {row(0), row(1), row(2)};
    return {row(0) / divisor, row(1) / divisor, row(2) / divisor};
}

void Matrix4x4::normalize()
{
    if (const double homogeneous = m_cells[15]; homogeneous != 0.0)
        std::for_each(m_cells.begin(), m_cells.end(), [&](double& cell) { cell /= homogeneous; });
    for (int index = 0; index < 3; ++index) {
        const Vector3d direction = brindle::engine::directionOf(axis(index));
        double* cells = m_cells.data() + 4 * index;
        cells[0] = direction.x;
        cells[1] = direction.y;
        cells[2] = direction.z;
    }
}

void Matrix4x4::transpose()
{
    *this = brindle::engine::fromImath(brindle::engine::toImath(*this).transposed());
}

void Matrix4x4::translate(double x, double y, double z)
{
    for (std::size_t i = 0; i < 4; ++i)
        m_cells[12 + i] += x * m_cells[i] + y * m_cells[4 + i] + z * m_cells[8 + i];
}

void Matrix4x4::scale(double x, double y, double z)
{
    for (std::size_t i = 0; i < 4; ++i) {
        m_cells[i] *= x;
        m_cells[4 + i] *= y;
        m_cells[8 + i] *= z;
    }
}

void Matrix4x4::skew(double degrees)
{
    const double lean = std::tan(degrees / brindle::engine::degreesPerRadian);
    for (std::size_t i = 0; i < 4; ++i)
        m_cells[4 + i] += lean * m_cells[i];
}

void Matrix4x4::rotateDegrees(double degrees, const Vector3d& axis)
{
    const auto [sine, cosine] = brindle::engine::SineCosine::ofDegrees(degrees);
    *this = *this * brindle::engine::Turn::about(axis, sine, cosine).matrix();
}

void Matrix4x4::rotateRadians(double radians, const Vector3d& axis)
{
    const auto [sine, cosine] = brindle::engine::SineCosine::ofRadians(radians);
    *this = *this * brindle::engine::Turn::about(axis, sine, cosine).matrix();
}

void Matrix4x4::lookAt(const Point3d& eye, const Point3d& target, const Vector3d& up)
{
    // Back is where the z axis of the eye's frame points. The frame is a turn, so its inverse is its transpose.
    const Vector3d back = brindle::engine::directionOf(eye - target);
    brindle::engine::Turn frame = brindle::engine::Turn::shortest(2, back);
    const Vector3d right = brindle::engine::directionOf(brindle::engine::directionOf(up).cross(frame.axes[2]));
    if (right != Vector3d{}) {
        frame.axes[0] = right;
        frame.axes[1] = frame.axes[2].cross(right);
    }
    Matrix4x4 view = frame.matrix();
    view.transpose();
    *this = *this * view;
    translate(-eye.x, -eye.y, -eye.z);
}

// The cells of both projections are those of glOrtho and glFrustum (OpenGL 2.1 Reference Pages).
bool Matrix4x4::orthogonalProject(double left, double right, double bottom, double top, double zNear, double zFar)
{
    const double width = right - left;
    const double height = top - bottom;
    const double depth = zFar - zNear;
    const double cells[16] = {2 / width,
                              0,
                              0,
                              0,
                              0,
                              2 / height,
                              0,
                              0,
                              0,
                              0,
                              -2 / depth,
                              0,
                              -(right + left) / width,
                              -(top + bottom) / height,
                              -(zFar + zNear) / depth,
                              1};
    return project(*this, cells);
}

bool Matrix4x4::perspectiveProject(double left, double right, double bottom, double top, double zNear, double zFar)
{
    const double width = right - left;
    const double height = top - bottom;
    const double depth = zFar - zNear;
    const double cells[16] = {2 * zNear / width,
                              0,
                              0,
                              0,
                              0,
                              2 * zNear / height,
                              0,
                              0,
                              (right + left) / width,
                              (top + bottom) / height,
                              -(zFar + zNear) / depth,
                              -1,
                              0,
                              0,
                              -2 * zFar * zNear / depth,
                              0};
    return zNear > 0 && zFar > 0 && project(*this, cells);
}

bool Matrix4x4::perspectiveProject(double fieldOfView, double aspect, double zNear, double zFar)
{
    if (!(fieldOfView > 0 && fieldOfView < 180 && aspect > 0))
        return false;
    const double top = zNear * std::tan(fieldOfView / 2 / brindle::engine::degreesPerRadian);
    return perspectiveProject(-top * aspect, top * aspect, -top, top, zNear, zFar);
}

Matrix4x4 Matrix4x4::getInverse() const
{
    Matrix4x4 result = *this;
    result.inverse();
    return result;
}

void Matrix4x4::inverse()
{
    if (isSingular())
        throw std::domain_error("The matrix is singular.");
    const Matrix4x4 inverse = brindle::engine::fromImath(brindle::engine::toImath(*this).gjInverse());
    if (!allFinite(inverse.m_cells))
        throw std::domain_error("The inverse is beyond the numbers.");
    *this = inverse;
}

Matrix2x3 Matrix4x4::getTransform2d() const
{
    const double divisor = m_cells[15] == 0.0 ? 1.0 : m_cells[15];
    return {{m_cells[0] / divisor, m_cells[1] / divisor},
            {m_cells[4] / divisor, m_cells[5] / divisor},
            {m_cells[12] / divisor, m_cells[13] / divisor}};
}

bool Matrix4x4::hasNan() const
{
    return std::any_of(m_cells.begin(), m_cells.end(), [](double cell) { return std::isnan(cell); });
}

bool Matrix4x4::hasInfinity() const
{
    return std::any_of(m_cells.begin(), m_cells.end(), [](double cell) { return std::isinf(cell); });
}

bool Matrix4x4::isSingular() const
{
    // Elimination with full pivoting (Golub and Van Loan, Matrix Computations, 3.4.8) tells the rank, once the lines
    // are brought to one size: a far origin or a small scale makes no matrix singular.
    std::array<double, 16> cells = m_cells;
    if (!allFinite(cells) || !equalize(cells, 4, 1) || !equalize(cells, 1, 4))
        return true;
    const auto cell = [&](std::size_t row, std::size_t column) -> double& { return cells[4 * row + column]; };
    constexpr double rounding = 16 * std::numeric_limits<double>::epsilon();
    for (std::size_t step = 0; step < 4; ++step) {
        std::size_t row = step;
        std::size_t column = step;
        for (std::size_t i = step; i < 4; ++i) {
            for (std::size_t j = step; j < 4; ++j) {
                if (std::abs(cell(i, j)) > std::abs(cell(row, column))) {
                    row = i;
                    column = j;
                }
            }
        }
        if (std::abs(cell(row, column)) <= rounding)
            return true;
        for (std::size_t i = 0; i < 4; ++i)
            std::swap(cell(step, i), cell(row, i));
        for (std::size_t i = 0; i < 4; ++i)
            std::swap(cell(i, step), cell(i, column));
        for (std::size_t i = step + 1; i < 4; ++i) {
            const double factor = cell(i, step) / cell(step, step);
            for (std::size_t j = step; j < 4; ++j)
                cell(i, j) -= factor * cell(step, j);
        }
    }
    return false;
}

bool Matrix4x4::isConstantZ() const
{
    return m_cells[2] == 0.0 && m_cells[6] == 0.0 && m_cells[3] == 0.0 && m_cells[7] == 0.0;
}

bool Matrix4x4::isTransform2d() const
{
    return isConstantZ() && m_cells[8] == 0.0 && m_cells[9] == 0.0 && m_cells[10] == 1.0 && m_cells[11] == 0.0 &&
           m_cells[14] == 0.0 && m_cells[15] == 1.0;
}

bool Matrix4x4::isPerspectiveProjection() const
{
    return m_cells[3] != 0.0 || m_cells[7] != 0.0 || m_cells[11] != 0.0;
}

double Matrix4x4::truckFactor() const
{
    const double depth = m_cells[15] == 0.0 ? m_cells[14] : m_cells[14] / m_cells[15];
    return depth >= cameraDistance ? 0.0 : cameraDistance / (cameraDistance - depth);
}

double Matrix4x4::scaleFactor() const
{
    const Vector3d x = axis(0);
    const Vector3d y = axis(1);
    const double shorter = std::min(x.length(), y.length());
    const double longer = std::max(x.length(), y.length());
    if (longer == 0.0)
        return 0.0;
    const double sine = brindle::engine::directionOf(x).cross(brindle::engine::directionOf(y)).length();
    const double factor = longer * std::sqrt(shorter / longer * sine); // The area itself may be beyond the numbers.
    return m_cells[15] == 0.0 ? factor : factor / std::abs(m_cells[15]);
}

void Matrix4x4::print(const char* text) const
{
    std::printf("%s\n", text);
    for (std::size_t i = 0; i < 16; i += 4)
        std::printf("%12g %12g %12g %12g\n", m_cells[i], m_cells[i + 1], m_cells[i + 2], m_cells[i + 3]);
    std::fflush(stdout);
}

} // namespace Math
