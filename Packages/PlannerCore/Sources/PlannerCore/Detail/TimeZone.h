#pragma once

#include <PlannerCore/Detail/TimeZoneRule.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace date {
class time_zone;
}

namespace planner::detail {

/// A zone of the system's tzdata. Immutable; any thread.
class TimeZone {
public:
    /// Throws std::invalid_argument for a name that the system does not know.
    explicit TimeZone(std::string_view name);

    const std::string& name() const;

    /// The span of constant offset that contains `time`, in seconds since 1970; it must lie within the
    /// years -32767 to 32767. Spans follow each other without a gap.
    OffsetSpan spanAt(std::int64_t time) const;

private:
    /// Owned by the process-wide zone list.
    const date::time_zone* listed_;
    /// What holds after the last change that the list knows.
    std::optional<TimeZoneRule> rule_;
};

} // namespace planner::detail
