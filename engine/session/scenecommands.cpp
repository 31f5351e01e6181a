#include "engine/session/scenecommands.h"

#include "engine/curves/column.h"
#include "engine/session/scene.h"

#include <utility>

namespace brindle::engine {

namespace {

class TimingCommand final : public CO_Command {
public:
    TimingCommand(Scene& scene, const SceneTiming& timing) : m_scene(scene), m_after(timing) {}

    Status execute() override
    {
        m_before = m_scene.timing();
        if (!m_after.isValid())
            return kFail;
        if (m_after == m_before)
            return kNoop;
        m_scene.setTiming(m_after);
        return kOk;
    }

    Status unexecute() override
    {
        if (!(m_scene.timing() == m_before))
            m_scene.setTiming(m_before);
        return kOk;
    }

private:
    Scene& m_scene;
    SceneTiming m_before;
    SceneTiming m_after;
};

/// Exchanges the list of markers for another one.
class MarkersCommand final : public CO_Command {
public:
    MarkersCommand(Scene& scene, SceneMarkers markers) : m_scene(scene), m_markers(std::move(markers)) {}

    Status execute() override
    {
        m_markers = m_scene.setMarkers(std::move(m_markers));
        return kOk;
    }

    Status unexecute() override { return execute(); }

private:
    Scene& m_scene;
    SceneMarkers m_markers; ///< The list that the next step sets.
};

class FrameCountCommand final : public CO_Command {
public:
    FrameCountCommand(Scene& scene, int at, int delta, bool rippleMarkers)
        : m_scene(scene),
          m_at(at),
          m_delta(delta),
          m_rippleMarkers(rippleMarkers)
    {}

    Status execute() override
    {
        if (!std::exchange(m_isPlanned, true) && !plan())
            return kFail;
        return m_steps.execute();
    }

    Status unexecute() override { return m_steps.unexecute(); }

private:
    bool plan()
    {
        const auto shift = m_scene.timing().fitted(m_at, m_delta);
        if (!shift)
            return false;
        const SceneTiming timing = m_scene.timing().shifted(*shift);
        m_steps.add(newTimingCommand(m_scene, timing).release());
        SceneMarkers markers = shiftedMarkers(m_scene.sceneMarkers(), *shift, timing.count, m_rippleMarkers);
        if (markers != m_scene.sceneMarkers())
            m_steps.add(new MarkersCommand(m_scene, std::move(markers)));
        for (auto column = m_scene.timedValuesBegin(); column != m_scene.timedValuesEnd(); ++column) {
            if (Column* own = Column::of(*column))
                m_steps.add(own->shiftFramesCommand(*shift).release());
        }
        return true;
    }

    Scene& m_scene;
    int m_at;
    int m_delta;
    bool m_rippleMarkers;
    bool m_isPlanned = false;
    CO_AndCommand m_steps;
};

class FrameRateCommand final : public CO_Command {
public:
    FrameRateCommand(SC_SceneCommon* scene, double rate) : m_scene(engineScene(scene)), m_rate(rate) {}

    Status execute() override
    {
        if (!m_scene)
            return kFail;
        SceneTiming timing = m_scene->timing();
        timing.rate = m_rate;
        m_change = newTimingCommand(*m_scene, timing);
        return m_change->execute();
    }

    Status unexecute() override { return m_change->unexecute(); }

private:
    Scene* m_scene;
    double m_rate;
    std::unique_ptr<CO_Command> m_change;
};

/// Sets the node that a scene is seen through, or the one that shows it.
template <typename Module, Module* (Scene::*current)() const, void (Scene::*set)(Module*)>
class DefaultNodeCommand final : public CO_Command {
public:
    DefaultNodeCommand(SC_SceneCommon* scene, Module* module) : m_scene(engineScene(scene)), m_module(module) {}

    Status execute() override
    {
        if (!m_scene || (m_module && !isInScene()))
            return kFail;
        return exchange();
    }

    Status unexecute() override { return exchange(); }

private:
    bool isInScene() const
    {
        const Node* node = engineNode(m_module);
        return node && node->graph() == &m_scene->graph();
    }

    Status exchange()
    {
        Module* before = (m_scene->*current)();
        if (before == m_module)
            return kNoop;
        (m_scene->*set)(m_module);
        m_module = before;
        return kOk;
    }

    Scene* m_scene;
    Module* m_module; ///< The module that the next step sets.
};

using DefaultCameraCommand = DefaultNodeCommand<TUCameraModule, &Scene::defaultCamera, &Scene::setDefaultCamera>;
using DefaultDisplayCommand = DefaultNodeCommand<TUDisplayModule, &Scene::defaultDisplay, &Scene::setDefaultDisplay>;

/// The list of columns has one order, which the exposure sheet shows: the place in the view counts where none is given
/// for the list.
class AddColumnCommand final : public CO_Command {
public:
    AddColumnCommand(SC_SceneCommon* scene, TUTimedValue* column, int position, int viewPosition)
        : m_scene(engineScene(scene)),
          m_column(column),
          m_position(position < 0 ? viewPosition : position)
    {
        // A column that is in a scene already is not this command's to take.
        if (column && !column->sceneCommon())
            m_taken.reset(column);
    }

    Status execute() override
    {
        if (!m_scene || !m_taken || !m_scene->columnList().insert(m_taken, m_position))
            return kFail;
        m_scene->changes().notify();
        return kOk;
    }

    Status unexecute() override
    {
        m_taken = m_scene->columnList().take(m_column, m_position);
        m_scene->changes().notify();
        return kOk;
    }

private:
    Scene* m_scene;
    TUTimedValue* m_column;
    std::unique_ptr<TUTimedValue> m_taken; ///< The column while it is not in the scene.
    int m_position;
};

} // namespace

std::unique_ptr<CO_Command> newTimingCommand(Scene& scene, const SceneTiming& timing)
{
    return std::make_unique<TimingCommand>(scene, timing);
}

std::unique_ptr<CO_Command> newFrameCountCommand(Scene& scene, int at, int delta, bool rippleMarkers)
{
    return std::make_unique<FrameCountCommand>(scene, at, delta, rippleMarkers);
}

} // namespace brindle::engine

namespace SC_SceneCmds {

SetFrameRateCmd::SetFrameRateCmd(SC_SceneCommon* scene, const UT_FrameRate& rate)
    : CO_EngineCommand(std::make_unique<brindle::engine::FrameRateCommand>(scene, rate.fps()))
{}

SetDefaultCameraCmd::SetDefaultCameraCmd(SC_SceneCommon* scene, TUCameraModule* camera)
    : CO_EngineCommand(std::make_unique<brindle::engine::DefaultCameraCommand>(scene, camera))
{}

SetDefaultDisplayCmd::SetDefaultDisplayCmd(SC_SceneCommon* scene, TUDisplayModule* display)
    : CO_EngineCommand(std::make_unique<brindle::engine::DefaultDisplayCommand>(scene, display))
{}

AddTimedValueCmd::AddTimedValueCmd(SC_SceneCommon* scene, TUTimedValue* timedValue, int position, int viewPosition)
    : CO_EngineCommand(std::make_unique<brindle::engine::AddColumnCommand>(scene, timedValue, position, viewPosition))
{}

} // namespace SC_SceneCmds
