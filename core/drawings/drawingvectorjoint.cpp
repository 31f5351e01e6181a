#include "core/drawings/drawingvectorjoint.h"

#include "core/drawings/drawingvectorcolour.h"
#include "core/drawings/drawingvectorjointlist.h"
#include "core/frame/found.h"
#include "core/geometry/vectors.h"

namespace OMC {

struct DrawingVectorJoint::Block {
    DrawingVectorStroke stroke;                 ///< The stroke and
    GR_StrokeAccess::StrokeExtremity extremity; ///< the end that name it.
    int revision;                               ///< Of the drawing, for which the joint is good.
    GR_Joint joint;
};

DrawingVectorJoint::DrawingVectorJoint(DrawingLayerImplShared* layer, const GR_Joint& joint)
    : DrawingVectorJoint(DrawingVectorStroke(layer, joint.GetStrokeAccess().GetStroke()), joint)
{}

DrawingVectorJoint::DrawingVectorJoint(const DrawingVectorStroke& stroke, const GR_Joint& joint)
    : d(std::make_shared<Block>(
          Block{stroke, joint.GetStrokeAccess().GetExtremity(), stroke.layerRecord()->revision(), joint}))
{}

DrawingVectorJoint::DrawingVectorJoint(const DrawingVectorJoint& other) : BaseObject(other), d(other.d) {}

DrawingVectorJoint& DrawingVectorJoint::operator=(const DrawingVectorJoint& other)
{
    d = other.d;
    return *this;
}

std::string DrawingVectorJoint::__str__() const
{
    return "DrawingVectorJoint()";
}

bool DrawingVectorJoint::operator==(const DrawingVectorJoint& other) const
{
    if (d == other.d)
        return true;
    try {
        const GR_Joint& own = validateJoint();
        return own.GetStrokeAccess().GetStroke() && own == other.validateJoint();
    } catch (const Exception&) { // What is gone is equal to nothing else.
        return false;
    }
}

// --- Finding the joint ----------------------------------------------------------------------------------------------

const GR_Joint& DrawingVectorJoint::validateJoint() const
{
    const GR_VectorStroke* stroke = d->stroke.validateStroke();
    if (const int revision = layerRecord()->revision(); revision != d->revision) {
        d->joint = GR_Joint(GR_StrokeAccess(stroke, d->extremity));
        d->revision = revision;
    }
    return d->joint;
}

GR_Joint DrawingVectorJoint::getJoint() const
{
    return validateJoint();
}

void DrawingVectorJoint::validate() const
{
    found(validateJoint().GetStrokeAccess().GetStroke());
    validateThreadLock();
}

const GR_Joint& DrawingVectorJoint::joint() const
{
    validate();
    return d->joint;
}

DrawingLayerImplShared* DrawingVectorJoint::layerRecord() const
{
    return d->stroke.layerRecord();
}

layerprimitives::Key DrawingVectorJoint::key() const
{
    return {validateJoint().GetStrokeAccess().GetStroke(), d->extremity};
}

std::vector<DrawingVectorJoint> DrawingVectorJoint::getDrawingVectorJointFromQVariant(const QVariant& value)
{
    std::vector<DrawingVectorJoint> joints;
    getDrawingVectorJointFromQVariant(value, joints);
    return joints;
}

void DrawingVectorJoint::getDrawingVectorJointFromQVariant(const QVariant& value,
                                                           std::vector<DrawingVectorJoint>& joints)
{
    layerprimitives::collect<DrawingVectorJoint, DrawingVectorJointList>(value, joints);
}

// --- Neighbours -----------------------------------------------------------------------------------------------------

Obj DrawingVectorJoint::wrapped(const GR_Joint& joint) const
{
    return Obj(new DrawingVectorJoint(layerRecord(), joint));
}

Obj DrawingVectorJoint::stroke() const
{
    validate();
    return Obj(new DrawingVectorStroke(d->stroke));
}

Obj DrawingVectorJoint::layer() const
{
    validate();
    return d->stroke.layer();
}

Obj DrawingVectorJoint::drawing() const
{
    validate();
    return d->stroke.drawing();
}

Obj DrawingVectorJoint::jointOpposite() const
{
    return wrapped(joint().Opposite());
}

Obj DrawingVectorJoint::left() const
{
    return wrapped(joint().Left());
}

Obj DrawingVectorJoint::right() const
{
    return wrapped(joint().Right());
}

QVariant DrawingVectorJoint::getContours() const
{
    return layerprimitives::contours(*layerRecord(), joint().GetContours());
}

// --- Properties -----------------------------------------------------------------------------------------------------

int DrawingVectorJoint::getDegree() const
{
    return joint().GetDegree();
}

QString DrawingVectorJoint::getExtremity() const
{
    switch (joint().GetStrokeAccess().GetExtremity()) {
    case GR_StrokeAccess::kHead:
        return QStringLiteral("Head");
    case GR_StrokeAccess::kTail:
        return QStringLiteral("Tail");
    default:
        return QStringLiteral("Invalid");
    }
}

bool DrawingVectorJoint::getEmpty() const
{
    return joint().IsEmpty();
}

Obj DrawingVectorJoint::getPosition() const
{
    return Obj(new Point2d(joint().GetStrokeAccess().GetJointPosition()));
}

Obj DrawingVectorJoint::getColorInside() const
{
    const GR_ColorPtr colour = joint().GetInsideColor();
    return colour ? Obj(new DrawingVectorColour(colour)) : Obj();
}

Obj DrawingVectorJoint::getColorOutside() const
{
    const GR_ColorPtr colour = joint().GetOutsideColor();
    return colour ? Obj(new DrawingVectorColour(colour)) : Obj();
}

Obj DrawingVectorJoint::getTangent() const
{
    return Obj(new Vector2d(joint().GetStrokeAccess().GetTangent()));
}

} // namespace OMC
