#include "core/nodes/pegedit.h"

#include "core/attributes/attributebuilder.h"
#include "core/attributes/axescommands.h"
#include "core/frame/found.h"
#include "core/frame/undo.h"
#include "core/host/mo_node.h"
#include "core/host/pr_preference.h"
#include "core/host/sc_metrics.h"
#include "core/nodes/node.h"

namespace OMC {

namespace {

QString scaleLabel()
{
    return Node::tr("Changing peg scale.");
}

QString rotationLabel()
{
    return Node::tr("Changing peg rotation.");
}

QString skewLabel()
{
    return Node::tr("Changing peg skew.");
}

QString translationLabel()
{
    return Node::tr("Changing peg translation.");
}

CO_Command* setNumber(AT_DoubleAttr& attr, double frame, double value, bool adjustColumn)
{
    return tu_attr::setValueCommand(attr, frame, value,
                                    {.force = true,
                                     .adjustColumn = adjustColumn,
                                     .constantSegment = PR_CachedPreferences::getSpConstantSegment()})
        .release();
}

CO_Command* offsetNumber(AT_DoubleAttr& attr, double delta, const MO_FrameRange& range)
{
    return new tu_attr::OffsetValueAllFramesCmd<AT_DoubleAttr>(attr, delta, range);
}

} // namespace

PegParts::PegParts(const Math::Matrix4x4& matrix, const TUPegModule& peg, double frame)
{
    const SC_SceneCommon* scene = peg.sceneCommon();
    const SC_SceneMetrics& metrics = found(scene ? scene->metrics() : nullptr, [] { BaseObject::throwUnexpected(); });
    const MO_PegTransform& transform = peg.pegTransform();
    const Math::Point3d pivot = metrics.toOGL(transform.pivotAt(MO_BaseContext(MO_FrameKey(frame), 0)));
    // Required: with the full transform the matrix is taken apart in the plane, for its skew, and without it in space.
    if (transform.usesFullTransform())
        matrix.extractParameters(false, false, pivot.x, pivot.y, translation.x, translation.y, translation.z, scale.x,
                                 scale.y, rotation.z, skew);
    else
        matrix.extractParameters(pivot.x, pivot.y, pivot.z, translation.x, translation.y, translation.z, scale.x,
                                 scale.y, scale.z, rotation.x, rotation.y, rotation.z);
}

PegEdit::PegEdit(TUPegModule& peg)
    : m_peg(peg),
      m_scene(found(peg.sceneCommon(), unexpected::ErrorOccurred)),
      m_manager(undo::manager(&m_scene))
{}

void PegEdit::setScale(double frame, const Math::Vector3d& factors, bool adjustColumn) const
{
    AT_Scale3dAttr& attr = *m_peg.pegTransform().scale();
    CO_Command* command = nullptr;
    if (m_peg.pegTransform().usesFullTransform())
        command =
            new tu_attr::scale3d::SetValueCurrentFrameCmd(attr, frame, factors.x, factors.y, factors.z, adjustColumn);
    else
        command = new tu_attr::scale::SetValueCurrentFrameCmd(attr, frame, factors.x, factors.y, adjustColumn);
    m_manager.execute(command, scaleLabel());
}

void PegEdit::setRotation(double frame, const Math::Vector3d& angles, bool adjustColumn) const
{
    const MO_PegTransform& transform = m_peg.pegTransform();
    CO_Command* command = nullptr;
    if (transform.usesFullTransform())
        command = new tu_attr::rotation3d::SetValueCurrentFrameCmd(
            *transform.rotation3d(), frame, angles, PR_CachedPreferences::getSpConstantSegment(), adjustColumn);
    else
        command = setNumber(*transform.rotationAngle(), frame, angles.z, adjustColumn);
    m_manager.execute(command, rotationLabel());
}

void PegEdit::setSkew(double frame, double angle, bool adjustColumn) const
{
    m_manager.execute(setNumber(*m_peg.pegTransform().skew(), frame, angle, adjustColumn), skewLabel());
}

void PegEdit::setTranslation(double frame, const Math::Point3d& fields, bool adjustColumn) const
{
    m_manager.execute(new tu_attr::position3d::SetValueCurrentFrameCmd(*m_peg.pegTransform().position(), frame,
                                                                       fields.x, fields.y, fields.z, adjustColumn),
                      translationLabel());
}

void PegEdit::setPivot(const Math::Point3d& fields) const
{
    m_manager.execute(
        new tu_attr::position3d::SetLocalValueCmd(*m_peg.pegTransform().pivot(), fields.x, fields.y, fields.z),
        Node::tr("Changing peg pivot."));
}

void PegEdit::applyScale(const MO_FrameRange& range, const Math::Vector3d& factors) const
{
    AT_Scale3dAttr& attr = *m_peg.pegTransform().scale();
    CO_Command* command = nullptr;
    if (m_peg.pegTransform().usesFullTransform())
        command = new tu_attr::scale3d::ScaleAllFramesCmd(attr, factors.x, factors.y, factors.z, range);
    else
        command = new tu_attr::scale::ScaleAllFramesCmd(attr, factors.x, factors.y, range);
    m_manager.execute(command, scaleLabel());
}

void PegEdit::applyRotation(const MO_FrameRange& range, const Math::Vector3d& angles) const
{
    const MO_PegTransform& transform = m_peg.pegTransform();
    CO_Command* command = nullptr;
    if (transform.usesFullTransform())
        command = new tu_attr::rotation3d::RotateAllFramesCmd(*transform.rotation3d(), angles, range);
    else
        command = offsetNumber(*transform.rotationAngle(), angles.z, range);
    m_manager.execute(command, rotationLabel());
}

void PegEdit::applySkew(const MO_FrameRange& range, double angle) const
{
    m_manager.execute(offsetNumber(*m_peg.pegTransform().skew(), angle, range), skewLabel());
}

void PegEdit::applyTranslation(const MO_FrameRange& range, const Math::Vector3d& fields) const
{
    m_manager.execute(new tu_attr::position3d::TranslateAllFramesCmd(*m_peg.pegTransform().position(), fields.x,
                                                                     fields.y, fields.z, range),
                      translationLabel());
}

} // namespace OMC
