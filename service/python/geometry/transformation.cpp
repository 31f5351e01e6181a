#include "core/geometry/transformation.h"

#include "core/geometry/matrix.h"
#include "service/python/statereader.h"
#include "service/python/tables.h"

namespace brindle::python {

namespace {

OMC::Transformation* newCopy(const OMC::Transformation& transformation)
{
    return new OMC::Transformation(transformation);
}

OMC::Transformation* newDeepCopy(const OMC::Transformation& transformation, PyObject*)
{
    return newCopy(transformation);
}

/// Frame, depth, whether it is set, and the cells. It comes back detached.
QVariantList stateOf(const OMC::Transformation& transformation)
{
    const MO_PortTransform* transform = transformation.getPortTransform();
    if (!transform)
        throw OMC::Exception(OMC::Transformation::tr("Transformation is invalid."));
    if (transform->transformation().hasDeformation())
        throw OMC::Exception(OMC::Transformation::tr("A transformation with deformations can't be stored."));
    QVariantList state = {transform->key().frame(), transform->depth(), transform->isTransformationSet()};
    const Math::Matrix4x4 matrix = transform->transformation().matrix(false);
    for (const double cell : matrix.cells())
        state.append(cell);
    return state;
}

OMC::Transformation* transformationOf(const QVariantList& state)
{
    StateReader reader(state);
    MO_PortTransform transform(nullptr, MO_FrameKey(reader.take<double>()));
    transform.setDepth(reader.take<int>());
    const bool isSet = reader.take<bool>();
    const auto cells = reader.takeNumbers<OMC::Matrix::cellCount>();
    reader.finish();
    if (isSet)
        transform.transformation().set(Math::Matrix4x4(cells.data()));
    return new OMC::Transformation(&transform);
}

/// "<brindle.Transformation: origin (1, 2, 3), depth 0>", or "not set" in place of the origin.
std::string textOf(const OMC::Transformation& transformation, const std::string& type)
{
    const MO_PortTransform* transform = transformation.getPortTransform();
    if (!transform)
        return "<" + type + ", invalid>";
    QString text = QStringLiteral("not set");
    if (transform->isTransformationSet()) {
        const Math::Point3d origin = transform->transformation().matrix(false).origin();
        text = QStringLiteral("origin (%1, %2, %3)").arg(origin.x).arg(origin.y).arg(origin.z);
    }
    text += QStringLiteral(", depth %1").arg(transform->depth());
    if (transform->transformation().hasDeformation())
        text += QStringLiteral(", deformed");
    return "<" + type + ": " + text.toStdString() + ">";
}

} // namespace

std::vector<ClassTable> transformationTables()
{
    using namespace OMC;
    return {
        Class<Transformation>(
            "Transformation",
            "What a picture goes through at a port at a frame: a matrix, its depth among what is drawn, "
            "and deformations. It is a value, changing it changes no port; made by a script it belongs "
            "to no port. Each step is added from the right: the one added last acts first.")
            .constructors<Construct<&newOf<Transformation>>>()
            .value<&stateOf, &transformationOf, &textOf>()
            .property("depth", "Its place among what is drawn.")
            .property("valid", "Whether anything was set or added.")
            .property("matrix", "A new Matrix, without deformations; takes what Matrix(value) takes.")
            .property("deformation_valid", "Whether it has deformations.")
            .property("deformation", "The Deformation, or None without deformations.")
            .property("origin", "Where (0, 0, 0) is put, a Point3d.")
            .method<"set", Form<&Transformation::set, "matrix">>(
                "Replaces the matrix by anything that Matrix(value) takes.")
            .method<"reset", Form<&Transformation::reset>>(
                "Becomes the identity at depth 0, without deformations and not valid.")
            .method<"translate", Form<pick<double, double, double>(&Transformation::translate), "x, y, z">,
                    Form<pick<const QVariant&>(&Transformation::translate), "vector">>(
                "Adds a move, by three numbers or by anything that Vector3d takes.")
            .method<"scale", Form<&Transformation::scale, "x, y, z">>("Adds a scale along each axis.")
            .method<"rotate_degrees", Form<&Transformation::rotateDegrees, "angle, axis=None">>(
                "Adds a turn, counter-clockwise about an axis; None is the z axis, out of the picture.")
            .method<"rotate_radians", Form<&Transformation::rotateRadians, "angle, axis=None">>(
                "Adds a turn, counter-clockwise about an axis; None is the z axis, out of the picture.")
            .method<"skew", Form<&Transformation::skew, "angle">>(
                "Adds a lean of the y axis towards x by an angle in degrees; heights stay.")
            .method<"multiply", Form<&Transformation::multiply, "matrix">>(
                "Adds a matrix in any form that Matrix(value) takes.")
            .method<"add", Form<&Transformation::add, "other">>(
                "Adds another transformation with its deformations, or a matrix as multiply() does.")
            .method<"matrix_inversed", Form<&Transformation::matrixInversed>>(
                "The inverse of the matrix as a new Matrix; fails for a singular one.")
            .method<"matrix_with_deformation", Form<&Transformation::matrixWithDeformation>>(
                "A new Matrix with what the deformations do to a drawing as a whole.")
            .method<"deformation_reset", Form<&Transformation::deformationReset>>("Drops all deformations.")
            .method<"__copy__", Form<&newCopy>>("A copy with the same deformations.")
            .method<"__deepcopy__", Form<&newDeepCopy, "memo">>("A copy with the same deformations."),
    };
}

} // namespace brindle::python
