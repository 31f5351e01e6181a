#include "core/scene/scenemetrics.h"

#include "core/frame/found.h"
#include "core/host/co_command.h"
#include "core/host/sc_metrics.h"
#include "core/host/sc_projectcmds.h"
#include "core/host/sc_scene.h"

#include <cmath>
#include <limits>
#include <memory>

namespace OMC {

namespace {

const SC_SceneMetrics& metricsOf(const TUScene& scene)
{
    return found(scene.metrics());
}

/// The engine's objects that a change of the metrics needs.
struct Change {
    explicit Change(TUScene& scene)
        : metrics(metricsOf(scene)),
          project(&found(scene.projectCommon())),
          manager(&found(scene.commandManager()))
    {}

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

SceneAspect::SceneAspect(TUScene* scene) : UnguardedView(scene) {}

std::string SceneAspect::__str__() const
{
    return QStringLiteral("SceneAspect(%1, %2)").arg(getX()).arg(getY()).toStdString();
}

void SceneAspect::setX(double x)
{
    const Change change(target());
    const int aspect = aspectFrom(x, change.metrics.designFieldChartX());
    change.manager->execute(
        new SC_ProjectCmds::SetDesignAspectRatioCmd(change.project, aspect, change.metrics.designAspectRatioY()),
        tr("Set X Units Aspect Ratio"));
}

double SceneAspect::getX() const
{
    const SC_SceneMetrics& metrics = metricsOf(target());
    return metrics.designAspectRatioX() / (2 * metrics.designFieldChartX());
}

void SceneAspect::setY(double y)
{
    const Change change(target());
    const int aspect = aspectFrom(y, change.metrics.designFieldChartY());
    change.manager->execute(
        new SC_ProjectCmds::SetDesignAspectRatioCmd(change.project, change.metrics.designAspectRatioX(), aspect),
        tr("Set Y Units Aspect Ratio"));
}

double SceneAspect::getY() const
{
    const SC_SceneMetrics& metrics = metricsOf(target());
    return metrics.designAspectRatioY() / (2 * metrics.designFieldChartY());
}

SceneUnits::SceneUnits(TUScene* scene) : UnguardedView(scene) {}

std::string SceneUnits::__str__() const
{
    return QStringLiteral("SceneUnits(%1, %2, %3)").arg(getX()).arg(getY()).arg(getZ()).toStdString();
}

void SceneUnits::setX(int units)
{
    const Change change(target());
    const SC_SceneMetrics& metrics = change.metrics;
    auto command = std::make_unique<CO_AndCommand>();
    command->add(new SC_ProjectCmds::SetDesignFieldChartCmd(change.project, units * 0.5, metrics.designFieldChartY(),
                                                            metrics.designFieldChartZ()));
    change.manager->execute(command.release(), tr("Set Number of X Units"));
}

int SceneUnits::getX() const
{
    return integerPart(2 * metricsOf(target()).designFieldChartX());
}

void SceneUnits::setY(int units)
{
    const Change change(target());
    const SC_SceneMetrics& metrics = change.metrics;
    auto command = std::make_unique<CO_AndCommand>();
    command->add(new SC_ProjectCmds::SetDesignFieldChartCmd(change.project, metrics.designFieldChartX(), units * 0.5,
                                                            metrics.designFieldChartZ()));
    change.manager->execute(command.release(), tr("Set Number of Y Units"));
}

int SceneUnits::getY() const
{
    return integerPart(2 * metricsOf(target()).designFieldChartY());
}

// The depth is kept whole where width and height are kept by halves: required as it is.
void SceneUnits::setZ(int units)
{
    const Change change(target());
    const SC_SceneMetrics& metrics = change.metrics;
    change.manager->execute(new SC_ProjectCmds::SetDesignFieldChartCmd(change.project, metrics.designFieldChartX(),
                                                                       metrics.designFieldChartY(), units),
                            tr("Set Number of Z Units"));
}

int SceneUnits::getZ() const
{
    return integerPart(metricsOf(target()).designFieldChartZ());
}

SceneCenter::SceneCenter(TUScene* scene) : UnguardedView(scene) {}

std::string SceneCenter::__str__() const
{
    return QStringLiteral("SceneCenter(%1, %2)").arg(getX()).arg(getY()).toStdString();
}

void SceneCenter::setX(int x)
{
    const Change change(target());
    change.manager->execute(
        new SC_ProjectCmds::SetCoordinatesAtCenterCmd(change.project, x, change.metrics.coordinateAtCenterY()),
        tr("Set X Coordinate at Center"));
}

int SceneCenter::getX() const
{
    return metricsOf(target()).coordinateAtCenterX();
}

// The label is that of the other axis: required as it is.
void SceneCenter::setY(int y)
{
    const Change change(target());
    change.manager->execute(
        new SC_ProjectCmds::SetCoordinatesAtCenterCmd(change.project, change.metrics.coordinateAtCenterX(), y),
        tr("Set X Coordinate at Center"));
}

int SceneCenter::getY() const
{
    return metricsOf(target()).coordinateAtCenterY();
}

} // namespace OMC
