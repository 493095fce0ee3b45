#include "Platform/Linux/UnaskedEventStore.h"

#include <QMetaObject>

#include <utility>

namespace orvane {

void UnaskedEventStore::requestFullAccess(std::function<void(std::optional<QString>)> answer) {
    QMetaObject::invokeMethod(
        this, [answer = std::move(answer)] { answer(std::nullopt); }, Qt::QueuedConnection);
}

void UnaskedEventStore::events(planner::Instant, planner::Instant,
                               std::function<void(CalendarEvents)> answer) {
    QMetaObject::invokeMethod(
        this,
        [answer = std::move(answer)] {
            answer({{}, tr("No calendar has been connected.")});
        },
        Qt::QueuedConnection);
}

} // namespace orvane
