#include "Platform/Linux/SignalWatch.h"

#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>

namespace orvane {
namespace {

sigset_t quitSignals() {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGTERM);
    sigaddset(&set, SIGINT);
    return set;
}

} // namespace

void SignalWatch::holdBack() {
    const auto set = quitSignals();
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
}

SignalWatch::SignalWatch(QObject* parent)
    : QObject(parent), descriptor_([] {
          const auto set = quitSignals();
          return ::signalfd(-1, &set, SFD_NONBLOCK | SFD_CLOEXEC);
      }()),
      notifier_(descriptor_, QSocketNotifier::Read) {
    connect(&notifier_, &QSocketNotifier::activated, this, [this] {
        signalfd_siginfo info{};
        bool arrived = false;
        while (::read(descriptor_, &info, sizeof info) == ssize_t(sizeof info)) arrived = true;
        if (arrived) emit quitRequested();
    });
}

SignalWatch::~SignalWatch() {
    ::close(descriptor_);
}

} // namespace orvane
