#pragma once

#include <PlannerCore/Instant.h>

#include <QObject>
#include <QString>

namespace orvane {

enum class CalendarAuthorization {
    notDetermined = 0,
    restricted = 1,
    denied = 2,
    fullAccess = 3,
    writeOnly = 4
};

/// The user's calendars. Main thread.
class EventStore : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Whether events may be read; asks the user for nothing.
    virtual CalendarAuthorization authorization() const = 0;

signals:
    /// Some event or calendar changed.
    void changed();
};

} // namespace orvane
