#include "engine/transformations/localtransformation.h"

#include "engine/attributes/attributeset.h"
#include "engine/attributes/complexattribute.h"
#include "engine/graph/node.h"
#include "engine/math/angle.h"

namespace brindle::engine {

namespace {

template <typename Class, typename Host>
void find(const AttributeSet& attributes, const QString& keyword, Host*& found)
{
    // The kind tells the class, in a tenth of the time of a cast: a long chain asks for many.
    AT_Attr* attribute = attributes.findTop(keyword);
    if (attribute && &metaOf(*attribute).kind() == &attributeKind<Class>)
        found = static_cast<Class*>(attribute);
}

/// The classes behind the pointers, whose values are read without a virtual call.
using Position = AxesAttribute<AT_Position3dAttr>;
using Scale = AxesAttribute<AT_Scale3dAttr>;
using Rotation = AxesAttribute<AT_Rotation3dAttr>;

/// translate(place) rotateZ(degrees).
Math::Matrix4x4 turnedAt(const Math::Point3d& place, double degrees)
{
    const SineCosine turn = degrees != 0 ? SineCosine::ofDegrees(degrees) : SineCosine{0, 1};
    const double cells[16] = {turn.cosine, turn.sine, 0, 0, -turn.sine, turn.cosine, 0,       0,
                              0,           0,         1, 0, place.x,    place.y,     place.z, 1};
    return Math::Matrix4x4(cells);
}

} // namespace

TransformationAttributes::TransformationAttributes(const Node& node)
{
    const AttributeSet& attributes = node.attributes();
    find<Position>(attributes, QStringLiteral("position"), position);
    if (!exist())
        return;
    find<Scale>(attributes, QStringLiteral("scale"), scale);
    find<Rotation>(attributes, QStringLiteral("rotation"), rotation);
    find<DoubleAttribute>(attributes, QStringLiteral("angle"), angle);
    find<DoubleAttribute>(attributes, QStringLiteral("skew"), skew);
    find<Position>(attributes, QStringLiteral("pivot"), pivot);
    find<BoolAttribute>(attributes, QStringLiteral("full_transform"), fullTransform);
}

Math::Matrix4x4 TransformationAttributes::matrix(double frame, const Math::Vector3d& toOgl) const
{
    const auto inUnits = [&toOgl](const Math::Point3d& fields) {
        return Math::Point3d{fields.x * toOgl.x, fields.y * toOgl.y, fields.z * toOgl.z};
    };
    const bool inSpace = isInSpace(frame);
    const Math::Point3d place = inUnits(static_cast<Position*>(position)->value(frame));
    const Math::Point3d about = pivot ? inUnits(static_cast<Position*>(pivot)->value(frame)) : Math::Point3d();

    const bool turnsInSpace = inSpace && rotation;
    const double degrees = !turnsInSpace && angle ? static_cast<DoubleAttribute*>(angle)->value(frame) : 0;
    Math::Matrix4x4 matrix = turnedAt({place.x + about.x, place.y + about.y, place.z + about.z}, degrees);
    if (turnsInSpace) {
        const Math::Point3d angles = static_cast<Rotation*>(rotation)->value(frame);
        if (angles.z != 0)
            matrix.rotateDegrees(angles.z, {0, 0, 1});
        if (angles.y != 0)
            matrix.rotateDegrees(angles.y, {0, 1, 0});
        if (angles.x != 0)
            matrix.rotateDegrees(angles.x, {1, 0, 0});
    }
    if (const double leaning = skew ? static_cast<DoubleAttribute*>(skew)->value(frame) : 0; leaning != 0)
        matrix.skew(leaning);
    if (const Math::Point3d factors = static_cast<Scale*>(scale)->value(frame);
        factors.x != 1 || factors.y != 1 || (inSpace && factors.z != 1))
        matrix.scale(factors.x, factors.y, inSpace ? factors.z : 1);
    if (about.x != 0 || about.y != 0 || about.z != 0)
        matrix.translate(-about.x, -about.y, -about.z);
    return matrix;
}

} // namespace brindle::engine
