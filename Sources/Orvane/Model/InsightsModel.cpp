#include "Model/InsightsModel.h"

#include "Platform/Clock.h"

#include <QDate>
#include <QLocale>
#include <QVariantMap>

#include <algorithm>
#include <initializer_list>

namespace orvane {
namespace {

constexpr int stepsInChart = 4;
/// As high as the chart of an ordinary week.
constexpr double stepOfNothing = 25;

QString valueText(double minutes) {
    return minutes > 0 && minutes < 1 ? QStringLiteral("<1") : QString::number(std::int64_t(minutes));
}

} // namespace

double chartStep(double longest) {
    if (!(longest > 0)) return stepOfNothing;
    for (double power = 1;; power *= 10)
        for (const double digit : {1.0, 2.0, 2.5, 5.0}) {
            const double step = digit * power;
            // Lines stand at whole minutes.
            if (step != 2.5 && stepsInChart * step >= longest) return step;
        }
}

void InsightsModel::setModel(AppModel* model) {
    if (model == model_) return;
    model_ = model;
    connect(model, &AppModel::snapshotChanged, this, &InsightsModel::refresh);
    connect(model, &AppModel::todayChanged, this, &InsightsModel::refresh);
    emit modelChanged();
    refresh();
}

void InsightsModel::setActive(bool active) {
    if (active == active_) return;
    active_ = active;
    emit activeChanged();
    refresh();
}

void InsightsModel::refresh() {
    if (!active_ || !model_) return;
    const auto now = model_->clock().now();
    const auto calendar = model_->clock().calendar();
    const auto& planner = model_->snapshot();
    const auto today = planner::insights::dayOf(now, calendar);
    const auto before = week_;
    // Lists that came from one another are compared by their chunks' addresses.
    if (today != today_ || sessions_ != planner.sessions)
        week_ = planner::insights::week(planner, now, calendar);
    else
        planner::insights::recount(week_, tasks_, planner.tasks);
    today_ = today;
    tasks_ = planner.tasks;
    sessions_ = planner.sessions;
    if (week_ != before) emit weekChanged();
}

QVariantList InsightsModel::days() const {
    QVariantList days;
    if (!model_) return days;
    const auto calendar = model_->clock().calendar();
    const QLocale locale;
    for (const auto& [day, seconds] : week_.days) {
        const auto civil = calendar.day(day.start).value_or(planner::CivilDay());
        const QDate date(civil.year, int(civil.month), int(civil.day));
        const double minutes = seconds / 60;
        days.append(
            QVariantMap{{QStringLiteral("name"), locale.dayName(date.dayOfWeek(), QLocale::ShortFormat)},
                        {QStringLiteral("fullName"), locale.toString(date, QLocale::LongFormat)},
                        {QStringLiteral("minutes"), minutes},
                        {QStringLiteral("value"), valueText(minutes)},
                        {QStringLiteral("today"), day == week_.days.back().day}});
    }
    return days;
}

double InsightsModel::axisStep() const {
    double longest = 0;
    for (const auto& day : week_.days) longest = std::max(longest, day.seconds / 60);
    return chartStep(longest);
}

} // namespace orvane
