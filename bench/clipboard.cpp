#include "bench/support/project.h"

#include "core/host/at_attr.h"
#include "core/host/dd_clipboard.h"
#include "core/host/mo_node.h"
#include "core/host/sl_selection.h"
#include "core/host/tu_node.h"
#include "core/host/tu_timedvalue.h"

#include <benchmark/benchmark.h>

#include <QDir>

#include <stdexcept>

// Copying nodes with ten keys each, pasting them, and templates of them.

namespace {

constexpr int keysOfEach = 10;

/// A project of pegs, each turned by a column of its own.
class Animated {
public:
    explicit Animated(int nodes) : m_project(0)
    {
        m_project.createNodes(nodes);
        TUScene& scene = m_project.scene();
        for (int index = 0; index < nodes; ++index) {
            MO_Node& node = m_project.node(index);
            auto& angle = dynamic_cast<AT_DoubleAttr&>(*node.findAttributeByKeyword(QStringLiteral("angle")));
            TUTimedValue* column = angle.createTimedValue();
            SC_SceneCmds::AddTimedValueCmd(scene.sceneCommon(), column, -1, -1).execute();
            tu_tv_socket::LinkCmd(angle.socket(), column).execute();
            for (int key = 0; key < keysOfEach; ++key)
                angle.setValue(1 + 5 * key, key * index, false, false);
            SL_SelectionUtil::addToSelection(m_selection, &node);
        }
    }

    DD_DragObject copy() const
    {
        DD_DragObject object = DD_SystemExternalAPI::CreateDragObjectFromSelection(m_project.scene().sceneCommon(),
                                                                                   &m_selection, false, false);
        if (!object.isValid())
            throw std::runtime_error("the nodes could not be copied");
        return object;
    }

    void paste(const DD_DragObject& object) const
    {
        SC_SceneCommon* scene = m_project.scene().sceneCommon();
        DD_Selection dropped;
        SL_Selection selected(nullptr);
        if (!DD_System::DropDragObjectNewLayer(nullptr, scene, scene->rootGroup(), object,
                                               DD_DropMode::GetDragDropDefault(), dropped, 0, 0, 0, 0, selected))
            throw std::runtime_error("the nodes could not be pasted");
    }

    /// Saves a template beside the project, and gives its path.
    QString save(const DD_DragObject& object) const
    {
        UT_Path path(m_project.path() + QStringLiteral("/Rig"));
        if (!DD_TplUtil::SaveDragObjectAsNewTemplate(nullptr, DD_DragSceneOld(object, QString()), path))
            throw std::runtime_error("the template could not be saved");
        return path.ToString();
    }

    CO_CommandManager& manager() const { return m_project.commandManager(); }

private:
    bench::Project m_project;
    SL_Selection m_selection{nullptr};
};

void copyNodes(benchmark::State& state)
{
    bench::Project::dropShared();
    const Animated project(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(project.copy().numFrames());
    state.SetComplexityN(state.range(0));
}

void pasteNodes(benchmark::State& state)
{
    bench::Project::dropShared();
    const Animated project(static_cast<int>(state.range(0)));
    const DD_DragObject object = project.copy();
    for (auto _ : state) {
        project.paste(object);
        state.PauseTiming();
        project.manager().unexecute(1);
        project.manager().clearHistory();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

void undoPaste(benchmark::State& state)
{
    bench::Project::dropShared();
    const Animated project(static_cast<int>(state.range(0)));
    project.paste(project.copy());
    for (auto _ : state) {
        project.manager().unexecute(1);
        state.PauseTiming();
        project.manager().reexecute(1);
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

void saveTemplate(benchmark::State& state)
{
    bench::Project::dropShared();
    const Animated project(static_cast<int>(state.range(0)));
    const DD_DragObject object = project.copy();
    for (auto _ : state) {
        const QString path = project.save(object);
        state.PauseTiming();
        QDir(path).removeRecursively();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

void loadTemplate(benchmark::State& state)
{
    bench::Project::dropShared();
    const Animated project(static_cast<int>(state.range(0)));
    const QString path = project.save(project.copy());
    for (auto _ : state) {
        if (!DD_TplUtil::LoadTemplate(nullptr, path, false))
            throw std::runtime_error("the template could not be loaded");
    }
    state.SetComplexityN(state.range(0));
}

BENCHMARK(copyNodes)->RangeMultiplier(10)->Range(1000, 10000)->Complexity(benchmark::oN);
BENCHMARK(pasteNodes)->RangeMultiplier(10)->Range(1000, 10000)->Complexity(benchmark::oN);
BENCHMARK(undoPaste)->RangeMultiplier(10)->Range(1000, 10000)->Complexity(benchmark::oN);
BENCHMARK(saveTemplate)->RangeMultiplier(10)->Range(1000, 10000)->Complexity(benchmark::oN);
BENCHMARK(loadTemplate)->RangeMultiplier(10)->Range(1000, 10000)->Complexity(benchmark::oN);

} // namespace
