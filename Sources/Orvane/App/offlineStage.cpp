#include "App/offlineStage.h"

#include "Views/ViewEngine.h"

#include <PlannerCore/PanelGeometry.h>
#include <PlannerCore/PlannerRepository.h>

#include <QQmlEngine>

#include <utility>

namespace orvane::offline {

namespace {

using planner::PlannerTask;

QQuickItem* itemNamed(QQuickItem* from, QLatin1String name) {
    if (from->objectName() == name) return from;
    for (auto* child : from->childItems())
        if (auto* found = itemNamed(child, name)) return found;
    return nullptr;
}

void addTask(planner::PlannerSnapshot& planner, const char* title, double reminderIn = 0, bool done = false) {
    const planner::Instant now = test::FakeClock().now();
    const auto order = static_cast<std::int64_t>(planner.tasks.size());
    PlannerTask task(planner::Uuid::random(), title, now, order);
    if (reminderIn != 0) task.reminderAt = now + reminderIn;
    if (done) task.completedAt = now;
    planner.tasks.push_back(std::move(task));
}

void placePanel(Stage& stage, bool expanded) {
    const auto cards = static_cast<std::int64_t>(stage.model->settings()->visibleCards().size());
    const double width = stage.model->settings()->cardWidth();
    const auto rectangle = [&](bool open) {
        return planner::panelGeometry::frame(
            {{0, 0, 1920, 1080}, {0, 0, 1920, 1080}, stage.inset, stage.notch, open, cards, width});
    };
    const auto panel = rectangle(true);
    const QSizeF whole = stage.size.isValid() ? QSizeF(stage.size) : QSizeF(panel.width, panel.height);
    const auto shown = rectangle(expanded);
    const QSizeF body = expanded ? whole : QSizeF(shown.width, shown.height);
    stage.view.resize(QSize(qRound(whole.width()) + 24, qRound(whole.height())));
    stage.state.setNotch(stage.inset, stage.notch);
    stage.state.setExpanded(expanded);
    stage.state.setTarget(QRectF((stage.view.width() - body.width()) / 2, 0, body.width(), body.height()),
                          false);
}

/// A whole loop of events and answers after each change, as on a desktop.
void keepSettled(Stage& stage) {
    QObject::connect(
        stage.model.get(), &AppModel::saveStateChanged, &stage.view, [&stage] { stage.desk.settle(); },
        Qt::QueuedConnection);
}

void showPanel(Stage& stage, bool expanded) {
    placePanel(stage, false);
    stage.view.setColor(QColor(0xB9, 0xC3, 0xB1));
    stage.view.setInitialProperties(
        {{"model", QVariant::fromValue(stage.model.get())}, {"state", QVariant::fromValue(&stage.state)}});
    stage.view.setSource(QUrl("qrc:/qt/qml/Orvane/NotchRootView.qml"));
    placePanel(stage, expanded);
    stage.model->dismissPanel = [&stage] { placePanel(stage, false); };
}

void showDashboard(Stage& stage) {
    stage.view.resize(stage.size.isValid() ? stage.size : QSize(1320, 730));
    stage.view.setInitialProperties({{"model", QVariant::fromValue(stage.model.get())},
                                     {"navigation", QVariant::fromValue(&stage.navigation)}});
    stage.view.setSource(QUrl("qrc:/qt/qml/Orvane/DashboardView.qml"));
}

void showAlert(Stage& stage) {
    stage.view.setResizeMode(QQuickView::SizeViewToRootObject);
    stage.view.setColor(Qt::transparent);
    stage.view.setInitialProperties(
        {{"message", "Some changes haven’t been saved."},
         {"informative", "Keep Orvane open to retry or export a backup. Quitting now loses changes that "
                         "are only in memory."},
         {"buttons", QStringList{"Keep Open", "Quit Without Saving"}},
         {"cancelIndex", 0},
         {"dark", stage.model->settings()->dark()}});
    stage.view.setSource(QUrl("qrc:/qt/qml/Orvane/AlertView.qml"));
}

} // namespace

QQuickItem* Stage::find(const char* name) const {
    auto* item = itemNamed(view.rootObject(), QLatin1String(name));
    if (!item) qFatal("The view has no item \"%s\".", name);
    return item;
}

void prepareModel(Stage& stage, const planner::PlannerSnapshot& planner) {
    stage.desk.dataFolder.folder = stage.folder.path().toStdString();
    planner::PlannerRepository(stage.desk.dataFolder.folder).save(planner);
    stage.model = std::make_unique<AppModel>(stage.desk.platform);
}

void makeWindow(Stage& stage, Window window, bool expanded) {
    prepareEngine(*stage.view.engine());
    stage.view.setResizeMode(QQuickView::SizeRootObjectToView);
    keepSettled(stage);
    if (window == Window::panel) showPanel(stage, expanded);
    if (window == Window::dashboard) showDashboard(stage);
    if (window == Window::alert) showAlert(stage);
    if (stage.view.status() != QQuickView::Ready) qFatal("The view could not be loaded.");
}

planner::PlannerSnapshot emptyPlanner() {
    return {};
}

planner::PlannerSnapshot ordinaryDay() {
    planner::PlannerSnapshot planner;
    addTask(planner, "Send the floor plan to Marta", 3600);
    addTask(planner, "Book the train to Leipzig");
    addTask(planner, "Draft the opening paragraph of the workshop talk");
    addTask(planner, "Water the lemon tree");
    addTask(planner, "Reply to the library", -3600);
    addTask(planner, "Pick up bread and coffee");
    addTask(planner, "Morning pages", 0, true);
    addTask(planner, "Renew the parking permit", 0, true);
    addTask(planner, "Call back Dr. Okafor", 0, true);
    return planner;
}

planner::PlannerSnapshot manyTasks(int count) {
    planner::PlannerSnapshot planner;
    for (int i = 0; i < count; ++i)
        addTask(planner, qPrintable(QStringLiteral("Task %1%2")
                                        .arg(i + 1)
                                        .arg(i % 5 == 0 ? " with a title that needs a second line" : "")));
    return planner;
}

planner::PlannerSnapshot longTitles() {
    planner::PlannerSnapshot planner;
    addTask(planner, qPrintable(QString(1000, QLatin1Char('w'))));
    addTask(planner, qPrintable(QStringLiteral("A thousand characters of words ").repeated(33).left(1000)));
    addTask(planner, "להתקשר לספרייה ולשאול על הספרים שהוזמנו לפני שבוע", 3600);
    addTask(planner, "مراجعة العرض");
    addTask(planner, "👩‍👩‍👧‍👦 Lunch with everyone 🇪🇺");
    return planner;
}

} // namespace orvane::offline
