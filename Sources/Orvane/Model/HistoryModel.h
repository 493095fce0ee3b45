#pragma once

#include "Model/AppModel.h"

#include <PlannerCore/Insights.h>

#include <QAbstractListModel>
#include <QDate>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <optional>
#include <vector>

namespace orvane {

/// One day in look back: the rows of a page, with their headings, and the day's note. Follows the
/// planner and the date while `active`; what it missed meanwhile it takes in when it becomes so. Only the
/// rows that differ change. Main thread.
class HistoryModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(orvane::AppModel* model READ model WRITE setModel NOTIFY modelChanged REQUIRED)
    /// Whether anybody sees it.
    Q_PROPERTY(bool active READ active WRITE setActive NOTIFY activeChanged)
    /// The key of the day shown, "2026-03-07": at first today, then whatever is chosen. A text that names
    /// no day is refused.
    Q_PROPERTY(QString day READ day WRITE setDay NOTIFY dayChanged)
    /// That day as the locale writes it in full.
    Q_PROPERTY(QString dayText READ dayText NOTIFY dayChanged)
    Q_PROPERTY(QString today READ today NOTIFY todayChanged)
    /// The weekday with which the user's weeks begin, 0 for Sunday to 6 for Saturday.
    Q_PROPERTY(int firstWeekday READ firstWeekday NOTIFY todayChanged)
    /// The day's note; empty when there is none.
    Q_PROPERTY(QString note READ note NOTIFY noteChanged)
    /// The note in parts to show below each other, so that a long one is laid out as it comes into view.
    Q_PROPERTY(QStringList noteParts READ noteParts NOTIFY noteChanged)
    /// Whether the day holds nothing at all.
    Q_PROPERTY(bool blank READ blank NOTIFY blankChanged)

public:
    enum RowKind { TasksHeading, Task, NoTasks, SessionsHeading, Session, NoSessions };
    Q_ENUM(RowKind)
    enum Role { kindRole = Qt::UserRole + 1, idRole, titleRole, minutesRole, statusRole };

    using QAbstractListModel::QAbstractListModel;

    AppModel* model() const { return model_; }
    /// Set once.
    void setModel(AppModel* model);
    bool active() const { return active_; }
    void setActive(bool active);
    QString day() const { return day_.toString(Qt::ISODate); }
    void setDay(const QString& day);
    QString dayText() const;
    QString today() const { return today_.toString(Qt::ISODate); }
    int firstWeekday() const { return firstWeekday_; }
    const QString& note() const { return note_; }
    QStringList noteParts() const;
    bool blank() const { return blank_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    /// Roles: `kind` (RowKind), `rowId` (the task's or session's id, QString), `title` (QString), and of a
    /// session `minutes` (qint64) and `status` (QString: "running", "paused", "finished").
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// The task or session nearest to row `from`, itself included: going by `step`, 1 or -1, and where there
    /// is none that way, the other way. -1 where the day has neither.
    Q_INVOKABLE int stopNear(int from, int step) const;

signals:
    void modelChanged();
    void activeChanged();
    void dayChanged();
    void todayChanged();
    void noteChanged();
    void blankChanged();

private:
    struct Row {
        RowKind kind;
        planner::Uuid id;
        QString title;
        qint64 minutes = 0;
        planner::FocusStatus status = planner::FocusStatus::finished;

        bool operator==(const Row&) const = default;
    };
    using Rows = std::vector<Row>;

    void refresh();
    void followToday();
    void refreshNote();
    bool isStop(int row) const;
    Rows wantedRows() const;
    void replaceRows(const Rows& wanted);
    static bool samePlace(const Row& left, const Row& right);

    QPointer<AppModel> model_;
    bool active_ = false;
    QDate day_;
    QDate today_;
    int firstWeekday_ = 0;
    Rows rows_;
    QString note_;
    bool blank_ = false;
    /// What the rows and the note were taken from.
    std::optional<planner::insights::Day> span_;
    std::vector<planner::insights::SessionOfDay> sessionsOfDay_;
    planner::RecordList<planner::PlannerTask> tasks_;
    planner::RecordList<planner::FocusSession> sessions_;
};

/// A text in parts of at most 2,000 characters, each of whole lines; what stood between two parts, the
/// line's end, is left out. A longer line is cut at a space, or anywhere between characters where it has
/// none. Pure.
QStringList partsOf(const QString& text);

} // namespace orvane
