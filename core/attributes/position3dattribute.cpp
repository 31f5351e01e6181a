#include "core/attributes/position3dattribute.h"

#include "core/attributes/axesattribute_p.h"
#include "core/geometry/point3d.h"

namespace OMC {

template <>
struct AxesRules<AT_Position3dAttr> {
    static constexpr const char* description = QT_TRANSLATE_NOOP("OMC::Attribute", "Pos3DAttr(%1, %2)");

    static Point3d* newPoint(const Math::Point3d& point) { return new Point3d(point.x, point.y, point.z); }
    static void read(const QVariant& argument, Math::Point3d& point)
    {
        Point3d::ConvertQVariant(argument, point.x, point.y, point.z);
    }
    static CO_Command* setCommand(AT_Position3dAttr& attr, double frame, const Math::Point3d& point, bool adjustColumn)
    {
        return new tu_attr::position3d::SetValueCurrentFrameCmd(attr, frame, point.x, point.y, point.z, adjustColumn);
    }
    static CO_Command* setLocalCommand(AT_Position3dAttr& attr, const Math::Point3d& point)
    {
        return new tu_attr::position3d::SetLocalValueCmd(attr, point.x, point.y, point.z);
    }
    static CO_Command* translateCommand(AT_Position3dAttr& attr, const Math::Point3d& point, const MO_FrameRange& range)
    {
        return new tu_attr::position3d::TranslateAllFramesCmd(attr, point.x, point.y, point.z, range);
    }
};

template class AxesAttribute<AT_Position3dAttr, Point3d>;

} // namespace OMC
