#include "Model/AppModel.h"

#include "Platform/Clock.h"
#include "Platform/Platform.h"

#include <PlannerCore/PlannerDates.h>

#include <utility>

namespace orvane {

using planner::DailyNote;
using planner::Instant;

namespace {

/// Seconds without a key after which a note is saved.
constexpr double typingPause = 0.4;

} // namespace

std::string AppModel::dayKey(Instant instant) const {
    return planner::dates::dayID(instant, platform_.clock.calendar());
}

std::size_t AppModel::notePosition(const std::string& day) const {
    // From the end: the note being written is nearly always among the youngest.
    const auto& notes = snapshot_.notes;
    for (auto index = notes.size(); index > 0; --index)
        if (notes[index - 1].id == day) return index - 1;
    return notes.size();
}

QString AppModel::noteDay() const {
    return QString::fromStdString(noteKey_);
}

QString AppModel::noteText() const {
    const auto position = notePosition(noteKey_);
    return position < snapshot_.notes.size() ? QString::fromStdString(snapshot_.notes[position].text)
                                             : QString();
}

void AppModel::updateNote(const QString& text) {
    if (!editable()) return;
    auto bytes = text.toStdString();
    if (bytes.size() > planner::maximumNoteBytes) {
        setError(tr("This note exceeds the 5 MB limit. The last saved text has been kept."));
        emit noteReplaced();
        return;
    }
    DailyNote note(noteKey_, std::move(bytes), platform_.clock.now());
    const auto position = notePosition(note.id);
    if (position < snapshot_.notes.size())
        snapshot_.notes.replace(position, std::move(note));
    else
        snapshot_.notes.push_back(std::move(note));
    emit snapshotChanged();
    emit noteEdited();
    setSaveState(tr("Saving…"));
    noteSave_ = platform_.clock.after(typingPause, [this] {
        // The timer is the handle of the pending save, which ends here.
        const auto finished = std::move(noteSave_);
        persist();
    });
}

void AppModel::selectNoteDay(Instant date) {
    noteSave_.reset();
    persist();
    noteDate_ = date;
    const auto before = std::exchange(noteKey_, dayKey(date));
    if (noteKey_ != before) emit noteDayChanged();
}

void AppModel::selectNoteDayBy(int days) {
    keepNoteDay();
    const auto calendar = platform_.clock.calendar();
    auto date = calendar.startOfDay(noteDate_, days);
    // A date that the zone left out begins on the next one; backwards, that would be the same day again.
    if (days < 0 && date && dayKey(*date) == noteKey_) date = calendar.startOfDay(noteDate_, days - 1);
    if (date) selectNoteDay(*date);
}

void AppModel::setEditingNote(bool editing) {
    if (editing == editingNote_) return;
    editingNote_ = editing;
    emit editingNoteChanged();
}

void AppModel::keepNoteDay() {
    if (dayKey(noteDate_) == noteKey_) return;
    // Zones lie at most 26 hours apart.
    for (const int days : {-2, -1, 1, 2})
        if (const auto date = platform_.clock.calendar().startOfDay(noteDate_, days);
            date && dayKey(*date) == noteKey_) {
            noteDate_ = *date;
            return;
        }
}

void AppModel::followToday() {
    const auto now = platform_.clock.now();
    const auto before = std::exchange(today_, dayKey(now));
    if (before != today_ && noteKey_ == before && !editingNote_ && !noteSave_)
        selectNoteDay(now);
    else
        keepNoteDay();
    if (before != today_) emit todayChanged();
}

} // namespace orvane
