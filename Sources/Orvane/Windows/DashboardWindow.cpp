#include "Windows/DashboardWindow.h"

#include "Model/AppModel.h"
#include "Model/NavigationModel.h"
#include "Platform/Screens.h"
#include "Platform/SystemEvents.h"
#include "Platform/UserDefaults.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QQuickItem>
#include <QScreen>

#include <algorithm>
#include <array>
#include <utility>

namespace orvane {
namespace {

constexpr QSize preferredSize{1320, 730};
constexpr QSize leastSize{860, 580};
const QString frameKey = QStringLiteral("OrvaneDashboard");

} // namespace

QRect pulledInto(const QRect& frame, const QRect& room) {
    const QSize size = frame.size().boundedTo(room.size());
    const int x = std::clamp(frame.x(), room.left(), room.left() + room.width() - size.width());
    const int y = std::clamp(frame.y(), room.top(), room.top() + room.height() - size.height());
    return {QPoint(x, y), size};
}

QRect firstDashboardFrame(const QRect& room) {
    constexpr int margins = 40;
    QRect frame(QPoint(),
                preferredSize.boundedTo(room.size() - QSize(margins, margins)).expandedTo(leastSize));
    frame.moveCenter(room.center());
    return frame;
}

DashboardWindow::DashboardWindow(Parts parts) : parts_(std::move(parts)) {}

DashboardWindow::~DashboardWindow() {
    if (window_ && window_->isVisible()) remember();
}

void DashboardWindow::make(std::optional<planner::Rect> visible) {
    window_ = std::make_unique<QQuickView>(&parts_.engine, nullptr);
    window_->setTitle(QStringLiteral("Orvane"));
    window_->setResizeMode(QQuickView::SizeRootObjectToView);
    window_->setMinimumSize(leastSize);
    window_->setInitialProperties({{QStringLiteral("model"), QVariant::fromValue(&parts_.model)},
                                   {QStringLiteral("navigation"), QVariant::fromValue(&parts_.navigation)},
                                   {QStringLiteral("reduceMotion"), parts_.systemEvents.reduceMotion()}});
    window_->setSource(QUrl(QStringLiteral("qrc:/qt/qml/Orvane/DashboardView.qml")));
    if (!window_->rootObject()) qFatal("The Dashboard's view cannot be loaded.");

    const auto room = visible ? downwards(*visible) : QRect(QPoint(), preferredSize);
    const auto saved = remembered();
    if (saved.isValid()) {
        // The display it stood on may be gone.
        const auto* screen = QGuiApplication::screenAt(saved.center());
        window_->setGeometry(pulledInto(saved, screen ? screen->availableGeometry() : room));
    } else {
        window_->setGeometry(firstDashboardFrame(room));
    }
    follow();
    if (parts_.made) parts_.made(*window_);
}

void DashboardWindow::follow() {
    window_->installEventFilter(this);
    connect(window_.get(), &QWindow::activeChanged, this, &DashboardSurface::stateChanged);
    connect(window_.get(), &QWindow::visibilityChanged, this, &DashboardSurface::stateChanged);
    const auto* view = window_->rootObject();
    connect(view, SIGNAL(moved(double, double)), this, SLOT(moveBy(double, double)));
    connect(view, SIGNAL(maximizeRequested()), this, SLOT(toggleMaximized()));
    connect(view, SIGNAL(closeRequested()), this, SLOT(putAway()));
    // Where nobody decorates, nobody lists minimised windows: the strip brings it back.
    connect(view, SIGNAL(minimizeRequested()), this, SLOT(putAway()));
    connect(&parts_.systemEvents, &SystemEvents::reduceMotionChanged, window_.get(), [this] {
        window_->rootObject()->setProperty("reduceMotion", parts_.systemEvents.reduceMotion());
    });
}

void DashboardWindow::show(std::optional<planner::Rect> visible) {
    if (!window_) make(visible);
    if (window_->windowStates() & Qt::WindowMinimized) window_->showNormal();
    window_->show();
    window_->raise();
    window_->requestActivate();
}

void DashboardWindow::hide() {
    if (!window_ || !window_->isVisible()) return;
    remember();
    window_->hide();
}

bool DashboardWindow::visible() const {
    return window_ && window_->isVisible() && !(window_->windowStates() & Qt::WindowMinimized);
}

bool DashboardWindow::isKey() const {
    return window_ && window_->isActive() && visible();
}

bool DashboardWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched != window_.get()) return false;
    if (event->type() == QEvent::Expose || event->type() == QEvent::Move) tellDecoration();
    if (event->type() != QEvent::Close) return false;
    // The toolkit would take the window down; the user only puts it away.
    event->ignore();
    hide();
    return true;
}

void DashboardWindow::tellDecoration() {
    // Before it is on screen nobody has had the chance to decorate it.
    if (!window_->isExposed()) return;
    const bool bare = window_->frameMargins().isNull() && window_->windowStates() == Qt::WindowNoState;
    window_->rootObject()->setProperty("undecorated", bare);
}

void DashboardWindow::moveBy(double dx, double dy) {
    restingFrame_ = {};
    window_->setPosition(window_->position() + QPointF(dx, dy).toPoint());
}

void DashboardWindow::toggleMaximized() {
    const auto back = std::exchange(restingFrame_, restingFrame_.isNull() ? window_->geometry() : QRect());
    window_->setGeometry(back.isNull() ? window_->screen()->availableGeometry() : back);
}

QRect DashboardWindow::remembered() const {
    const auto text = parts_.defaults.data(frameKey).value_or(QByteArray());
    const auto parts = text.split(' ');
    if (parts.size() != 4) return {};
    std::array<int, 4> values{};
    for (qsizetype index = 0; index < 4; ++index) {
        bool number = false;
        values[std::size_t(index)] = parts[index].toInt(&number);
        if (!number) return {};
    }
    return QRect(values[0], values[1], values[2], values[3]);
}

void DashboardWindow::remember() {
    const bool resting = window_->windowStates() == Qt::WindowNoState;
    if (!resting) return;
    const auto frame = restingFrame_.isNull() ? window_->geometry() : restingFrame_;
    const auto text =
        QStringLiteral("%1 %2 %3 %4").arg(frame.x()).arg(frame.y()).arg(frame.width()).arg(frame.height());
    parts_.defaults.setData(frameKey, text.toUtf8());
}

} // namespace orvane
