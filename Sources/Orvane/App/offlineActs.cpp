#include "App/offlineActs.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMouseEvent>

namespace orvane::offline {

namespace {

void pointer(Stage& stage, QEvent::Type kind, QPointF at, Qt::MouseButton button = Qt::NoButton,
             Qt::MouseButtons held = Qt::NoButton) {
    QMouseEvent event(kind, at, stage.view.mapToGlobal(at), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&stage.view, &event);
    QCoreApplication::processEvents();
}

} // namespace

void key(Stage& stage, int code, Qt::KeyboardModifiers modifiers, const QString& text) {
    QKeyEvent press(QEvent::KeyPress, code, modifiers, text);
    QCoreApplication::sendEvent(&stage.view, &press);
    QKeyEvent release(QEvent::KeyRelease, code, modifiers, text);
    QCoreApplication::sendEvent(&stage.view, &release);
}

void type(Stage& stage, const QString& text) {
    for (const QChar letter : text) key(stage, 0, Qt::NoModifier, letter);
}

void wait(int milliseconds) {
    QEventLoop loop;
    QDeadlineTimer deadline(milliseconds);
    while (!deadline.hasExpired()) loop.processEvents(QEventLoop::AllEvents, 5);
}

QPointF rowPoint(Stage& stage, int row, double x) {
    auto* list = stage.find("taskRows");
    QQuickItem* item = nullptr;
    QMetaObject::invokeMethod(list, "itemAtIndex", Q_RETURN_ARG(QQuickItem*, item), Q_ARG(int, row));
    if (!item) qFatal("There is no row %d.", row);
    return item->mapToScene({x < 0 ? item->width() + x : x, 20});
}

void hoverRow(Stage& stage, int row, double x) {
    pointer(stage, QEvent::MouseMove, rowPoint(stage, row, x));
    wait(200);
}

void click(Stage& stage, QPointF at, int times) {
    pointer(stage, QEvent::MouseMove, at);
    for (int i = 0; i < times; ++i) {
        pointer(stage, QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
        if (i > 0) pointer(stage, QEvent::MouseButtonDblClick, at, Qt::LeftButton, Qt::LeftButton);
        pointer(stage, QEvent::MouseButtonRelease, at, Qt::LeftButton);
    }
    wait(200);
}

void showCompleted(Stage& stage) {
    const auto* tabs = stage.find("taskStatus");
    click(stage, tabs->mapToScene({tabs->width() * 0.75, 18}));
}

void dragRow(Stage& stage) {
    pointer(stage, QEvent::MouseButtonPress, rowPoint(stage, 5, 100), Qt::LeftButton, Qt::LeftButton);
    const QPointF to = rowPoint(stage, 3, 106) + QPointF(0, -12);
    for (double y = rowPoint(stage, 5, 100).y(); y > to.y(); y -= 10)
        pointer(stage, QEvent::MouseMove, {to.x(), y}, Qt::NoButton, Qt::LeftButton);
    pointer(stage, QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton);
}

} // namespace orvane::offline
