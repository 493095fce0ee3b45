#include "StoreTargets.h"

#include "MemoryDisk.h"
#include "ScratchFolder.h"

#include <PlannerCore/PlannerRepository.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

namespace planner::fuzz {

namespace {

void require(bool holds, const char* promise) {
    if (holds) return;
    std::fprintf(stderr, "Broken: %s\n", promise);
    std::abort();
}

/// What opening and loading gives; nothing when it is refused, with the reason in `reason`.
std::optional<PlannerSnapshot> loaded(const std::filesystem::path& folder, std::string& reason) {
    try {
        return PlannerRepository(folder).load();
    } catch (const StoreError& error) {
        reason = error.what();
    } catch (const PlannerError& error) {
        reason = error.what();
    } catch (const JsonError& error) {
        reason = error.what();
    }
    return std::nullopt;
}

/// Whether both hold the same records. Rows that another program wrote may come in another place once
/// they were written anew, and records with equal sort keys keep their rows' order.
bool haveSameRecords(const PlannerSnapshot& left, const PlannerSnapshot& right) {
    const auto same = [](const auto& one, const auto& other) {
        return one.size() == other.size() && std::is_permutation(one.begin(), one.end(), other.begin());
    };
    return same(left.tasks, right.tasks) && same(left.notes, right.notes) &&
           same(left.sessions, right.sessions);
}

} // namespace

void store(std::string_view input) {
    static const ScratchFolder folder;
    const auto file = (folder / "Planner.sqlite").string();
    MemoryDisk disk(DiskContents{{file, std::string(input)}});
    std::string reason;
    const auto planner = loaded(folder.path(), reason);
    if (!planner) {
        require(!reason.empty(), "a refusal says why");
        require(disk.contents().at(file) == input || input.empty(), "what is refused keeps its bytes");
        return;
    }
    try {
        PlannerRepository repository(folder.path());
        auto edited = *planner;
        edited.tasks.push_back({Uuid{}, "One more", Instant{1}, 0});
        repository.save(edited);
        repository.save(*planner);
    } catch (const StoreError&) {
        // Damage in a page that only writing comes upon.
        return;
    }
    const auto again = loaded(folder.path(), reason);
    require(again && haveSameRecords(*again, *planner), "what was saved loads again");
}

} // namespace planner::fuzz
