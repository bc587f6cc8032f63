#include "core/Settings.h"
#include "core/modRegistry.h"
#include "flow/GeneralCalcs.h"
#include "flow/Sizing.h"
#include "lite/CalculateMinorStuff.h"
#include "support/LiteArrays.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <filesystem>

#include <unistd.h>

namespace plenair {
namespace {

void BenchFrictionFactor(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(FrictionFactor(0.5, 0.4, 0.00015, 1.0));
    }
}
BENCHMARK(BenchFrictionFactor)->Name("FrictionFactor");

void BenchOtherSide(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(OtherSide(0.3, 0.36, 1E+50));
    }
}
BENCHMARK(BenchOtherSide)->Name("OtherSide, far start");

void BenchRoundUpSize(benchmark::State& state) {
    double size = 0.3506;
    for (auto _ : state) {
        benchmark::DoNotOptimize(size);
        benchmark::DoNotOptimize(RoundUpSize(size));
    }
}
BENCHMARK(BenchRoundUpSize)->Name("RoundUpSize");

void BenchRoundedUpSize(benchmark::State& state) {
    double size = 0.3506;
    for (auto _ : state) {
        benchmark::DoNotOptimize(size);
        benchmark::DoNotOptimize(RoundedUpSize(size));
    }
}
BENCHMARK(BenchRoundedUpSize)->Name("RoundUpSize and back to a number");

// One whole table, the reading of the reminder included. Arguments: basis, flow in L/s (or width in mm),
// height in mm.
void BenchTable(benchmark::State& state) {
    const auto basis = static_cast<std::int16_t>(state.range(0));
    const auto a = static_cast<double>(state.range(1));
    const auto b = static_cast<double>(state.range(2));
    LiteArrays view;
    for (auto _ : state) {
        CalculateBasis(view, a, b, 5, basis);
        benchmark::DoNotOptimize(view.cells);
    }
    state.SetLabel(view.Row(2));
}

// Without the reminder: the calculation alone, as the routine of the basis does it.
void BenchCalculation(benchmark::State& state) {
    const auto a = static_cast<double>(state.range(1));
    const auto b = static_cast<double>(state.range(2));
    LiteArrays view;
    for (auto _ : state) {
        switch (state.range(0)) {
        case 0:
            CalcLossPerMetre(view, a, b);
            break;
        case 1:
            CalcVelocity(view, a, b);
            break;
        case 2:
            CalcCapped(view, a, b);
            break;
        case 3:
            CalcAnalyseFlow(view, a, b, 500);
            break;
        default:
            CalcAnalyseVelocity(view, a, b, 5);
        }
        benchmark::DoNotOptimize(view.cells);
    }
    state.SetLabel(view.Row(2));
}

void PracticalInputs(benchmark::internal::Benchmark* bench) {
    for (const int basis : {0, 1, 2, 3, 4}) {
        bench->Args({basis, 500, 300});
    }
    for (const int basis : {0, 1, 2}) {
        for (const int flow : {50, 5000}) {
            for (const int height : {100, 1000}) {
                bench->Args({basis, flow, height});
            }
        }
    }
    bench->ArgNames({"basis", "flow", "height"})->Unit(benchmark::kMicrosecond);
}
BENCHMARK(BenchCalculation)->Name("Calculation")->Apply(PracticalInputs);
BENCHMARK(BenchTable)->Name("Table with reminder")->Apply([](benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"basis", "flow", "height"})->Unit(benchmark::kMicrosecond);
    for (const int basis : {0, 1, 2, 3, 4}) {
        bench->Args({basis, 500, 300});
    }
});

// The slowest table of a basis over a mesh of practical inputs, which corners could hide.
void BenchMesh(benchmark::State& state) {
    const auto calculate = state.range(0) == 0   ? CalcLossPerMetre
                           : state.range(0) == 1 ? CalcVelocity
                                                 : CalcCapped;
    LiteArrays view;
    double worst = 0;
    std::string label;
    for (auto _ : state) {
        for (double flow = 50; flow <= 5000; flow *= 1.26) {
            for (double height = 100; height <= 1000; height += 25) {
                double best = 1e9; // of three, so that an interruption doesn't count
                for (int i = 0; i < 3; ++i) {
                    const auto begin = std::chrono::steady_clock::now();
                    calculate(view, flow, height);
                    const std::chrono::duration<double, std::micro> took =
                        std::chrono::steady_clock::now() - begin;
                    best = std::min(best, took.count());
                }
                if (best > worst) {
                    worst = best;
                    label = std::to_string(std::lround(best)) + " us at " +
                            std::to_string(std::lround(flow)) + " L/s, " +
                            std::to_string(std::lround(height)) + " mm";
                }
            }
        }
    }
    state.SetLabel("slowest table: " + label);
}
BENCHMARK(BenchMesh)
    ->Name("Mesh of practical inputs")
    ->DenseRange(0, 2)
    ->ArgName("basis")
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

// Far from practice: the longest tables of some hundred thousand random ones, and one that is easy to type.
void BenchExtreme(benchmark::State& state, double flow, double height, const char* loss, const char* velocity,
                  double roughness) {
    Settings = SettingsRecord();
    Settings.SurfaceRoughness1 = roughness;
    LiteArrays view;
    view.boxes[0] = view.boxes[2] = loss;
    view.boxes[9] = velocity;
    for (auto _ : state) {
        CalculateBasis(view, flow, height, 1, *velocity == 0 ? 0 : 2);
    }
    Settings = SettingsRecord();
}
BENCHMARK_CAPTURE(BenchExtreme, huge flow and cap, 1E9, 350, "0.8", "4999", 0.00015)
    ->Name("Huge flow and cap")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BenchExtreme, caps, 19226.7, 164.305, "0.0461675", "4674.46", 3075.66)
    ->Name("Longest table within caps")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BenchExtreme, loss, 30138.5, 469.699, "14363.6", "", 2.0388)
    ->Name("Longest table for a loss")
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace plenair

int main(int argc, char** argv) {
    // A registry store of its own, with this month's reminder done, so that no table asks anything.
    const std::string store =
        (std::filesystem::temp_directory_path() / ("plenair-bench-" + std::to_string(getpid()))).string();
    plenair::SetRegistryFile(store);
    plenair::RegCreateKey(plenair::HKEY_CURRENT_USER, plenair::kReminderSubKey);
    plenair::RegWriteValue(plenair::HKEY_CURRENT_USER, plenair::kReminderSubKey, plenair::kReminderValueName,
                           plenair::ReminderMonth(), plenair::REG_SZ);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    std::remove(store.c_str());
    return 0;
}
