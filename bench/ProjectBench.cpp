#include "core/Settings.h"
#include "flow/DuctSearch.h"
#include "flow/PlainSearch.h"
#include "platform/files/WholeFiles.h"
#include "project/model/ProjectBlocks.h"
#include "project/model/ProjectModel.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <random>
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

void SearchOneDuct(benchmark::State& state, double roughness, bool plain) {
    Settings = SettingsRecord();
    for (auto _ : state) {
        double working = 0;
        if (plain) {
            PlainSearch search(0.5, 0.3, roughness, working);
            benchmark::DoNotOptimize(search.WithinCaps(0.8F, 8.0F));
        } else {
            benchmark::DoNotOptimize(SizeWithinCaps(0.5, 0.3, 0.8F, 8.0F, roughness, working));
        }
    }
}
BENCHMARK_CAPTURE(SearchOneDuct, rigid, 0.00015, false)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(SearchOneDuct, rigid by the plain search, 0.00015, true)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(SearchOneDuct, flexible, 0.002, false)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(SearchOneDuct, flexible by the plain search, 0.002, true)->Unit(benchmark::kMicrosecond);

// Random ducts as they stand in practice, of each kind and size step: the time is for a thousand.
void SearchThousandDucts(benchmark::State& state, bool plain) {
    Settings = SettingsRecord();
    const std::int16_t sizeSteps[] = {1, 5, 10, 25, 30, 50, 100};
    for (auto _ : state) {
        std::mt19937 random(1);
        const auto between = [&](double low, double high) {
            return std::uniform_real_distribution<>(low, high)(random);
        };
        for (int i = 0; i < 1000; ++i) {
            Settings.RoundOff = sizeSteps[i % 7];
            const double roughness = i % 2 == 0 ? Settings.SurfaceRoughness1 : Settings.SurfaceRoughness2;
            const double flow = between(0.02, 6);
            const double height = between(0.03, 1.5);
            const auto lossCap = static_cast<float>(between(0.2, 4));
            const auto velocityCap = static_cast<float>(between(2, 14));
            double working = 0;
            if (plain) {
                PlainSearch search(flow, height, roughness, working);
                benchmark::DoNotOptimize(search.WithinCaps(lossCap, velocityCap));
            } else {
                benchmark::DoNotOptimize(
                    SizeWithinCaps(flow, height, lossCap, velocityCap, roughness, working));
            }
        }
    }
    Settings = SettingsRecord();
}
BENCHMARK_CAPTURE(SearchThousandDucts, quick, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SearchThousandDucts, by the plain search, true)->Unit(benchmark::kMillisecond);

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
