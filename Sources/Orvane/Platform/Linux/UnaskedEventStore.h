#pragma once

#include "Platform/EventStore.h"

namespace orvane {

/// The calendars while the user has never been asked for them: reading is refused with a text.
class UnaskedEventStore : public EventStore {
    Q_OBJECT

public:
    using EventStore::EventStore;

    CalendarAuthorization authorization() const override { return CalendarAuthorization::notDetermined; }
    void requestFullAccess(std::function<void(std::optional<QString>)> answer) override;
    void events(planner::Instant start, planner::Instant end,
                std::function<void(CalendarEvents)> answer) override;
};

} // namespace orvane
