#pragma once

#include <rapidcheck.h>

#include <sstream>
#include <string>
#include <utility>

namespace planner::test {

/// Runs a property as RC_GTEST_PROP does, but over `cases` cases: for one whose single case is already
/// much work. Returns the counterexample with what repeats it, or an empty text when all cases held.
template <class Testable>
std::string counterexample(int cases, Testable&& testable) {
    const auto& configuration = rc::detail::configuration();
    auto parameters = configuration.testParams;
    parameters.maxSuccess = cases;
    const auto result =
        rc::detail::checkTestable(std::forward<Testable>(testable), rc::detail::TestMetadata(), parameters);
    if (result.template is<rc::detail::SuccessResult>()) return {};
    std::ostringstream text;
    rc::detail::printResultMessage(result, text);
    text << "\nRC_PARAMS=seed=" << parameters.seed;
    return text.str();
}

/// Values of `generator` at its full size in every case, the first one included.
template <class T>
rc::Gen<T> fullSize(rc::Gen<T> generator) {
    return rc::gen::resize(rc::kNominalSize, std::move(generator));
}

} // namespace planner::test
