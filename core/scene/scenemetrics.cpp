#include "core/scene/scenemetrics.h"

#include "core/host/co_command.h"
#include "core/host/sc_metrics.h"
#include "core/host/sc_projectcmds.h"
#include "core/host/sc_scene.h"

#include <cmath>
#include <limits>
#include <memory>

namespace OMC {

namespace {

const SC_SceneMetrics& metricsOf(const WeakHandle<TUScene>& scene)
{
    const SC_SceneMetrics* metrics = scene.get()->metrics();
    if (!metrics)
        BaseObject::throwInvalid();
    return *metrics;
}

/// What a change of the metrics needs of the engine.
struct Change {
    explicit Change(const WeakHandle<TUScene>& scene)
        : metrics(metricsOf(scene)),
          project(scene.get()->projectCommon()),
          manager(scene.get()->commandManager())
    {
        if (!project || !manager)
            BaseObject::throwInvalid();
    }

    const SC_SceneMetrics& metrics;
    SC_ProjectCommon* project;
    CO_CommandManager* manager;
};

/// The integer part of an engine value, held within the range of an int.
int integerPart(double value)
{
    constexpr double least = std::numeric_limits<int>::min();
    constexpr double most = std::numeric_limits<int>::max();
    return static_cast<int>(std::fmax(least, std::fmin(most, std::trunc(value))));
}

/// The engine's whole number for an aspect, over the width or height of the chart.
int aspectFrom(double value, double fieldChart)
{
    const double aspect = std::trunc(integerPart(2 * fieldChart) * value);
    if (!(std::abs(aspect) <= std::numeric_limits<int>::max()))
        BaseObject::throwInvalidArgument(0);
    return static_cast<int>(aspect);
}

} // namespace

SceneAspect::SceneAspect(TUScene* scene) : m_scene(scene) {}

BaseObject* SceneAspect::copy() const
{
    return new SceneAspect(*this);
}

std::string SceneAspect::__str__() const
{
    return QStringLiteral("SceneAspect(%1, %2)").arg(getX()).arg(getY()).toStdString();
}

void SceneAspect::setX(double x)
{
    validate();
    const Change change(m_scene);
    const int aspect = aspectFrom(x, change.metrics.designFieldChartX());
    change.manager->execute(
        new SC_ProjectCmds::SetDesignAspectRatioCmd(change.project, aspect, change.metrics.designAspectRatioY()),
        tr("Set X Units Aspect Ratio"));
}

double SceneAspect::getX() const
{
    validate();
    const SC_SceneMetrics& metrics = metricsOf(m_scene);
    return metrics.designAspectRatioX() / (2 * metrics.designFieldChartX());
}

void SceneAspect::setY(double y)
{
    validate();
    const Change change(m_scene);
    const int aspect = aspectFrom(y, change.metrics.designFieldChartY());
    change.manager->execute(
        new SC_ProjectCmds::SetDesignAspectRatioCmd(change.project, change.metrics.designAspectRatioX(), aspect),
        tr("Set Y Units Aspect Ratio"));
}

double SceneAspect::getY() const
{
    validate();
    const SC_SceneMetrics& metrics = metricsOf(m_scene);
    return metrics.designAspectRatioY() / (2 * metrics.designFieldChartY());
}

void SceneAspect::validate() const
{
    if (!m_scene.get())
        throwInvalid();
}

SceneUnits::SceneUnits(TUScene* scene) : m_scene(scene) {}

BaseObject* SceneUnits::copy() const
{
    return new SceneUnits(*this);
}

std::string SceneUnits::__str__() const
{
    return QStringLiteral("SceneUnits(%1, %2, %3)").arg(getX()).arg(getY()).arg(getZ()).toStdString();
}

void SceneUnits::setX(int units)
{
    validate();
    const Change change(m_scene);
    const SC_SceneMetrics& metrics = change.metrics;
    auto command = std::make_unique<CO_AndCommand>();
    command->add(new SC_ProjectCmds::SetDesignFieldChartCmd(change.project, units * 0.5, metrics.designFieldChartY(),
                                                            metrics.designFieldChartZ()));
    change.manager->execute(command.release(), tr("Set Number of X Units"));
}

int SceneUnits::getX() const
{
    validate();
    return integerPart(2 * metricsOf(m_scene).designFieldChartX());
}

void SceneUnits::setY(int units)
{
    validate();
    const Change change(m_scene);
    const SC_SceneMetrics& metrics = change.metrics;
    auto command = std::make_unique<CO_AndCommand>();
    command->add(new SC_ProjectCmds::SetDesignFieldChartCmd(change.project, metrics.designFieldChartX(), units * 0.5,
                                                            metrics.designFieldChartZ()));
    change.manager->execute(command.release(), tr("Set Number of Y Units"));
}

int SceneUnits::getY() const
{
    validate();
    return integerPart(2 * metricsOf(m_scene).designFieldChartY());
}

// The depth is kept whole where width and height are kept by halves: required as it is.
void SceneUnits::setZ(int units)
{
    validate();
    const Change change(m_scene);
    const SC_SceneMetrics& metrics = change.metrics;
    change.manager->execute(new SC_ProjectCmds::SetDesignFieldChartCmd(change.project, metrics.designFieldChartX(),
                                                                       metrics.designFieldChartY(), units),
                            tr("Set Number of Z Units"));
}

int SceneUnits::getZ() const
{
    validate();
    return integerPart(metricsOf(m_scene).designFieldChartZ());
}

void SceneUnits::validate() const
{
    if (!m_scene.get())
        throwInvalid();
}

SceneCenter::SceneCenter(TUScene* scene) : m_scene(scene) {}

BaseObject* SceneCenter::copy() const
{
    return new SceneCenter(*this);
}

std::string SceneCenter::__str__() const
{
    return QStringLiteral("SceneCenter(%1, %2)").arg(getX()).arg(getY()).toStdString();
}

void SceneCenter::setX(int x)
{
    validate();
    const Change change(m_scene);
    change.manager->execute(
        new SC_ProjectCmds::SetCoordinatesAtCenterCmd(change.project, x, change.metrics.coordinateAtCenterY()),
        tr("Set X Coordinate at Center"));
}

int SceneCenter::getX() const
{
    validate();
    return metricsOf(m_scene).coordinateAtCenterX();
}

// The label is that of the other axis: required as it is.
void SceneCenter::setY(int y)
{
    validate();
    const Change change(m_scene);
    change.manager->execute(
        new SC_ProjectCmds::SetCoordinatesAtCenterCmd(change.project, change.metrics.coordinateAtCenterX(), y),
        tr("Set X Coordinate at Center"));
}

int SceneCenter::getY() const
{
    validate();
    return metricsOf(m_scene).coordinateAtCenterY();
}

void SceneCenter::validate() const
{
    if (!m_scene.get())
        throwInvalid();
}

} // namespace OMC
