#include "engine/session/scenecommands.h"

#include "engine/curves/column.h"
#include "engine/session/scene.h"

#include <algorithm>
#include <utility>

namespace engine {

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

class FrameCountCommand final : public CO_Command {
public:
    FrameCountCommand(Scene& scene, int at, int delta) : m_scene(scene), m_at(at), m_delta(delta) {}

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
        const int count = m_scene.timing().count;
        if (m_at < 0 || m_at > count || m_delta < -(count - 1) || m_delta > SceneTiming::maxCount - count)
            return false;
        if (m_delta < 0) {
            if (m_at == count)
                m_at += m_delta;
            else if (m_at - m_delta > count)
                return false;
        }

        SceneTiming timing = m_scene.timing();
        const bool stopFollows = timing.stop == count;
        timing.count = count + m_delta;
        timing.stop = stopFollows ? timing.count : std::min(timing.stop, timing.count);
        timing.start = std::min(timing.start, timing.stop);
        m_steps.add(newTimingCommand(m_scene, timing).release());
        for (auto column = m_scene.timedValuesBegin(); column != m_scene.timedValuesEnd(); ++column) {
            if (Column* own = Column::of(*column))
                m_steps.add(own->shiftFramesCommand(m_at, m_delta).release());
        }
        return true;
    }

    Scene& m_scene;
    int m_at;
    int m_delta;
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

std::unique_ptr<CO_Command> newFrameCountCommand(Scene& scene, int at, int delta)
{
    return std::make_unique<FrameCountCommand>(scene, at, delta);
}

} // namespace engine

namespace SC_SceneCmds {

SetFrameRateCmd::SetFrameRateCmd(SC_SceneCommon* scene, const UT_FrameRate& rate)
    : CO_EngineCommand(std::make_unique<engine::FrameRateCommand>(scene, rate.fps()))
{}

AddTimedValueCmd::AddTimedValueCmd(SC_SceneCommon* scene, TUTimedValue* timedValue, int position, int viewPosition)
    : CO_EngineCommand(std::make_unique<engine::AddColumnCommand>(scene, timedValue, position, viewPosition))
{}

} // namespace SC_SceneCmds
