#include "Model/HistoryModel.h"

#include "Platform/Clock.h"

#include <QLocale>

#include <algorithm>
#include <utility>

namespace orvane {

namespace insights = planner::insights;

namespace {

/// A few screens of text: quick to lay out, and few of them in a long note.
constexpr qsizetype partLength = 2000;

} // namespace

QStringList partsOf(const QString& text) {
    QStringList parts;
    for (QStringView rest = text; !rest.isEmpty();) {
        if (rest.size() <= partLength) {
            parts.append(rest.toString());
            break;
        }
        const auto window = rest.first(partLength + 1);
        auto end = window.lastIndexOf(u'\n');
        if (end <= 0) end = window.lastIndexOf(u' ');
        const bool between = end > 0;
        if (!between) end = rest[partLength].isLowSurrogate() ? partLength - 1 : partLength;
        parts.append(rest.first(end).toString());
        rest = rest.sliced(between ? end + 1 : end);
    }
    return parts;
}

void HistoryModel::setModel(AppModel* model) {
    if (model == model_) return;
    model_ = model;
    connect(model, &AppModel::snapshotChanged, this, &HistoryModel::refresh);
    connect(model, &AppModel::todayChanged, this, &HistoryModel::refresh);
    emit modelChanged();
    followToday();
    if (!day_.isValid()) setDay(today());
    refresh();
}

void HistoryModel::setActive(bool active) {
    if (active == active_) return;
    active_ = active;
    emit activeChanged();
    refresh();
}

void HistoryModel::setDay(const QString& day) {
    const auto date = QDate::fromString(day, Qt::ISODate);
    if (!date.isValid() || date == day_) return;
    day_ = date;
    emit dayChanged();
    refresh();
}

QStringList HistoryModel::noteParts() const {
    return partsOf(note_);
}

QString HistoryModel::dayText() const {
    return QLocale().toString(day_, QLocale::LongFormat);
}

void HistoryModel::followToday() {
    const auto calendar = model_->clock().calendar();
    const auto civil = calendar.day(model_->clock().now());
    const auto today = civil ? QDate(civil->year, int(civil->month), int(civil->day)) : QDate();
    const auto firstWeekday = int(calendar.firstWeekday());
    if (today == today_ && firstWeekday == firstWeekday_) return;
    today_ = today;
    firstWeekday_ = firstWeekday;
    emit todayChanged();
}

void HistoryModel::refresh() {
    if (!active_ || !model_) return;
    followToday();
    const auto span = insights::dayOf(model_->clock().now(), model_->clock().calendar(),
                                      today_.isValid() ? int(today_.daysTo(day_)) : 0);
    const auto& planner = model_->snapshot();
    // Lists that came from one another are compared by their chunks' addresses.
    const bool otherSessions = rows_.empty() || span != span_ || sessions_ != planner.sessions;
    if (otherSessions || tasks_ != planner.tasks) {
        span_ = span;
        tasks_ = planner.tasks;
        sessions_ = planner.sessions;
        if (otherSessions)
            sessionsOfDay_ = span ? insights::sessionsOn(*span, sessions_) : decltype(sessionsOfDay_)();
        replaceRows(wantedRows());
    }
    refreshNote();
    const bool blank = note_.isEmpty() && stopNear(0, 1) < 0;
    if (std::exchange(blank_, blank) != blank) emit blankChanged();
}

void HistoryModel::refreshNote() {
    const auto& notes = model_->snapshot().notes;
    const auto position = insights::noteOn(day().toStdString(), notes);
    auto note = position ? QString::fromStdString(notes[*position].text) : QString();
    if (note == note_) return;
    note_ = std::move(note);
    emit noteChanged();
}

HistoryModel::Rows HistoryModel::wantedRows() const {
    Rows rows{{TasksHeading, {}, tr("COMPLETED TASKS")}};
    // A date that cannot be formed had no time in which anything could happen.
    if (span_)
        for (const auto position : insights::completedOn(*span_, tasks_)) {
            const auto& task = tasks_[position];
            rows.push_back({Task, task.id, QString::fromStdString(task.title)});
        }
    if (rows.size() == 1) rows.push_back({NoTasks, {}, tr("No completed tasks for this day.")});
    rows.push_back({SessionsHeading, {}, tr("FOCUS SESSIONS")});
    const auto begin = rows.size();
    for (const auto& [position, minutes] : sessionsOfDay_) {
        const auto& session = sessions_[position];
        rows.push_back({Session, session.id, QString::fromStdString(session.title), minutes, session.status});
    }
    if (rows.size() == begin) rows.push_back({NoSessions, {}, tr("No focus sessions for this day.")});
    return rows;
}

bool HistoryModel::samePlace(const Row& left, const Row& right) {
    return left.kind == right.kind && left.id == right.id;
}

void HistoryModel::replaceRows(const Rows& wanted) {
    const auto most = std::min(rows_.size(), wanted.size());
    std::size_t head = 0, tail = 0;
    while (head < most && samePlace(rows_[head], wanted[head])) ++head;
    while (tail < most - head &&
           samePlace(rows_.end()[-1 - std::ptrdiff_t(tail)], wanted.end()[-1 - std::ptrdiff_t(tail)]))
        ++tail;
    const auto from = std::ptrdiff_t(head);
    if (const auto removed = rows_.size() - head - tail; removed > 0) {
        beginRemoveRows({}, int(head), int(head + removed) - 1);
        rows_.erase(rows_.begin() + from, rows_.end() - std::ptrdiff_t(tail));
        endRemoveRows();
    }
    if (const auto added = wanted.size() - head - tail; added > 0) {
        beginInsertRows({}, int(head), int(head + added) - 1);
        rows_.insert(rows_.begin() + from, wanted.begin() + from, wanted.end() - std::ptrdiff_t(tail));
        endInsertRows();
    }
    for (std::size_t row = 0; row < rows_.size(); ++row)
        if (rows_[row] != wanted[row]) {
            rows_[row] = wanted[row];
            emit dataChanged(index(int(row)), index(int(row)));
        }
}

int HistoryModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(rows_.size());
}

QVariant HistoryModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const auto& row = rows_[std::size_t(index.row())];
    switch (role) {
    case kindRole:
        return row.kind;
    case idRole:
        return QString::fromStdString(row.id.text());
    case titleRole:
        return row.title;
    case minutesRole:
        return row.minutes;
    case statusRole: {
        const auto word = planner::rawValue(row.status);
        return QString::fromUtf8(word.data(), qsizetype(word.size()));
    }
    default:
        return {};
    }
}

bool HistoryModel::isStop(int row) const {
    const auto kind = rows_[std::size_t(row)].kind;
    return kind == Task || kind == Session;
}

int HistoryModel::stopNear(int from, int step) const {
    const auto search = [&](int row, int by) {
        while (row >= 0 && row < rowCount() && !isStop(row)) row += by;
        return row >= 0 && row < rowCount() ? row : -1;
    };
    if (rows_.empty() || (step != 1 && step != -1)) return -1;
    const auto begin = std::clamp(from, 0, rowCount() - 1);
    const auto found = search(begin, step);
    return found >= 0 ? found : search(begin, -step);
}

QHash<int, QByteArray> HistoryModel::roleNames() const {
    return {{kindRole, "kind"},
            {idRole, "rowId"},
            {titleRole, "title"},
            {minutesRole, "minutes"},
            {statusRole, "status"}};
}

} // namespace orvane
