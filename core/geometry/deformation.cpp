#include "core/geometry/deformation.h"

#include "core/geometry/point3d.h"
#include "core/host/ut_sharebase.h"

#include <utility>

namespace OMC {

namespace {

using Vertex = GR_VertexTransform::Vertex;

/// Whether a value stands for one point.
bool isOnePoint(const QVariant& value)
{
    if (value.typeId() != QMetaType::QVariantList)
        return true;
    const QList<QVariant> list = value.toList();
    if (list.isEmpty() || list.size() > 3)
        return false;
    return list.first().typeId() == QMetaType::Double || list.first().typeId() == QMetaType::Int;
}

Vertex vertexAt(const Math::Point3d& point)
{
    return {static_cast<float>(point.x), static_cast<float>(point.y)};
}

} // namespace

struct Deformation::Block : UT_ShareBase {
    VS_CacheId cache;
    std::unique_ptr<MO_DeformationOglRenderer> renderer; ///< Lives as long as what it made.
    std::vector<VertexTransform> transforms;
};

Deformation::Deformation(std::unique_ptr<MO_DeformationOglRenderer> renderer, std::vector<VertexTransform> transforms,
                         const VS_CacheId& cache)
    : d(new Block)
{
    d->cache = cache;
    d->renderer = std::move(renderer);
    d->transforms = std::move(transforms);
}

Deformation::Deformation(const Deformation& other) : BaseObject(other), d(other.d) {}

Deformation::~Deformation() = default;

std::string Deformation::__str__() const
{
    return QStringLiteral("Deformation()[%1]").arg(d->transforms.size()).toStdString();
}

QVariant Deformation::transform(const QVariant& value, bool scaled) const
{
    validate();
    Math::Matrix4x4 forward;
    Math::Matrix4x4 inverse;
    if (!scaled) {
        try {
            forward = GR_Deform::implicitScalingMatrix();
            inverse = forward.getInverse();
        } catch (...) {
            throwUnexpected();
        }
    }

    const bool onePoint = isOnePoint(value);
    std::vector<Vertex> input;
    for (const QVariant& item : onePoint ? QList<QVariant>{value} : value.toList())
        input.push_back(vertexAt(forward * Point3d::valueOf(item)));

    // Required: each deformer gets the points as they came in, and the last one that writes a place decides.
    std::vector<Vertex> output(input.size());
    const VS_CacheId cache;
    if (!input.empty()) {
        for (const VertexTransform& transform : d->transforms)
            transform->transform(cache, input.data(), input.data() + input.size(), output.data());
    }

    QList<QVariant> points;
    points.reserve(static_cast<qsizetype>(output.size()));
    for (const Vertex& vertex : output) {
        const Math::Point3d point = inverse * Math::Point3d{vertex.x, vertex.y, 0};
        points.append(QVariant::fromValue(Point3d(point.x, point.y, point.z)));
    }
    return onePoint ? points.first() : QVariant(points);
}

} // namespace OMC
