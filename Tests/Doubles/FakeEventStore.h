#pragma once

#include "Platform/EventStore.h"

#include <QtGlobal>

#include <deque>
#include <functional>
#include <utility>

namespace orvane::test {

/// Calendars whose answers wait until the test gives them, in any order.
class FakeEventStore : public EventStore {
public:
    struct Question {
        planner::Instant start;
        planner::Instant end;
        std::function<void(CalendarEvents)> answer;
    };

    CalendarAuthorization authorization() const override { return status; }
    void requestFullAccess(std::function<void(std::optional<QString>)> answer) override {
        requests.push_back(std::move(answer));
    }
    void events(planner::Instant start, planner::Instant end,
                std::function<void(CalendarEvents)> answer) override {
        if (status != CalendarAuthorization::fullAccess) qFatal("the events were read without access");
        questions.push_back({start, end, std::move(answer)});
    }

    CalendarAuthorization status = CalendarAuthorization::notDetermined;
    std::deque<Question> questions;
    /// The requests for access that wait for their answer.
    std::deque<std::function<void(std::optional<QString>)>> requests;
};

} // namespace orvane::test
