#include "core/nodes/pegnode.h"

#include "core/attributes/attribute.h"
#include "core/frame/finite.h"
#include "core/frame/found.h"
#include "core/frame/undo.h"
#include "core/geometry/matrix.h"
#include "core/geometry/transformation.h"
#include "core/geometry/vectors.h"
#include "core/host/at_attr.h"
#include "core/host/mo_node.h"
#include "core/host/mo_port.h"
#include "core/host/mo_porttransform.h"
#include "core/host/sc_metrics.h"
#include "core/host/sc_scene.h"
#include "core/nodes/pegedit.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>

namespace OMC {

namespace {

constexpr std::array<std::string_view, 6> shownSetters = {
    "set_pivot", "set_matrix", "set_translation", "set_rotation", "set_scale", "set_skew",
};

MO_BaseContext contextAt(double frame)
{
    return MO_BaseContext(MO_FrameKey(frame), 0);
}

bool isNumber(const QVariant& value)
{
    return value.typeId() == QMetaType::Int || value.typeId() == QMetaType::Double;
}

/// The matrix that a script's argument tells; an argument that tells none is refused.
Math::Matrix4x4 readMatrix(const QVariant& argument)
{
    const QObject* object = BaseObject::QVariantToPointer(argument);
    bool isMatrix = false;
    if (object)
        isMatrix = dynamic_cast<const Matrix*>(object) || dynamic_cast<const Transformation*>(object) ||
                   Point3d::coordinatesOf(object);
    else if (argument.typeId() != QMetaType::QVariantList)
        argument.toDouble(&isMatrix);
    else
        isMatrix = true;
    if (!isMatrix)
        BaseObject::throwUnexpected();
    const std::unique_ptr<Matrix> matrix(Matrix::fromQVariant(argument));
    if (matrix->getMatrix().hasNan() || matrix->getMatrix().hasInfinity())
        BaseObject::throwInvalidArgument(1);
    return matrix->getMatrix();
}

/// What a script's argument tells of three numbers; the rest is as in `present`.
Math::Vector3d readNumbers(const QVariant& argument, Math::Vector3d present)
{
    Point3d::ConvertQVariant(argument, present.x, present.y, present.z);
    for (const double number : {present.x, present.y, present.z})
        requireFinite(number, 1);
    return present;
}

/// The same of angles: a single number is the one about z.
Math::Vector3d readAngles(const QVariant& argument, Math::Vector3d present)
{
    if (!isNumber(argument))
        return readNumbers(argument, present);
    present.z = argument.toDouble();
    requireFinite(present.z, 1);
    return present;
}

Math::Vector3d asVector(const Math::Point3d& point)
{
    return {point.x, point.y, point.z};
}

Math::Point3d asPoint(const Math::Vector3d& vector)
{
    return {vector.x, vector.y, vector.z};
}

Obj newVector(const Math::Vector3d& vector)
{
    return Obj(new Vector3d(vector.x, vector.y, vector.z));
}

Math::Vector3d anglesOf(const TUPegModule& peg, double frame)
{
    const MO_PegTransform& transform = peg.pegTransform();
    if (transform.usesFullTransform())
        return asVector(transform.rotation3d()->value(frame));
    return {0, 0, transform.rotationAngle()->value(frame)};
}

Math::Vector3d factorsOf(const TUPegModule& peg, double frame)
{
    Math::Vector3d factors = asVector(peg.pegTransform().scale()->value(frame));
    if (!peg.pegTransform().usesFullTransform())
        factors.z = 1;
    return factors;
}

/// Takes off a point what an element adds between the peg's pivot and what it shows, in fields.
void takeOff(const MO_ElementModule& element, double frame, const SC_SceneMetrics& metrics, Math::Point3d& point)
{
    Math::Point3d pivot;
    Math::Matrix4x4 matrix;
    if (!element.getPivotForParent(contextAt(frame), pivot, matrix))
        return;
    try {
        point = metrics.fromOGL(matrix.getInverse() * metrics.toOGL(point));
    } catch (const std::exception&) {
        // Required: an element that collapses its picture leaves the point as it was.
    }
    point = point - asVector(pivot);
}

} // namespace

PegNode::PegNode(TUPegModule* node) : Node(node) {}

std::string PegNode::__str__() const
{
    return textAs("PegNode");
}

bool PegNode::filterDir(std::string& name) const
{
    return std::ranges::find(shownSetters, name) != shownSetters.end() || Node::filterDir(name);
}

Obj PegNode::matrix(int frame) const
{
    const MO_PortTransform& transform =
        found(peg().getPortTransformation(contextAt(frame)), &BaseObject::throwUnexpected);
    return Obj(new Matrix(transform.transformation().matrix(false)));
}

Obj PegNode::pivot(int frame, bool inUse) const
{
    const MO_PegTransform& transform = peg().pegTransform();
    const Math::Point3d point = inUse ? transform.pivotAt(contextAt(frame)) : transform.pivot()->value(frame);
    return Obj(new Point3d(point.x, point.y, point.z));
}

Obj PegNode::rotation(int frame) const
{
    return newVector(anglesOf(peg(), frame));
}

Obj PegNode::scale(int frame) const
{
    return newVector(factorsOf(peg(), frame));
}

double PegNode::skew(int frame) const
{
    return peg().pegTransform().skew()->value(frame);
}

Obj PegNode::translation(int frame) const
{
    return newVector(asVector(peg().pegTransform().position()->value(frame)));
}

void PegNode::setMatrix(int frame, const QVariant& matrix, bool adjustColumn)
{
    TUPegModule& peg = this->peg();
    const Math::Matrix4x4 read = readMatrix(matrix);
    const PegEdit edit(peg);
    const PegParts parts(read, peg, frame);
    const undo::Scope scope(edit.manager(), tr("Applying matrix to peg transformation."));
    edit.setScale(frame, parts.scale, adjustColumn);
    edit.setRotation(frame, parts.rotation, adjustColumn);
    edit.setSkew(frame, parts.skew, adjustColumn);
    edit.setTranslation(frame, edit.scene().metrics()->fromOGL(asPoint(parts.translation)), adjustColumn);
}

void PegNode::setPivot(int frame, const QVariant& point, bool keepPlace)
{
    TUPegModule& peg = this->peg();
    Math::Point3d pivot = asPoint(readNumbers(point, asVector(peg.pegTransform().pivot()->value(frame))));
    const PegEdit edit(peg);
    const SC_SceneMetrics* metrics = edit.scene().metrics();
    const MO_Port* out = keepPlace && metrics ? peg.outPort(0) : nullptr;
    for (auto next = out ? out->dstPortsEnd() : nullptr; out && next != out->dstPortsBegin();) {
        if (const auto* element = dynamic_cast<const MO_ElementModule*>((*--next)->node()))
            takeOff(*element, frame, *metrics, pivot);
    }
    edit.setPivot(pivot);
}

void PegNode::setRotation(int frame, const QVariant& value, bool adjustColumn)
{
    TUPegModule& peg = this->peg();
    const Math::Vector3d angles = readAngles(value, anglesOf(peg, frame));
    PegEdit(peg).setRotation(frame, angles, adjustColumn);
}

void PegNode::setScale(int frame, const QVariant& value, bool adjustColumn)
{
    TUPegModule& peg = this->peg();
    const Math::Vector3d factors = readNumbers(value, factorsOf(peg, frame));
    PegEdit(peg).setScale(frame, factors, adjustColumn);
}

void PegNode::setSkew(int frame, const QVariant& value, bool adjustColumn)
{
    TUPegModule& peg = this->peg();
    if (!isNumber(value))
        throw Exception(tr("Unable to identify argument type - a number-value is required."));
    const double angle = value.toDouble();
    requireFinite(angle, 1);
    PegEdit(peg).setSkew(frame, angle, adjustColumn);
}

void PegNode::setTranslation(int frame, const QVariant& value, bool adjustColumn)
{
    TUPegModule& peg = this->peg();
    const Math::Vector3d fields = readNumbers(value, asVector(peg.pegTransform().position()->value(frame)));
    PegEdit(peg).setTranslation(frame, asPoint(fields), adjustColumn);
}

void PegNode::applyMatrix(const QVariant& range, const QVariant& matrix)
{
    TUPegModule& peg = this->peg();
    const Math::Matrix4x4 read = readMatrix(matrix);
    int start = 0;
    int end = 0;
    bool isRange = false;
    Attribute::deriveRangeQVariant(peg.sceneCommon(), range, start, end, isRange);
    const MO_FrameRange frames = Attribute::frameRange(peg.sceneCommon(), range);
    const PegEdit edit(peg);
    const PegParts parts(read, peg, start);
    const Math::Point3d fields = edit.scene().metrics()->fromOGL(asPoint(parts.translation));
    const undo::Scope scope(edit.manager(), tr("Applying matrix to peg transformation."));
    edit.applyScale(frames, parts.scale);
    edit.applyRotation(frames, parts.rotation);
    edit.applySkew(frames, parts.skew);
    edit.applyTranslation(frames, asVector(fields));
}

void PegNode::applyRotation(const QVariant& range, const QVariant& value)
{
    TUPegModule& peg = this->peg();
    const Math::Vector3d angles = readAngles(value, {});
    const MO_FrameRange frames = Attribute::frameRange(peg.sceneCommon(), range);
    PegEdit(peg).applyRotation(frames, angles);
}

void PegNode::applyScale(const QVariant& range, const QVariant& value)
{
    TUPegModule& peg = this->peg();
    const Math::Vector3d factors = readNumbers(value, {1, 1, 1});
    const MO_FrameRange frames = Attribute::frameRange(peg.sceneCommon(), range);
    PegEdit(peg).applyScale(frames, factors);
}

void PegNode::applySkew(const QVariant& range, double value)
{
    TUPegModule& peg = this->peg();
    requireFinite(value, 1);
    const MO_FrameRange frames = Attribute::frameRange(peg.sceneCommon(), range);
    PegEdit(peg).applySkew(frames, value);
}

void PegNode::applyTranslation(const QVariant& range, const QVariant& value)
{
    TUPegModule& peg = this->peg();
    const Math::Vector3d fields = readNumbers(value, {});
    const MO_FrameRange frames = Attribute::frameRange(peg.sceneCommon(), range);
    PegEdit(peg).applyTranslation(frames, fields);
}

TUPegModule& PegNode::peg() const
{
    return foundAs<TUPegModule>(&target(), [] { return tr("Unexpected node-type found."); });
}

} // namespace OMC
