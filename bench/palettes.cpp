#include "bench/support/project.h"

#include "core/host/cm_palettemanager.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <stdexcept>

// The files of palettes, and the ways from a colour's identity to the colour and to its palette.

namespace {

std::shared_ptr<CM_Palette> filledPalette(const QString& folder, int colours)
{
    static int made = 0; // A file of another measurement would be a version of another program.
    auto palette = std::make_shared<CM_Palette>(
        CM_PalettePathFile(folder + QStringLiteral("/palette-library/Many %1").arg(++made)));
    for (int number = 0; number < colours; ++number) {
        const auto colour = std::make_shared<CM_Color>(CM_Color::kSolid, QStringLiteral("Colour %1").arg(number));
        colour->AddColorMarker({0, CM_Rgba(number % 256, number / 256 % 256, 7, 255)});
        palette->AddColor(colour);
    }
    return palette;
}

void require(bool isDone)
{
    if (!isDone)
        throw std::runtime_error("A palette could not be saved or read.");
}

void savePalette(benchmark::State& state)
{
    bench::Project& project = bench::Project::ofSize(0);
    const auto palette = filledPalette(project.path(), static_cast<int>(state.range(0)));
    bool isChanged = false;
    for (auto _ : state) {
        isChanged = !isChanged;
        palette->SetName(isChanged ? QStringLiteral("One") : QStringLiteral("Two"));
        require(CM_PaletteManager::GetInstance()->SavePalette(palette));
    }
    state.SetComplexityN(state.range(0));
}

/// A save of the project that has nothing to write of the palette.
void saveUnchangedPalette(benchmark::State& state)
{
    bench::Project::dropShared();
    const bench::Project project;
    const auto palette = filledPalette(project.path(), static_cast<int>(state.range(0)));
    require(CM_PaletteManager::GetInstance()->paletteLists().front()->InsertPalette(palette, 0));
    QString error;
    for (auto _ : state)
        require(project.projectManager().saveProject(error));
    state.SetComplexityN(state.range(0));
}

void loadPalette(benchmark::State& state)
{
    bench::Project& project = bench::Project::ofSize(0);
    const auto palette = filledPalette(project.path(), static_cast<int>(state.range(0)));
    require(CM_PaletteManager::GetInstance()->SavePalette(palette));
    for (auto _ : state) {
        CM_Palette read(palette->GetPath(), palette->GetID());
        require(read.Load());
        state.PauseTiming();
        benchmark::DoNotOptimize(read.colors().size());
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

/// Among three palettes, the last of which has the colour.
void searchColour(benchmark::State& state)
{
    bench::Project::dropShared();
    const bench::Project project;
    CM_PaletteManager& manager = *CM_PaletteManager::GetInstance();
    const auto list = manager.paletteLists().front();
    for (int number = 0; number < 3; ++number) {
        const QString folder = project.path() + QStringLiteral("/%1").arg(number);
        require(list->InsertPalette(filledPalette(folder, static_cast<int>(state.range(0))), -1));
    }
    const UT_Id colour = list->palettes().back()->GetColorId(static_cast<int>(state.range(0)) / 2);
    for (auto _ : state) {
        const UT_Id palette = manager.SearchParentPalette(colour);
        benchmark::DoNotOptimize(manager.SearchParentPaletteList(palette));
        benchmark::DoNotOptimize(manager.GetPalette(palette)->GetColorById(colour));
    }
}

BENCHMARK(savePalette)->RangeMultiplier(10)->Range(1000, 100000)->Complexity(benchmark::oN);
BENCHMARK(saveUnchangedPalette)->RangeMultiplier(10)->Range(1000, 100000)->Complexity(benchmark::oN);
BENCHMARK(loadPalette)->RangeMultiplier(10)->Range(1000, 100000)->Complexity(benchmark::oN);
BENCHMARK(searchColour)->Arg(10000);

} // namespace
