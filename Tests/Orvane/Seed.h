#pragma once

#include <QtGlobal>

#include <random>

namespace orvane::test {

/// The seed of a randomized test, printed so that a failure can be had again: a fresh one, or the
/// environment's ORVANE_SEED.
inline unsigned seed() {
    bool given = false;
    const auto wanted = qEnvironmentVariableIntValue("ORVANE_SEED", &given);
    const auto seed = given ? unsigned(wanted) : std::random_device()() >> 1;
    qInfo("ORVANE_SEED=%u", seed);
    return seed;
}

} // namespace orvane::test
