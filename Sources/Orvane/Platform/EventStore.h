#pragma once

#include <PlannerCore/Instant.h>

#include <QList>
#include <QObject>
#include <QString>

#include <functional>
#include <optional>

namespace orvane {

enum class CalendarAuthorization {
    notDetermined = 0,
    restricted = 1,
    denied = 2,
    fullAccess = 3,
    writeOnly = 4
};

/// One occurrence of an event, as its calendar holds it.
struct CalendarEvent {
    /// Names the event, not the occurrence; empty when its calendar gives it no name.
    QString identifier;
    /// Empty when it has none.
    QString title;
    planner::Instant start;
    planner::Instant end;
    bool allDay = false;
    /// The title of the calendar that holds it.
    QString calendar;
    std::optional<QString> location;
};

/// What a look into the calendars gave.
struct CalendarEvents {
    QList<CalendarEvent> events;
    /// Why there are none, as a text for the user; absent on success.
    std::optional<QString> failure;
};

/// The user's calendars. Main thread.
class EventStore : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Whether events may be read; asks the user for nothing.
    virtual CalendarAuthorization authorization() const = 0;

    /// Asks the user for full access. The answer comes later: the failure's text, or nothing when the user
    /// could be asked, whatever was decided.
    virtual void requestFullAccess(std::function<void(std::optional<QString>)> answer) = 0;

    /// Reads the events of all calendars that fall between `start` and `end`. Asked only while
    /// `authorization` is full access. The answer comes later, never inside the call.
    virtual void events(planner::Instant start, planner::Instant end,
                        std::function<void(CalendarEvents)> answer) = 0;

signals:
    /// Some event or calendar changed.
    void changed();
};

} // namespace orvane
