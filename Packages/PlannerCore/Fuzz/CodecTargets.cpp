#include "CodecTargets.h"

#include <PlannerCore/Detail/RecordCoding.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace planner::fuzz {

namespace {

void require(bool holds, const char* promise) {
    if (holds) return;
    std::fprintf(stderr, "Broken: %s\n", promise);
    std::abort();
}

template <class Decode>
void readAndWriteAgain(std::string_view json, Decode decode) {
    decltype(decode(json)) record;
    try {
        record = decode(json);
    } catch (const JsonError& error) {
        require(std::string_view(error.what()).find(" byte ") != std::string_view::npos,
                "an unreadable payload names the place");
        return;
    }
    // Whatever was read can be written, and its bytes settle.
    std::string written, again;
    detail::encode(record, written);
    const auto copy = decode(written);
    detail::encode(copy, again);
    require(copy == record, "a record reads back to what was written");
    require(again == written, "equal records have equal bytes");
}

} // namespace

void decodeBackup(std::string_view input) {
    PlannerSnapshot snapshot;
    try {
        snapshot = PlannerSnapshot::decodeBackup(input);
    } catch (const PlannerError&) {
        return;
    } catch (const JsonError&) {
        return;
    }
    snapshot.validated();
    const auto written = snapshot.backupData();
    require(PlannerSnapshot::decodeBackup(written) == snapshot, "a backup reads back to what was written");
}

void record(std::string_view input) {
    if (input.empty()) return;
    const auto payload = input.substr(1);
    switch (input.front()) {
    case 't':
        return readAndWriteAgain(payload, detail::decodeTask);
    case 'n':
        return readAndWriteAgain(payload, detail::decodeNote);
    default:
        return readAndWriteAgain(payload, detail::decodeSession);
    }
}

} // namespace planner::fuzz
