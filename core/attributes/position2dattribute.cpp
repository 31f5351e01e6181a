#include "core/attributes/position2dattribute.h"

#include "core/attributes/axesattribute_p.h"
#include "core/geometry/point2d.h"

namespace OMC {

template <>
struct AxesRules<AT_Position2dAttr> {
    static constexpr const char* description = QT_TRANSLATE_NOOP("OMC::Attribute", "Pos2DAttr(%1, %2)");

    static Point2d* newPoint(const Math::Point3d& point) { return new Point2d(point.x, point.y); }
    static void read(const QVariant& argument, Math::Point3d& point)
    {
        Point2d::ConvertQVariant(argument, point.x, point.y);
    }
    static CO_Command* setCommand(AT_Position2dAttr& attr, double frame, const Math::Point3d& point, bool adjustColumn)
    {
        return new tu_attr::position2d::SetValueCurrentFrameCmd(attr, frame, point.x, point.y, adjustColumn);
    }
    static CO_Command* setLocalCommand(AT_Position2dAttr& attr, const Math::Point3d& point)
    {
        return new tu_attr::position2d::SetLocalValueCmd(attr, point.x, point.y);
    }
    static CO_Command* translateCommand(AT_Position2dAttr& attr, const Math::Point3d& point, const MO_FrameRange& range)
    {
        return new tu_attr::position2d::TranslateAllFramesCmd(attr, point.x, point.y, range);
    }
};

template class AxesAttribute<AT_Position2dAttr, Point2d>;

} // namespace OMC
