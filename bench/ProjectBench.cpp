#include "core/Settings.h"
#include "flow/DuctSearch.h"
#include "platform/files/WholeFiles.h"
#include "project/model/ProjectBlocks.h"
#include "project/model/ProjectModel.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

// The search for one duct, and project files. Aims on two cores: the largest project loaded in below 0.3 s
// and saved in below 0.2 s.
namespace plenair {
namespace {

void FillProject(int ducts) {
    StartProject();
    DuctCount = static_cast<std::int16_t>(ducts);
    FitDucts();
    for (int number = 1; number <= ducts; ++number) {
        const float colours[] = {kRigidColour, kFlexibleColour, kConnectionColour};
        Ducts[static_cast<std::size_t>(number)] = {.Colour = colours[number % 3],
                                                   .StartX = 0.025 * (number % 40),
                                                   .StartY = number / 33000.0,
                                                   .EndX = 0.025 * ((number + 1) % 40),
                                                   .EndY = (number + 7) / 33000.0,
                                                   .ConnCoefficient = 0.35F,
                                                   .Length = 2500.0 + number,
                                                   .Height = 250,
                                                   .Velocity = 7.31,
                                                   .LossPerMetre = 0.83,
                                                   .Flow = 100.0 + number / 7.0};
    }
}

class ProjectFile {
  public:
    ProjectFile() {
        std::string folder = (std::filesystem::temp_directory_path() / "plenair-bench-XXXXXX").string();
        if (mkdtemp(folder.data()) != nullptr) {
            m_folder = folder;
        }
    }
    ~ProjectFile() {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }
    ProjectFile(const ProjectFile&) = delete;
    ProjectFile& operator=(const ProjectFile&) = delete;

    std::string Path() const { return m_folder + "/plant.gsp"; }

  private:
    std::string m_folder;
};

void SearchOneDuct(benchmark::State& state, double roughness) {
    Settings = SettingsRecord();
    for (auto _ : state) {
        double working = 0;
        benchmark::DoNotOptimize(SizeWithinCaps(0.5, 0.3, 0.8F, 8.0F, roughness, working));
    }
}
BENCHMARK_CAPTURE(SearchOneDuct, rigid, 0.00015)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(SearchOneDuct, flexible, 0.002)->Unit(benchmark::kMicrosecond);

void SaveDucts(benchmark::State& state) {
    const ProjectFile file;
    FillProject(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        WriteWholeFile(file.Path(), ProjectText());
    }
}
BENCHMARK(SaveDucts)->Arg(1000)->Arg(kMostDucts)->Unit(benchmark::kMillisecond)->UseRealTime();

void LoadDucts(benchmark::State& state) {
    const ProjectFile file;
    FillProject(static_cast<int>(state.range(0)));
    WriteWholeFile(file.Path(), ProjectText());
    for (auto _ : state) {
        StartReading();
        ReadProjectText(file.Path());
    }
    if (DuctCount != state.range(0)) {
        state.SkipWithError("not all ducts were read");
    }
}
BENCHMARK(LoadDucts)->Arg(1000)->Arg(kMostDucts)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace plenair
