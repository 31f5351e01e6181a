#include "core/geometry/matrix.h"

#include "service/python/family.h"
#include "service/python/statereader.h"
#include "service/python/valueprotocol.h"

namespace brindle::python {

namespace {

QVariantList cellsOf(const OMC::Matrix& matrix)
{
    const auto& cells = matrix.getMatrix().cells();
    return QVariantList(cells.begin(), cells.end());
}

/// Cell by cell: what a script passes as a list is read in another way.
OMC::Matrix* matrixOf(const QVariantList& state)
{
    StateReader reader(state);
    const auto cells = reader.takeNumbers<OMC::Matrix::cellCount>();
    reader.finish();
    return new OMC::Matrix(Math::Matrix4x4(cells.data()));
}

/// "Matrix()", or "Matrix([...])" with the sixteen cells to their last digit.
std::string textOf(const OMC::Matrix& matrix, const std::string& type)
{
    std::string text;
    for (const double cell : matrix.getMatrix().cells())
        text += (text.empty() ? "" : ", ") + numberText(cell);
    return shortName(type) + (matrix.getIdentity() ? "()" : "([" + text + "])");
}

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<Matrix>()
            .alias("MatrixLike", "Matrix | Transformation | Point2d | Point3d | Sequence[object] | float",
                   "A matrix: another one, a move by a vector, a scale by a number, 9 or 16 numbers, ...")
            .items("float")
            .property("axis_x", "Vector3d", "PointLike")
            .property("axis_y", "Vector3d", "PointLike")
            .property("axis_z", "Vector3d", "PointLike")
            .property("origin", "Point3d", "PointLike")
            .constructors<
                Construct<&newOf<Matrix>>, Construct<&newOf<Matrix, QVariant>, "value: MatrixLike">,
                Construct<&newOf<Matrix, QVariant, QVariant>, "axis: PointLike | None, origin: PointLike | None">>()
            .value<&cellsOf, &matrixOf, &textOf>()
            .method<"size", Form<&Matrix::size>>()
            .method<"get", Form<&Matrix::get, "index -> float">>()
            .method<"set", Form<&Matrix::set, "index, value: object">>()
            .method<"list", Form<&Matrix::list>>()
            .method<"reset", Form<&Matrix::reset>>()
            .method<"normalize", Form<&Matrix::normalize>>()
            .method<"transpose", Form<&Matrix::transpose>>()
            .method<"inverse", Form<&Matrix::inverse>>()
            .method<"get_inverse", Form<&Matrix::getInverse, "-> Matrix">>()
            .method<"matrix_rotation", Form<&Matrix::matrixRotation, "-> Matrix">>()
            .method<"multiply", Form<&Matrix::multiply, "other: MatrixLike">>()
            .method<"translate", Form<pick<double, double, double>(&Matrix::translate), "x, y, z">,
                    Form<pick<const QVariant&>(&Matrix::translate), "vector: PointLike">>()
            .method<"scale", Form<&Matrix::scale, "x, y, z">>()
            .method<"skew", Form<&Matrix::skew, "angle">>()
            .method<"rotate_degrees", Form<&Matrix::rotateDegrees, "angle, axis: PointLike | None=None">>()
            .method<"rotate_radians", Form<&Matrix::rotateRadians, "angle, axis: PointLike | None=None">>()
            .method<"orthogonal_project", Form<&Matrix::orthogonalProject, "left, right, bottom, top, near, far">>()
            .method<"perspective_project",
                    Form<pick<double, double, double, double>(&Matrix::perspectiveProject), "fov, aspect, near, far">,
                    Form<pick<double, double, double, double, double, double>(&Matrix::perspectiveProject),
                         "left, right, bottom, top, near, far">>()
            .method<"look_at",
                    Form<&Matrix::lookAt,
                         "eye: PointLike | None=None, target: PointLike | None=None, up: PointLike | None=None">>()
            .method<"apply", Form<&Matrix::apply, "value: Matrix -> Matrix">,
                    Form<&Matrix::apply, "value: Point3d -> Point3d">,
                    Form<&Matrix::apply, "value: Point2d -> Point2d">,
                    Form<&Matrix::apply, "value: Sequence[object] | float -> list[float]">>()
            .method<"extract_parameters_2d",
                    Form<&Matrix::extractParameters_2d,
                         "negative_x=False, negative_y=False, pivot: PointLike | None=None -> list[Any]">>()
            .method<"extract_parameters_3d",
                    Form<&Matrix::extractParameters_3d, "pivot: PointLike | None=None -> list[Vector3d]">>()
            .staticMethod<"from_qvariant", StaticForm<&Matrix::fromQVariant, "value">>()
            .method<"print", Form<&Matrix::print, "text=''">>(),
    };
});

} // namespace

} // namespace brindle::python
