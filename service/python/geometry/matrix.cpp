#include "core/geometry/matrix.h"

#include "service/python/statereader.h"
#include "service/python/tables.h"
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

} // namespace

std::vector<ClassTable> matrixTables()
{
    using namespace OMC;
    return {
        Class<Matrix>(
            "Matrix",
            "A 4 by 4 homogeneous matrix. Cells 0 to 2 are the x axis, 4 to 6 the y axis, 8 to 10 the z axis, 12 to 14 "
            "the origin and 15 the homogeneous scale. Each step is added from the right: the one added last acts first "
            "on a point. A value is another matrix, a transformation, a point or vector to move to, a number to scale "
            "by, or a list of 2 or 3 numbers (a move; of 3 the second counts twice), 9 (a 3 by 3 homogeneous form) or "
            "16 (the cells), multiplied by the matrices in it. An axis and an origin give the frame whose y axis "
            "points along the axis; None stands for (0, 1, 0) and (0, 0, 0).")
            .constructors<Construct<&newOf<Matrix>>, Construct<&newOf<Matrix, QVariant>, "value">,
                          Construct<&newOf<Matrix, QVariant, QVariant>, "axis, origin">>()
            .value<&cellsOf, &matrixOf, &textOf>()
            .property("has_nan", "Whether a cell is no number.")
            .property("has_infinity", "Whether a cell is infinite.")
            .property("axis_x", "Where (1, 0, 0) points, a Vector3d; takes what Point3d takes.")
            .property("axis_y", "Where (0, 1, 0) points, a Vector3d; takes what Point3d takes.")
            .property("axis_z", "Where (0, 0, 1) points, a Vector3d; takes what Point3d takes.")
            .property("origin", "Where (0, 0, 0) is put, a Point3d; takes what Point3d takes.")
            .property("identity", "Whether it changes nothing; True makes it so.")
            .property("singular", "Whether it has no inverse.")
            .property("truck_factor", "How much larger the origin's depth makes things for the standard camera, which "
                                      "is 8/3 from the plane z = 0; 0 at and behind it.")
            .property("scale_factor", "How much lengths grow in the plane z = 0.")
            .property("rotation_exists", "Whether it turns anything.")
            .property("constant_z", "Whether the plane z = 0 keeps one depth all over.")
            .property("transform_2d", "Whether it acts on x and y alone.")
            .property("perspective", "Whether it is a perspective projection.")
            .method<"get_x_axis", Form<&Matrix::getXAxis>>("The property axis_x.")
            .method<"set_x_axis", Form<&Matrix::setXAxis, "axis">>("Sets the property axis_x.")
            .method<"get_y_axis", Form<&Matrix::getYAxis>>("The property axis_y.")
            .method<"set_y_axis", Form<&Matrix::setYAxis, "axis">>("Sets the property axis_y.")
            .method<"get_z_axis", Form<&Matrix::getZAxis>>("The property axis_z.")
            .method<"set_z_axis", Form<&Matrix::setZAxis, "axis">>("Sets the property axis_z.")
            .method<"size", Form<&Matrix::size>>("16, as len() gives it.")
            .method<"get", Form<&Matrix::get, "index">>("A cell, 0 to 15.")
            .method<"set", Form<&Matrix::set, "index, value">>(
                "Checks the index and changes nothing: cells are written through the axes and the origin.")
            .method<"list", Form<&Matrix::list>>("The sixteen cells, each cut off to a whole number.")
            .method<"reset", Form<&Matrix::reset>>("Becomes the identity.")
            .method<"normalize", Form<&Matrix::normalize>>("Gives the axes length 1 and the homogeneous scale 1.")
            .method<"transpose", Form<&Matrix::transpose>>("Swaps rows and columns.")
            .method<"inverse", Form<&Matrix::inverse>>("Becomes its inverse; fails for a singular matrix.")
            .method<"get_inverse", Form<&Matrix::getInverse>>(
                "The inverse as a new Matrix; fails for a singular matrix.")
            .method<"matrix_rotation", Form<&Matrix::matrixRotation>>("The rotation alone as a new Matrix.")
            .method<"multiply", Form<&Matrix::multiply, "other">>(
                "Multiplies from the right by anything that Matrix(value) takes.")
            .method<"translate", Form<pick<double, double, double>(&Matrix::translate), "x, y, z">,
                    Form<pick<const QVariant&>(&Matrix::translate), "vector">>(
                "Adds a move, by three numbers or by anything that Vector3d takes.")
            .method<"scale", Form<&Matrix::scale, "x, y, z">>("Adds a scale along each axis.")
            .method<"skew", Form<&Matrix::skew, "angle">>(
                "Adds a lean of the y axis towards x by an angle in degrees; heights stay.")
            .method<"rotate_degrees", Form<&Matrix::rotateDegrees, "angle, axis=None">>(
                "Adds a turn, counter-clockwise about an axis; None is the z axis, out of the picture.")
            .method<"rotate_radians", Form<&Matrix::rotateRadians, "angle, axis=None">>(
                "Adds a turn, counter-clockwise about an axis; None is the z axis, out of the picture.")
            .method<"orthogonal_project", Form<&Matrix::orthogonalProject, "left, right, bottom, top, near, far">>(
                "Adds the projection of a box in front of the eye, which looks along -z, to the cube from -1 to 1.")
            .method<"perspective_project",
                    Form<pick<double, double, double, double>(&Matrix::perspectiveProject), "fov, aspect, near, far">,
                    Form<pick<double, double, double, double, double, double>(&Matrix::perspectiveProject),
                         "left, right, bottom, top, near, far">>(
                "Adds the projection of a pyramid's stump in front of the eye to the cube from -1 to 1: by the height "
                "of the view in degrees and its width to height, or by the rectangle at the near distance.")
            .method<"look_at", Form<&Matrix::lookAt, "eye=None, target=None, up=None">>(
                "Adds the view from an eye to a target; None stands for (0, 0, 0), (0, 0, -2.66) and upwards (0, 1, "
                "0).")
            .method<"apply", Form<&Matrix::apply, "value">>(
                "What a matrix, point or vector becomes under this one, in an object of its class; the three "
                "coordinates as a list for numbers and lists; None for other objects. Vectors are moved like points.")
            .method<"extract_parameters_2d",
                    Form<&Matrix::extractParameters_2d, "negative_x=False, negative_y=False, pivot=None">>(
                "[translation, scale, rotation, skew] in the plane about a pivot, angles in degrees: the matrix is "
                "translate, rotate, skew, scale, in this order. The flags ask for negative scales; a mirror has y's.")
            .method<"extract_parameters_3d", Form<&Matrix::extractParameters_3d, "pivot=None">>(
                "[translation, scale, rotation] in space about a pivot, angles in degrees: the matrix is translate, "
                "rotate about z, y and x, scale, in this order.")
            .staticMethod<"from_qvariant", StaticForm<&Matrix::fromQVariant, "value">>(
                "A new matrix of whatever Matrix(value) takes.")
            .method<"print", Form<&Matrix::print, "text=''">>("Writes a text and the cells to the standard output."),
    };
}

} // namespace brindle::python
