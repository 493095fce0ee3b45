#pragma once

#include "Platform/EventStore.h"

namespace orvane {

/// The calendars while the user has never been asked for them.
class UnaskedEventStore : public EventStore {
    Q_OBJECT

public:
    using EventStore::EventStore;

    CalendarAuthorization authorization() const override { return CalendarAuthorization::notDetermined; }
};

} // namespace orvane
