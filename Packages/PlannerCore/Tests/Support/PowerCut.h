#pragma once

#include "MemoryDisk.h"

#include <cstdint>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <vector>

/// Follows what is done to a disk and tells what it may hold after a power cut.
///
/// Bytes are safe once their file was synced. Until then each write and truncation may have reached the
/// disk or not, in any order, and a write may have been torn at any sector's edge. A file's name
/// appears and goes independently of that: creations and removals are safe once the folder was synced,
/// which the first sync of a new journal or log does, and a removal that asks for it.
class PowerCut {
public:
    static constexpr std::size_t sectorSize = 512;

    explicit PowerCut(DiskContents contents);

    void follow(const DiskOperation& operation);

    /// Calls `visit` with what the disk may hold now: everything done, nothing that is not safe, each
    /// single step missing, each single step alone, the last write torn at each sector, and `randomly`
    /// mixtures of kept, missing and torn steps. The same contents may come more than once.
    void forEachOutcome(std::mt19937_64& random, int randomly,
                        const std::function<void(const DiskContents&)>& visit) const;

private:
    struct Step {
        DiskOperation operation;
        /// Which file, since a name may be given to a second one.
        int file = 0;
    };
    /// For each pending step, which of its sectors reached the disk; a step without bytes has one.
    using Choice = std::vector<std::vector<bool>>;

    static std::size_t sectors(const DiskOperation& operation);
    static void apply(const DiskOperation& operation, const std::vector<bool>& kept, std::string& bytes);
    Choice choice(bool kept) const;
    DiskContents outcome(const Choice& choice) const;

    /// Safe bytes by file, and safe names.
    std::map<int, std::string> bytes_;
    std::map<std::string, int> names_;
    /// The names as the running program sees them.
    std::map<std::string, int> seenNames_;
    std::vector<Step> pending_;
    int filesMade_ = 0;
};
