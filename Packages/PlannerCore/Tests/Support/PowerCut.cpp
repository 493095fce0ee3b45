#include "PowerCut.h"

#include <algorithm>
#include <utility>

namespace {

using Kind = DiskOperation::Kind;

bool isAboutNames(const DiskOperation& operation) {
    return operation.kind == Kind::create || operation.kind == Kind::remove;
}

/// SQLite syncs the folder with the first sync of a new file of these kinds.
bool isJournal(const std::string& name) {
    return name.ends_with("-journal") || name.ends_with("-wal");
}

} // namespace

PowerCut::PowerCut(DiskContents contents) {
    for (auto& [name, bytes] : contents) {
        names_[name] = ++filesMade_;
        bytes_[filesMade_] = std::move(bytes);
    }
    seenNames_ = names_;
}

void PowerCut::follow(const DiskOperation& operation) {
    if (operation.kind == Kind::create) seenNames_[operation.name] = ++filesMade_;
    const int file = seenNames_.at(operation.name);
    if (operation.kind == Kind::remove) seenNames_.erase(operation.name);
    if (operation.kind != Kind::sync) pending_.push_back({operation, file});

    const bool isNew = std::ranges::any_of(
        pending_, [&](const Step& step) { return step.operation.kind == Kind::create && step.file == file; });
    const bool bytesAreSafe = operation.kind == Kind::sync;
    const bool namesAreSafe = operation.syncedFolder || (bytesAreSafe && isNew && isJournal(operation.name));
    std::erase_if(pending_, [&](const Step& step) {
        if (isAboutNames(step.operation)) {
            if (!namesAreSafe) return false;
            if (step.operation.kind == Kind::create)
                names_[step.operation.name] = step.file;
            else
                names_.erase(step.operation.name);
            return true;
        }
        if (!bytesAreSafe || step.file != file) return false;
        apply(step.operation, std::vector(sectors(step.operation), true), bytes_[file]);
        return true;
    });
}

std::size_t PowerCut::sectors(const DiskOperation& operation) {
    if (operation.kind != Kind::write || operation.bytes.empty()) return 1;
    const auto end = operation.offset + operation.bytes.size();
    return (end - 1) / sectorSize - operation.offset / sectorSize + 1;
}

void PowerCut::apply(const DiskOperation& operation, const std::vector<bool>& kept, std::string& bytes) {
    if (operation.kind == Kind::truncate) {
        if (kept[0]) bytes.resize(operation.offset);
        return;
    }
    const auto end = operation.offset + operation.bytes.size();
    auto from = operation.offset;
    for (const bool keep : kept) {
        const auto to = std::min(end, (from / sectorSize + 1) * sectorSize);
        if (keep) {
            if (bytes.size() < to) bytes.resize(to);
            bytes.replace(from, to - from, operation.bytes, from - operation.offset, to - from);
        }
        from = to;
    }
}

PowerCut::Choice PowerCut::choice(bool kept) const {
    Choice choice;
    for (const auto& step : pending_) choice.emplace_back(sectors(step.operation), kept);
    return choice;
}

DiskContents PowerCut::outcome(const Choice& choice) const {
    auto bytes = bytes_;
    auto names = names_;
    for (std::size_t index = 0; index < pending_.size(); ++index) {
        const auto& [operation, file] = pending_[index];
        if (!isAboutNames(operation)) {
            apply(operation, choice[index], bytes[file]);
        } else if (choice[index][0]) {
            if (operation.kind == Kind::create)
                names[operation.name] = file;
            else
                names.erase(operation.name);
        }
    }
    DiskContents contents;
    for (const auto& [name, file] : names) contents[name] = bytes[file];
    return contents;
}

void PowerCut::forEachOutcome(std::mt19937_64& random, int randomly,
                              const std::function<void(const DiskContents&)>& visit) const {
    visit(outcome(choice(true)));
    visit(outcome(choice(false)));
    for (std::size_t index = 0; index < pending_.size(); ++index)
        for (const bool kept : {false, true}) {
            auto one = choice(!kept);
            one[index].assign(one[index].size(), kept);
            visit(outcome(one));
        }
    if (!pending_.empty())
        for (std::size_t sector = 1; sector < sectors(pending_.back().operation); ++sector) {
            auto torn = choice(true);
            std::fill(torn.back().begin() + std::ptrdiff_t(sector), torn.back().end(), false);
            visit(outcome(torn));
        }
    for (int time = 0; time < randomly && !pending_.empty(); ++time) {
        auto mixed = choice(true);
        for (auto& sectors : mixed) {
            const auto fate = random() % 3;
            for (auto&& sector : sectors) sector = fate == 0 || (fate == 1 && random() % 2 == 0);
        }
        visit(outcome(mixed));
    }
}
