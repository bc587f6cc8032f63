#include "core/Settings.h"
#include "core/SettingsFile.h"
#include "core/modRegistry.h"
#include "core/start/Main.h"
#include "lite/windows/frmMinorCalc.h"
#include "platform/files/FileFailure.h"
#include "platform/files/ProgramFolder.h"
#include "platform/qt/ConnectDesktop.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QTemporaryDir>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

#include <time.h>
#include <unistd.h>

namespace plenair {
namespace {

frmMinorCalc* Window() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* lite = qobject_cast<frmMinorCalc*>(window)) {
            return lite;
        }
    }
    return nullptr;
}

TextBox* Box(const char* name) {
    return Window()->findChild<TextBox*>(name);
}

MSFlexGrid* Table() {
    return Window()->findChild<MSFlexGrid*>("grdMinorCalc");
}

void Send(QWidget* box, QEvent::Type type, int key, const QString& text) {
    QKeyEvent event(type, key, Qt::NoModifier, text);
    QApplication::sendEvent(box, &event);
}

// Tells when a control has been painted.
class PaintWatch : public QObject {
  public:
    bool painted = false;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        painted = painted || event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }
};

void WaitForPaint(PaintWatch& watch) {
    while (!watch.painted) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

// From the key Enter to the painted table. Argument: the basis.
void BenchEnter(benchmark::State& state) {
    Main();
    QCoreApplication::processEvents();
    Window()->activateWindow();
    Settings.CalcBasis = static_cast<std::int16_t>(state.range(0));
    Window()->TakeSettings();
    TextBox* const box = Box("txtInputA");
    box->SetText("500");
    Box("txtInputB")->SetText("300");
    box->setFocus();
    QCoreApplication::processEvents();
    PaintWatch watch;
    Table()->installEventFilter(&watch);
    for (auto _ : state) {
        watch.painted = false;
        Send(box, QEvent::KeyPress, Qt::Key_Return, "\r");
        Send(box, QEvent::KeyRelease, Qt::Key_Return, "\r");
        WaitForPaint(watch);
    }
    state.SetLabel(Table()->TextMatrix(2, 0));
    Unload();
}
BENCHMARK(BenchEnter)
    ->Name("Enter to painted table")
    ->DenseRange(0, 4)
    ->ArgName("basis")
    ->Unit(benchmark::kMillisecond);

// From the start routine to a window that has painted itself; the application object is there already.
void BenchStart(benchmark::State& state) {
    for (auto _ : state) {
        Main();
        PaintWatch watch;
        Table()->installEventFilter(&watch);
        WaitForPaint(watch);
        state.PauseTiming();
        Unload();
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(BenchStart)->Name("Start routine to painted window")->Unit(benchmark::kMillisecond);

// Milliseconds since the system started this process, loading of the libraries included, to within 10.
long long SinceProcessStart() {
    std::ifstream file("/proc/self/stat");
    std::string stat{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    std::istringstream fields(stat.substr(stat.rfind(')') + 1)); // from the third field on
    std::string field;
    for (int i = 3; i <= 22; ++i) {
        fields >> field;
    }
    timespec now{};
    clock_gettime(CLOCK_BOOTTIME, &now);
    const long long started = std::atoll(field.c_str()) * 1000 / sysconf(_SC_CLK_TCK);
    return now.tv_sec * 1000 + now.tv_nsec / 1000000 - started;
}

} // namespace
} // namespace plenair

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication::setStyle("Fusion");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    plenair::ConnectDesktop();
    // A program's folder and a store of its own; no first start, no reminder.
    const QTemporaryDir folder;
    plenair::SetProgramFolder(folder.path().toStdString());
    plenair::SetRegistryFile(folder.filePath("registry").toStdString());
    plenair::SetStateFolder(""); // a project left by one measurement would be offered to the next
    plenair::RegCreateKey(plenair::HKEY_CURRENT_USER, plenair::kReminderSubKey);
    plenair::RegWriteValue(plenair::HKEY_CURRENT_USER, plenair::kReminderSubKey, plenair::kReminderValueName,
                           plenair::ReminderMonth(), plenair::REG_SZ);
    plenair::Settings.DefPath = folder.path().toStdString();
    plenair::SaveSettings();
    // The first start of this process is the one that a user waits for.
    plenair::Main();
    plenair::PaintWatch watch;
    plenair::Table()->installEventFilter(&watch);
    plenair::WaitForPaint(watch);
    benchmark::AddCustomContext("process start to painted window",
                                std::to_string(plenair::SinceProcessStart()) + " ms");
    plenair::Unload();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
