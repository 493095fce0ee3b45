#include "Integrations/CalendarService.h"

#include <PlannerCore/Uuid.h>

#include <QLocale>
#include <QPointer>

#include <algorithm>
#include <utility>
#include <vector>

namespace orvane {

CalendarService::CalendarService(EventStore& store, const Clock& clock, QObject* parent)
    : QObject(parent), store_(store), clock_(clock), status_(store.authorization()) {
    QObject::connect(&store_, &EventStore::changed, this, &CalendarService::refresh);
}

void CalendarService::connect(std::function<void()> done) {
    store_.requestFullAccess([self = QPointer<CalendarService>(this),
                              done = std::move(done)](const std::optional<QString>& failure) {
        if (!self) return;
        if (failure) {
            self->error_ = failure;
            self->status_ = self->store_.authorization();
            emit self->changed();
        } else {
            self->refresh();
        }
        done();
    });
}

void CalendarService::refresh() {
    status_ = store_.authorization();
    const auto generation = ++generation_;
    const auto now = clock_.now();
    const auto calendar = clock_.calendar();
    const auto start = calendar.startOfDay(now);
    const auto end = calendar.startOfDay(now, 1);
    loading_ = status_ == CalendarAuthorization::fullAccess;
    if (!loading_)
        events_.clear();
    else
        error_.reset();
    emit changed();
    if (!loading_) return;
    if (!start || !end) return finish(generation, {});
    store_.events(*start, *end,
                  [self = QPointer<CalendarService>(this), generation](const CalendarEvents& found) {
                      if (self) self->finish(generation, found);
                  });
}

void CalendarService::stop() {
    disconnect(&store_, nullptr, this, nullptr);
    ++generation_;
    loading_ = false;
    emit changed();
}

void CalendarService::finish(std::uint64_t generation, const CalendarEvents& found) {
    if (generation != generation_) return;
    error_ = found.failure;
    events_ = found.failure ? QList<AgendaEvent>() : agenda(found);
    loading_ = false;
    emit changed();
}

QList<AgendaEvent> CalendarService::agenda(const CalendarEvents& found) const {
    const auto now = clock_.now();
    std::vector<const CalendarEvent*> left;
    for (const auto& event : found.events)
        if (event.allDay || event.end > now) left.push_back(&event);
    // Events of the same moment stay as the store listed them: they stand in one array.
    std::sort(left.begin(), left.end(), [](const auto* one, const auto* other) {
        return one->start != other->start ? one->start < other->start : one < other;
    });
    QList<AgendaEvent> rows;
    for (const auto* event : left) rows.append(row(*event));
    return rows;
}

AgendaEvent CalendarService::row(const CalendarEvent& event) const {
    const auto name = event.identifier.isEmpty() ? QString::fromStdString(planner::Uuid::random().text())
                                                 : event.identifier;
    const auto start =
        QString::number(event.start.seconds + planner::unixEpochOffset, 'g', QLocale::FloatingPointShortest);
    return {name + u'-' + start, event.title.isEmpty() ? tr("Untitled event") : event.title,
            event.start,         event.end,
            event.allDay,        event.calendar,
            event.location};
}

} // namespace orvane
