#pragma once

#include "Platform/Clock.h"
#include "Platform/EventStore.h"

#include <QList>
#include <QObject>
#include <QString>

#include <cstdint>
#include <functional>
#include <optional>

namespace orvane {

/// One row of the agenda.
struct AgendaEvent {
    /// Tells every occurrence of every event apart; the same at each refresh where the calendar names
    /// its events.
    QString id;
    QString title;
    planner::Instant start;
    planner::Instant end;
    bool allDay = false;
    /// The title of the calendar that holds it.
    QString calendar;
    std::optional<QString> location;

    bool operator==(const AgendaEvent&) const = default;
};

/// Today's agenda, read from the user's calendars and never written. Main thread.
class CalendarService : public QObject {
    Q_OBJECT

public:
    /// Reads the authorization and follows the store's changes from here on; lists nothing before
    /// `refresh`. Both must outlive this.
    CalendarService(EventStore& store, const Clock& clock, QObject* parent = nullptr);

    /// What is left of today, by start; all-day events stay until midnight.
    const QList<AgendaEvent>& events() const { return events_; }
    CalendarAuthorization status() const { return status_; }
    /// Whether a refresh is under way.
    bool loading() const { return loading_; }
    /// Why the last refresh listed nothing; absent when it did not fail.
    const std::optional<QString>& error() const { return error_; }

    /// Asks the user for full access and refreshes with what was decided; a question that cannot be asked
    /// sets `error`. `done` is called afterwards, not when this is gone by then.
    void connect(std::function<void()> done);

    /// Reads the authorization and, with full access, today's events. Of several refreshes under way
    /// only the newest changes anything.
    void refresh();

    /// Stops following the store and drops what is under way.
    void stop();

signals:
    void changed();

private:
    void finish(std::uint64_t generation, const CalendarEvents& found);
    QList<AgendaEvent> agenda(const CalendarEvents& found) const;
    AgendaEvent row(const CalendarEvent& event) const;

    EventStore& store_;
    const Clock& clock_;
    QList<AgendaEvent> events_;
    CalendarAuthorization status_;
    bool loading_ = false;
    std::optional<QString> error_;
    /// Counts refreshes: an answer to an older one is dropped.
    std::uint64_t generation_ = 0;
};

} // namespace orvane
