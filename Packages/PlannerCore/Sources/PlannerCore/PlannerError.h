#pragma once

#include <stdexcept>

namespace planner {

/// The core's own failure, whose text is a sentence for the user. System failures of the store are
/// thrown as StoreError (PlannerRepository.h), unreadable JSON as JsonError.
class PlannerError : public std::runtime_error {
public:
    /// A backup, or a stored planner, that breaks a rule. `what()` is exactly `message`.
    static PlannerError invalidBackup(const char* message) { return PlannerError(message); }

private:
    using std::runtime_error::runtime_error;
};

/// Bytes that are not the JSON that was expected; `what()` says what was found where.
class JsonError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace planner
