#include "core/geometry/transformation.h"

#include "core/geometry/matrix.h"
#include "service/python/family.h"
#include "service/python/statereader.h"

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

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<Transformation>()
            .property("matrix", "Matrix", "MatrixLike")
            .property("deformation", "Deformation | None")
            .property("origin", "Point3d")
            .constructors<Construct<&newOf<Transformation>>>()
            .value<&stateOf, &transformationOf, &textOf>()
            .method<"set", Form<&Transformation::set, "matrix: MatrixLike">>()
            .method<"reset", Form<&Transformation::reset>>()
            .method<"translate", Form<pick<double, double, double>(&Transformation::translate), "x, y, z">,
                    Form<pick<const QVariant&>(&Transformation::translate), "vector: PointLike">>()
            .method<"scale", Form<&Transformation::scale, "x, y, z">>()
            .method<"rotate_degrees", Form<&Transformation::rotateDegrees, "angle, axis: PointLike | None=None">>()
            .method<"rotate_radians", Form<&Transformation::rotateRadians, "angle, axis: PointLike | None=None">>()
            .method<"skew", Form<&Transformation::skew, "angle">>()
            .method<"multiply", Form<&Transformation::multiply, "matrix: MatrixLike">>()
            .method<"add", Form<&Transformation::add, "other: MatrixLike">>()
            .method<"matrix_inversed", Form<&Transformation::matrixInversed, "-> Matrix">>()
            .method<"matrix_with_deformation", Form<&Transformation::matrixWithDeformation, "-> Matrix">>()
            .method<"deformation_reset", Form<&Transformation::deformationReset>>()
            .method<"__copy__", Form<&newCopy, "-> Self">>("A copy with the same deformations.")
            .method<"__deepcopy__", Form<&newDeepCopy, "memo -> Self">>("A copy with the same deformations."),
    };
});

} // namespace

} // namespace brindle::python
