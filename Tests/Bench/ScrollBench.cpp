// Prints how long the frames of a scrolling task list take in the software renderer: the time that the main
// thread needs from the request for a frame until it is handed to the window.

#include "Model/PanelState.h"
#include "Orvane/ModelFixture.h"
#include "Views/ViewEngine.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

using namespace orvane;
using namespace orvane::test;

namespace {

constexpr unsigned tasks = 10'000;
constexpr int frames = 600;
/// A quick flick of a finger: several rows a frame.
constexpr double pixelsPerFrame = 137;

double milliseconds() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

/// Notes when the window begins a frame and when it has handed it over.
class Frames : public QObject {
public:
    explicit Frames(QQuickView& view) {
        view.installEventFilter(this);
        connect(&view, &QQuickWindow::frameSwapped, this, [this] {
            if (begun_ <= 0) return;
            spent += milliseconds() - begun_;
            begun_ = 0;
            ++count;
        });
    }

    double spent = 0;
    int count = 0;

private:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::UpdateRequest) begun_ = milliseconds();
        return false;
    }

    double begun_ = 0;
};

QQuickItem* itemNamed(QQuickItem* from, const QString& name) {
    if (from->objectName() == name) return from;
    for (auto* child : from->childItems())
        if (auto* found = itemNamed(child, name)) return found;
    return nullptr;
}

/// The scrolling part of the list named "taskList".
QQuickItem* flickable(QQuickItem* from) {
    if (from->inherits("QQuickFlickable")) return from;
    for (auto* child : from->childItems())
        if (auto* found = flickable(child)) return found;
    return nullptr;
}

} // namespace

int main(int argc, char* argv[]) {
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application(argc, argv);
    ModelFixture house;
    planner::PlannerSnapshot planner;
    for (unsigned i = 0; i < tasks; ++i) {
        auto task = plainTask(i);
        if (i % 3 == 0) task.title = "A task whose title needs a second line in the list, " + task.title;
        planner.tasks.push_back(std::move(task));
    }
    house.store(planner);
    house.load();
    PanelState state;
    QQuickView view;
    prepareEngine(*view.engine());
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.resize(1148, 580);
    view.setInitialProperties(
        {{"model", QVariant::fromValue(house.model.get())}, {"state", QVariant::fromValue(&state)}});
    view.setSource(QUrl("qrc:/qt/qml/Orvane/NotchRootView.qml"));
    state.setExpanded(true);
    state.setTarget(QRectF(12, 0, 1124, 580), false);
    view.show();
    Frames seen(view);
    auto* card = itemNamed(view.rootObject(), QStringLiteral("taskList"));
    auto* list = card ? flickable(card) : nullptr;
    if (!list) qFatal("There is no list of tasks.");
    std::vector<double> times;
    double position = 0;
    for (int frame = 0; frame < frames; ++frame) {
        const int before = seen.count;
        seen.spent = 0;
        const double begin = milliseconds();
        position += pixelsPerFrame;
        list->setProperty("contentY", position);
        const double moved = milliseconds() - begin;
        view.update();
        while (seen.count == before) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        times.push_back(moved + seen.spent);
    }
    std::sort(times.begin(), times.end());
    const auto at = [&](double part) { return times[std::size_t(part * (frames - 1))]; };
    std::printf("\nscrolling %u tasks at %gx, ms a frame: median %.2f, p99 %.2f, worst %.2f (%d frames)\n",
                tasks, view.devicePixelRatio(), at(0.5), at(0.99), times.back(), frames);
}
