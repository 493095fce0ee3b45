#pragma once

#include "Model/AppModel.h"

#include <PlannerCore/Insights.h>

#include <QObject>
#include <QPointer>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

#include <cstdint>

namespace orvane {

/// The last seven days in numbers, for a page. Follows the planner and the date while `active`; what it
/// missed meanwhile it takes in when it becomes so. Looks at the planner only when tasks, sessions or
/// today are others than before, so that a note's keystroke and a running session's seconds cost
/// nothing. Main thread.
class InsightsModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(orvane::AppModel* model READ model WRITE setModel NOTIFY modelChanged REQUIRED)
    /// Whether anybody sees it.
    Q_PROPERTY(bool active READ active WRITE setActive NOTIFY activeChanged)
    /// Oldest first, today last, each with `name` ("Thu"), `fullName` ("Thursday, 20 November 2025", as the
    /// locale writes it), `minutes` (number), `value` (whole minutes as text, "<1" for less than one but
    /// some) and `today` (bool).
    Q_PROPERTY(QVariantList days READ days NOTIFY weekChanged)
    Q_PROPERTY(int tasksCompleted READ tasksCompleted NOTIFY weekChanged)
    Q_PROPERTY(qint64 focusMinutes READ focusMinutes NOTIFY weekChanged)
    Q_PROPERTY(int daysWithFocus READ daysWithFocus NOTIFY weekChanged)
    /// Minutes from one line of the chart to the next: four of them hold the longest day.
    Q_PROPERTY(double axisStep READ axisStep NOTIFY weekChanged)

public:
    using QObject::QObject;

    AppModel* model() const { return model_; }
    /// Set once.
    void setModel(AppModel* model);
    bool active() const { return active_; }
    void setActive(bool active);

    QVariantList days() const;
    int tasksCompleted() const { return int(week_.tasksCompleted); }
    qint64 focusMinutes() const { return week_.focusMinutes; }
    int daysWithFocus() const { return int(week_.daysWithFocus); }
    double axisStep() const;

signals:
    void modelChanged();
    void activeChanged();
    void weekChanged();

private:
    void refresh();

    QPointer<AppModel> model_;
    bool active_ = false;
    planner::insights::Week week_;
    /// What the week was taken from.
    planner::RecordList<planner::PlannerTask> tasks_;
    planner::RecordList<planner::FocusSession> sessions_;
    std::optional<planner::insights::Day> today_;
};

/// The smallest of 1, 2, 5, 10, 20, 25, 50, 100, 200, 250, 500 … minutes of which four hold
/// `longest`; 25 for a chart with nothing in it. Pure.
double chartStep(double longest);

} // namespace orvane
