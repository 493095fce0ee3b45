#include "App/LinuxPlatform.h"
#include "App/OrvaneApp.h"
#include "App/SelfCheck.h"
#include "App/SingleInstance.h"
#include "Platform/Linux/DisplayProbe.h"
#include "Platform/Linux/SignalWatch.h"

#include <QApplication>
#include <QQuickWindow>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace {

using namespace orvane;

constexpr const char* usage =
    "usage: orvane [--self-check | --version | --help]\n"
    "\n"
    "Without an argument Orvane opens your planner at the top centre of the screen.\n"
    "  --self-check  check the store and report as JSON, without any window\n"
    "  --version     print the version\n"
    "  --help        print this text\n";

void write(std::FILE* stream, const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stream);
    std::fflush(stream);
}

int selfCheck(int argc, char* argv[]) {
    // Displays are known only to a graphical application, and that ends where there is no display.
    std::optional<DisplayProbe> probe(std::in_place);
    const bool display = probe->reachable();
    if (display) qputenv("QT_QPA_PLATFORM", "xcb");
    const std::unique_ptr<QCoreApplication> application =
        display ? std::make_unique<QGuiApplication>(argc, argv)
                : std::make_unique<QCoreApplication>(argc, argv);
    probe.reset();
    SignalWatch quitSignals;
    BuildInformation information;
    JournalLog log;
    SettingsUserDefaults defaults(log);
    FreedesktopNotificationCenter notifications(defaults);
    UnaskedEventStore events;
    AutostartLoginItem loginItem;
    ScreenList screens;
    WorkerExecutor worker;
    SystemClock clock;
    SelfCheck check({clock, worker, information, notifications, events, loginItem, screens});
    QObject::connect(&quitSignals, &SignalWatch::quitRequested, &quitSignals, [&check] { check.cancel(); });
    check.run([](const SelfCheck::Outcome& outcome) {
        write(stdout, outcome.standardOutput);
        write(stderr, outcome.standardError);
        QCoreApplication::exit(outcome.exitCode);
    });
    return QCoreApplication::exec();
}

/// What the program's first look at its folder decides.
enum class Start { first, shownByTheOther, unreachable };

Start decideStart(DataFolder& folder) {
    try {
        folder.open();
    } catch (const std::system_error& error) {
        if (error.code() == std::errc::resource_unavailable_try_again)
            return SingleInstance::activateOther() ? Start::shownByTheOther : Start::unreachable;
        // Any other failure is shown in the window, with a way to try again.
    }
    return Start::first;
}

void chooseRenderer() {
    const bool chosen =
        qEnvironmentVariableIsSet("QT_QUICK_BACKEND") || qEnvironmentVariableIsSet("QSG_RHI_BACKEND");
    if (!chosen && !hasGraphicsHardware()) QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

int runPlanner(int argc, char* argv[]) {
    std::optional<DisplayProbe> probe(std::in_place);
    if (!probe->reachable()) {
        std::fputs("orvane: there is no X display to show the planner on\n", stderr);
        return 1;
    }
    qputenv("QT_QPA_PLATFORM", "xcb");
    chooseRenderer();
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setApplicationVersion(QStringLiteral(ORVANE_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("app.orvane.Orvane"));
    QApplication application(argc, argv);
    probe.reset();
    LinuxPlatform platform;
    switch (decideStart(platform.dataFolder)) {
    case Start::first:
        break;
    case Start::shownByTheOther:
        return 0;
    case Start::unreachable:
        std::fputs("orvane: another Orvane is using this planner and cannot be reached\n", stderr);
        return 1;
    }
    OrvaneApp orvane(platform);
    orvane.launch();
    return QApplication::exec();
}

} // namespace

int main(int argc, char* argv[]) {
    // Before the toolkit starts its threads.
    SignalWatch::holdBack();
    const std::span arguments(argv + 1, argc > 0 ? std::size_t(argc) - 1 : 0);
    const auto is = [](std::string_view name) {
        return [name](const char* argument) { return argument == name; };
    };
    if (std::ranges::any_of(arguments, is("--self-check"))) return selfCheck(argc, argv);
    if (arguments.empty()) return runPlanner(argc, argv);
    if (arguments.size() == 1 && is("--version")(arguments[0])) {
        std::puts("orvane " ORVANE_VERSION);
        return 0;
    }
    if (arguments.size() == 1 && is("--help")(arguments[0])) {
        std::fputs(usage, stdout);
        return 0;
    }
    std::fprintf(stderr, "orvane: unknown argument \"%s\"; try --help\n", arguments[0]);
    return 2;
}
