#include "App/SelfCheck.h"
#include "Platform/Linux/AutostartLoginItem.h"
#include "Platform/Linux/BuildInformation.h"
#include "Platform/Linux/DisplayProbe.h"
#include "Platform/Linux/ScreenList.h"
#include "Platform/Linux/SignalWatch.h"
#include "Platform/Linux/SystemClock.h"
#include "Platform/Linux/UnaskedEventStore.h"
#include "Platform/Linux/UnaskedNotificationCenter.h"
#include "Platform/Linux/WorkerExecutor.h"

#include <QGuiApplication>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <span>
#include <string_view>

namespace {

using namespace orvane;

constexpr const char* usage =
    "usage: orvane [--self-check | --version | --help]\n"
    "\n"
    "Without an argument Orvane opens your planner at the top centre of the screen.\n"
    "  --self-check  check the store and report as JSON, without any window\n"
    "  --version     print the version\n"
    "  --help        print this text\n";

void write(std::FILE* stream, const QByteArray& text) {
    std::fwrite(text.constData(), 1, std::size_t(text.size()), stream);
    std::fflush(stream);
}

int selfCheck(int argc, char* argv[]) {
    // Displays are known only to a graphical application, and that ends where there is no display.
    const bool display = displayReachable();
    if (display) qputenv("QT_QPA_PLATFORM", "xcb");
    const std::unique_ptr<QCoreApplication> application =
        display ? std::make_unique<QGuiApplication>(argc, argv)
                : std::make_unique<QCoreApplication>(argc, argv);
    SignalWatch quitSignals;
    SystemClock clock;
    BuildInformation information;
    UnaskedNotificationCenter notifications;
    UnaskedEventStore events;
    AutostartLoginItem loginItem;
    ScreenList screens;
    WorkerExecutor worker;
    SelfCheck check({clock, worker, information, notifications, events, loginItem, screens});
    QObject::connect(&quitSignals, &SignalWatch::quitRequested, &quitSignals,
                     [&check] { check.interrupt(); });
    check.run([](const SelfCheck::Outcome& outcome) {
        write(stdout, outcome.output);
        write(stderr, outcome.error);
        QCoreApplication::exit(outcome.exitCode);
    });
    return QCoreApplication::exec();
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
    if (arguments.empty()) {
        std::fputs(usage, stderr);
        return 2;
    }
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
