#include "Platform/Linux/JournalLog.h"

#define SD_JOURNAL_SUPPRESS_LOCATION
#include <systemd/sd-journal.h>

#include <cstdio>
#include <string>
#include <syslog.h>
#include <unistd.h>

namespace orvane {
namespace {

/// The library reports success when there is nobody to write to.
bool journalRuns() {
    return ::access("/run/systemd/journal/socket", W_OK) == 0;
}

} // namespace

void JournalLog::error(std::string_view category, std::string_view message, std::string_view detail) {
    const std::string shown =
        detail.empty() || (!journalRuns() && ::isatty(STDERR_FILENO)) ? std::string(detail) : "<private>";
    const std::string name(category);
    const std::string text = std::string(message) + shown;
    if (journalRuns() &&
        sd_journal_send("MESSAGE=%s", text.c_str(), "PRIORITY=%i", LOG_ERR, "SYSLOG_IDENTIFIER=orvane",
                        "ORVANE_CATEGORY=%s", name.c_str(), nullptr) == 0)
        return;
    std::fprintf(stderr, "orvane: %s: %s\n", name.c_str(), text.c_str());
}

} // namespace orvane
