#include "core/geometry/transformation.h"

#include "core/geometry/deformation.h"
#include "core/geometry/matrix.h"
#include "core/geometry/matrixarguments.h"

#include <set>
#include <utility>

namespace OMC {

namespace {

std::unique_ptr<MO_PortTransform> copyOf(const MO_PortTransform* transform)
{
    return transform ? std::make_unique<MO_PortTransform>(*transform) : nullptr;
}

std::unique_ptr<MO_PortTransform> detached()
{
    return std::make_unique<MO_PortTransform>(nullptr, MO_FrameKey(1.0));
}

/// Adds what a step makes of the identity; nothing changes where it throws.
template <typename Step>
void addStep(CC_Transformation& transformation, Step step)
{
    Math::Matrix4x4 matrix;
    step(matrix);
    transformation.add(matrix);
}

} // namespace

struct Transformation::Private {
    std::unique_ptr<MO_PortTransform> transform;
    std::unique_ptr<Deformation> deformation; ///< Handed out, once it was asked for.
};

Transformation::Transformation() : Transformation(detached()) {}

Transformation::Transformation(const MO_PortTransform* transform)
    : Transformation(transform ? copyOf(transform) : detached())
{}

Transformation::Transformation(const Transformation& other)
    : BaseObject(other),
      d(new Private{copyOf(other.d->transform.get()), nullptr})
{}

Transformation::Transformation(std::unique_ptr<MO_PortTransform> transform)
    : d(new Private{std::move(transform), nullptr})
{}

Transformation::~Transformation() = default;

Transformation& Transformation::operator=(const Transformation& other)
{
    d->transform = copyOf(other.d->transform.get());
    d->deformation.reset();
    return *this;
}

std::string Transformation::__str__() const
{
    return tr("Transformation()").toStdString();
}

bool Transformation::operator==(const Transformation& other) const
{
    const MO_PortTransform* one = getPortTransform();
    const MO_PortTransform* two = other.getPortTransform();
    return one && two ? *one == *two : one == two;
}

const MO_PortTransform* Transformation::getPortTransform() const
{
    return d->transform.get();
}

/// The transformation of the port transform. Required: the failure speaks of setting, also where it is read.
CC_Transformation& Transformation::required() const
{
    if (!d->transform)
        throw Exception(tr("Failed to set the matrix - transformation is invalid."));
    return d->transform->transformation();
}

int Transformation::getDepth() const
{
    return d->transform ? d->transform->depth() : 0;
}

void Transformation::setDepth(int depth)
{
    if (d->transform)
        d->transform->setDepth(depth);
}

bool Transformation::getValid() const
{
    return d->transform && d->transform->isTransformationSet();
}

QVariant Transformation::getMatrix() const
{
    if (!d->transform)
        throw Exception(tr("Transformation is invalid."));
    return toVariant(new Matrix(d->transform->transformation().matrix(false)));
}

void Transformation::setMatrix(const QVariant& matrix)
{
    set(matrix);
}

void Transformation::set(const QVariant& matrix)
{
    CC_Transformation& transformation = required();
    transformation.set(Matrix::valueOf(matrix));
}

void Transformation::reset()
{
    if (d->transform)
        d->transform->clear();
}

void Transformation::translate(double x, double y, double z)
{
    addStep(required(), [&](Math::Matrix4x4& step) {
        requireFinite({x, y, z});
        step.translate(x, y, z);
    });
}

void Transformation::translate(const QVariant& vector)
{
    addStep(required(), [&](Math::Matrix4x4& step) {
        if (vector.isNull())
            throw Exception(tr("Failed to identify vector argument."));
        const Math::Point3d way = Point3d::valueOf(vector);
        step.translate(way.x, way.y, way.z);
    });
}

void Transformation::scale(double x, double y, double z)
{
    addStep(required(), [&](Math::Matrix4x4& step) {
        requireFinite({x, y, z});
        step.scale(x, y, z);
    });
}

void Transformation::rotateDegrees(double angle, const QVariant& axis)
{
    addStep(required(), [&](Math::Matrix4x4& step) {
        requireFinite(angle, 0);
        step.rotateDegrees(angle, rotationAxis(axis));
    });
}

void Transformation::rotateRadians(double angle, const QVariant& axis)
{
    addStep(required(), [&](Math::Matrix4x4& step) {
        requireFinite(angle, 0);
        step.rotateRadians(angle, rotationAxis(axis));
    });
}

void Transformation::skew(double angle)
{
    addStep(required(), [&](Math::Matrix4x4& step) {
        requireFinite(angle, 0);
        step.skew(angle);
    });
}

void Transformation::multiply(const QVariant& matrix)
{
    CC_Transformation& transformation = required();
    transformation.add(Matrix::valueOf(matrix));
}

void Transformation::add(const QVariant& other)
{
    CC_Transformation& transformation = required();
    const auto* added = objectFrom<Transformation>(other);
    if (added && added->d->transform)
        transformation.addTransformation(added->d->transform->transformation());
    else
        multiply(other);
}

Obj Transformation::matrixInversed() const
{
    return Obj(new Matrix(inverseOf<Transformation>(required().matrix(false))));
}

bool Transformation::getDeformationValid() const
{
    return required().hasDeformation();
}

void Transformation::deformationReset()
{
    CC_Transformation& transformation = required();
    d->deformation.reset();
    std::vector<MO_Deformation*> deformations;
    transformation.allDeformations(deformations);
    std::set<unsigned int> ids;
    for (const MO_Deformation* deformation : deformations)
        ids.insert(deformation->id());
    for (const unsigned int id : ids)
        transformation.resetAllDeformation(id);
}

Obj Transformation::matrixWithDeformation() const
{
    return Obj(new Matrix(required().matrix(true)));
}

Obj Transformation::getOrigin() const
{
    const Math::Point3d origin = required().matrix(false).origin();
    return Obj(new Point3d(origin.x, origin.y, origin.z));
}

Obj Transformation::getDeformation() const
{
    if (!d->transform)
        throw Exception(tr("Transformation is invalid."));
    if (d->deformation)
        return Obj(d->deformation.get());
    const CC_Transformation& transformation = d->transform->transformation();
    std::vector<MO_Deformation*> deformations;
    transformation.allDeformations(deformations);
    if (!transformation.hasDeformation() || deformations.empty())
        return {};

    const VS_CacheId cache;
    std::unique_ptr<MO_DeformationOglRenderer> renderer; // Required: the last one stays.
    std::vector<Deformation::VertexTransform> transforms;
    for (const MO_Deformation* deformation : deformations) {
        const auto* information = dynamic_cast<const MO_DeformationInformation*>(deformation);
        if (!information || !information->enabled() || !information->rendererInterface())
            continue;
        renderer = information->rendererInterface()->createOglRenderer();
        renderer->setDeformation(*deformation);
        if (auto transform = renderer->vertexTransform(cache))
            transforms.push_back(std::move(transform));
    }
    d->deformation = std::make_unique<Deformation>(std::move(renderer), std::move(transforms), cache);
    d->deformation->setOwnership(OwnedByNative); // Handles share it instead of copying it.
    return Obj(d->deformation.get());
}

} // namespace OMC
