#include "CodecTargets.h"
#include "StoreTargets.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

using namespace planner;

namespace {

/// A fuzz target and the name of its folder of seeds.
struct Target {
    const char* name;
    void (*run)(std::string_view input);
};

class FuzzSeeds : public testing::TestWithParam<Target> {};

constexpr Target targets[] = {
    {"FuzzDecodeBackup", fuzz::decodeBackup},
    {"FuzzRecord", fuzz::record},
    {"FuzzStore", fuzz::store},
};

} // namespace

TEST_P(FuzzSeeds, KeepEveryPromise) {
    int seeds = 0;
    for (const auto& entry :
         std::filesystem::directory_iterator(std::filesystem::path(ORVANE_FUZZ_SEEDS) / GetParam().name)) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string input{std::istreambuf_iterator<char>(file), {}};
        ASSERT_TRUE(file.good() || file.eof()) << entry.path();
        SCOPED_TRACE(entry.path());
        EXPECT_NO_THROW(GetParam().run(input));
        ++seeds;
    }
    EXPECT_GT(seeds, 0);
}

INSTANTIATE_TEST_SUITE_P(All, FuzzSeeds, testing::ValuesIn(targets),
                         [](const auto& target) { return target.param.name; });
