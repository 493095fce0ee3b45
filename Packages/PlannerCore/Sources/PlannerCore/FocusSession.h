#pragma once

#include <PlannerCore/Instant.h>
#include <PlannerCore/Uuid.h>

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace planner {

/// Whether a session counts down to its target or up without one.
enum class FocusMode { countdown, stopwatch };

/// Every mode, in declaration order.
inline constexpr std::array allFocusModes{FocusMode::countdown, FocusMode::stopwatch};

enum class FocusStatus { running, paused, finished };

/// The stored word of a case: "countdown", "stopwatch"; "running", "paused", "finished".
std::string_view rawValue(FocusMode mode);
std::string_view rawValue(FocusStatus status);
/// The case of a stored word; nothing for any other text, letter case included.
std::optional<FocusMode> focusMode(std::string_view rawValue);
std::optional<FocusStatus> focusStatus(std::string_view rawValue);

/// One stretch of counted focus time. A plain value; any thread.
struct FocusSegment {
    /// Wall-clock time at which the stretch began.
    Instant start;
    /// Length in seconds; finite and not negative once validated.
    double duration = 0;

    bool operator==(const FocusSegment&) const = default;
};

/// A stretch of work on one task. A plain value; any thread.
struct FocusSession {
    Uuid id;
    /// The task it was started for; the task itself may be gone by now.
    Uuid taskID;
    /// The task's title when the session started, UTF-8.
    std::string title;
    FocusMode mode = FocusMode::countdown;
    /// Planned length in seconds; above 0 and at most 86,400 once validated.
    double target = 0;
    FocusStatus status = FocusStatus::running;
    /// When it was started: the sort key of the session list.
    Instant createdAt;
    /// The counted stretches, in the order in which they were closed.
    std::vector<FocusSegment> segments;

    FocusSession() = default;
    /// A running session with a fresh random id, started `now`, with nothing counted yet.
    FocusSession(Uuid taskID, std::string title, FocusMode mode, double target, Instant now);

    /// Sum of the segments' durations in seconds; time that runs but is in no segment yet is left out.
    double activeDuration() const;

    bool operator==(const FocusSession&) const = default;
};

} // namespace planner
