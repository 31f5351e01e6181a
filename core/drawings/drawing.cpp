#include "core/drawings/drawing.h"

#include "core/drawings/drawingedit.h"
#include "core/drawings/drawinginfocommands.h"
#include "core/drawings/drawingpresence.h"
#include "core/drawings/drawingvalues.h"
#include "core/drawings/drawingvectorartlayer.h"
#include "core/frame/finite.h"
#include "core/frame/found.h"
#include "core/frame/global.h"
#include "core/geometry/point2d.h"
#include "core/host/gr_drawingaccess.h"
#include "core/host/sc_session.h"

#include <array>
#include <set>

namespace OMC {

Drawing::Drawing(GR_CompositeVectorDrawingObj* drawing, const CA_CelKey& key) : m_drawing(drawing), m_key(key) {}

std::string Drawing::__str__() const
{
    return "Drawing()";
}

// Required: no thread is checked. A drawing may be read on any thread that keeps it.
void Drawing::validate() const
{
    if (drawingpresence::isThere(m_drawing))
        return;
    m_drawing.reset();
    throwInvalid();
}

GR_CompositeVectorDrawingObj& Drawing::composite() const
{
    validate();
    return *m_drawing;
}

GR_CompositeDrawingInfo& Drawing::info() const
{
    return found(composite().GetDrawingInfo());
}

int Drawing::artIndex(const QString& name)
{
    struct NamedArt {
        const char* prefix;
        int index;
    };
    static constexpr std::array names = {
        NamedArt{"line", GR_CompositeVectorDrawingObj::kLine},
        NamedArt{"colour", GR_CompositeVectorDrawingObj::kColour},
        NamedArt{"color", GR_CompositeVectorDrawingObj::kColour},
        NamedArt{"underlay", GR_CompositeVectorDrawingObj::kUnderlay},
        NamedArt{"overlay", GR_CompositeVectorDrawingObj::kOverlay},
    };
    const QString lower = name.toLower();
    for (const NamedArt& entry : names) {
        if (lower.startsWith(QLatin1String(entry.prefix)))
            return entry.index;
    }
    return -1;
}

std::size_t Drawing::size() const
{
    validate();
    return GR_CompositeVectorDrawingObj::kArtCount;
}

QVariant Drawing::get(int index) const
{
    const GR_CompositeVectorDrawingObj& drawing = composite();
    if (index < 0 || index >= GR_CompositeVectorDrawingObj::kArtCount)
        throwIndexOutOfRange();
    GR_DrawingBase* art = drawing.GetArt(index);
    return art ? toVariant(DrawingArtLayer::getWrapped(art, CA_DrawingLayerKey(m_key, index))) : QVariant();
}

QVariant Drawing::get(const QString& name) const
{
    return (*this)(name);
}

QVariant Drawing::operator()(const QString& name) const
{
    validate();
    const int index = artIndex(name);
    if (index < 0)
        throw Exception(tr("Unexpected layer name."));
    return get(index);
}

void Drawing::set(const QString& name, const QVariant& art)
{
    validate();
    const int index = artIndex(name);
    if (index < 0)
        throw Exception(tr("Unexpected layer name."));
    set(index, art);
}

void Drawing::set(int index, const QVariant& art)
{
    const GR_CompositeVectorDrawingObj& drawing = composite();
    validateThreadLock();
    if (index < 0 || index >= GR_CompositeVectorDrawingObj::kArtCount || !drawing.GetArt(index))
        throwIndexOutOfRange();
    const DrawingVectorArtLayer target(&foundAs<GR_VectorDrawingObj>(drawing.GetArt(index)),
                                       CA_DrawingLayerKey(m_key, index));
    std::set<GR_DrawingBase*> seen;
    std::vector<GR_DrawingBase*> sources;
    DrawingArtLayer::getDrawingBaseFromQVariant(art, seen, sources);
    if (sources.empty())
        throwInvalidArgument(1);
    if (seen.contains(target.getVectorDrawing()))
        throw Exception(tr("Unable to set art layer to itself."));
    drawingedit::run(target.getVectorDrawing(), target.getKey(), [&](GR_DrawingAccess& access) {
        access.Clear();
        for (GR_DrawingBase* source : sources)
            access.Paste(foundAs<GR_VectorDrawingObj>(source));
    });
}

QList<QVariant> Drawing::list() const
{
    QList<QVariant> arts;
    for (int index = 0; index < GR_CompositeVectorDrawingObj::kArtCount; ++index)
        arts.append(get(index));
    return arts;
}

bool Drawing::contains(const QVariant& art) const
{
    const GR_CompositeVectorDrawingObj& drawing = composite();
    const auto* wrapper = objectFrom<DrawingArtLayer>(art);
    if (!wrapper)
        return false;
    const GR_DrawingBase& wanted = wrapper->drawingBase();
    for (int index = 0; index < GR_CompositeVectorDrawingObj::kArtCount; ++index) {
        if (drawing.GetArt(index) == &wanted)
            return true;
    }
    return false;
}

QVariant Drawing::getColors() const
{
    validate();
    return QVariant::fromValue(Obj());
}

// Required: it may be written, and nothing comes of it.
void Drawing::setColors(const QVariant&)
{
    validate();
}

QVariant Drawing::getPivot() const
{
    const GR_CompositeDrawingInfo& noted = info();
    return noted.IsPivotPointDefined() ? QVariant::fromValue(Point2d(noted.GetPivotPoint())) : QVariant();
}

void Drawing::setPivot(const QVariant& pivot)
{
    validate();
    if (pivot.isNull()) {
        setPivotDefined(false);
        return;
    }
    Math::Point2d point;
    Point2d::ConvertQVariant(pivot, point.x, point.y);
    requireFinite(point.x, 0);
    requireFinite(point.y, 0);
    change(std::make_unique<OMCDrawing_ChangePivotCommand>(m_key, point), tr("Change Drawing Pivot"));
}

bool Drawing::getPivotDefined() const
{
    return info().IsPivotPointDefined();
}

void Drawing::setPivotDefined(bool defined)
{
    const GR_CompositeDrawingInfo& noted = info();
    if (defined == noted.IsPivotPointDefined())
        return;
    if (defined)
        change(std::make_unique<OMCDrawing_ChangePivotCommand>(m_key, noted.GetPivotPoint()),
               tr("Change Drawing Pivot"));
    else
        change(std::make_unique<OMCDrawing_UnsetePivotCommand>(m_key), tr("Remove Drawing Pivot"));
}

int Drawing::getFieldSize() const
{
    return info().fieldSize;
}

void Drawing::setFieldSize(int size)
{
    const int present = info().fieldSize;
    if (size <= 0)
        throwInvalidArgument(0);
    if (size != present)
        change(std::make_unique<DrawingFieldCommand<int>>(m_key, &GR_CompositeDrawingInfo::fieldSize, size),
               tr("Change Drawing Field Size"));
}

double Drawing::getPointQuantum() const
{
    return info().pointQuantum;
}

void Drawing::setPointQuantum(double quantum)
{
    const double present = info().pointQuantum;
    requireFinite(quantum, 0);
    if (quantum < 0)
        throwInvalidArgument(0);
    if (quantum != present)
        change(std::make_unique<DrawingFieldCommand<double>>(m_key, &GR_CompositeDrawingInfo::pointQuantum, quantum),
               tr("Change Drawing Point Quantum"));
}

void Drawing::change(std::unique_ptr<UT_Command> command, const QString& label) const
{
    validateThreadLock();
    const SC_SessionContext& session = found(Global::sessionContext(), &BaseObject::throwUnexpected);
    UT_UndoRedoManager undo;
    undo.SetStageCommandManager(&found(session.commandManager(), &BaseObject::throwUnexpected));
    if (!undo.ExecuteCommand(command.release(), label))
        throwUnexpected();
}

double Drawing::getThicknessMax() const
{
    return composite().GetMaxThickness();
}

QVariant Drawing::getBoundingBox() const
{
    return drawingvalues::rectangle(composite().GetWorldBBox());
}

QVariant Drawing::getBoundingBoxVisible() const
{
    return drawingvalues::rectangle(composite().GetVisibleWorldBBox());
}

bool Drawing::getEmpty() const
{
    return composite().IsEmpty();
}

bool Drawing::getModified() const
{
    return composite().IsDrawingModified();
}

Obj Drawing::getImplicitScaleMatrix() const
{
    return Obj(drawingvalues::newMatrix(composite().GetImplicitScalingMatrix()));
}

Obj Drawing::getImplicitScaleMatrixInverse() const
{
    return Obj(drawingvalues::newMatrix(composite().GetImplicitScalingMatrixInverse()));
}

} // namespace OMC
