#include "Platform/Linux/X11PanelSurface.h"

#include "Model/PanelState.h"
#include "Platform/Linux/X11.h"
#include "Platform/Screens.h"
#include "Windows/PanelMask.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QQuickItem>
#include <QQuickWindow>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <utility>
#include <xcb/shape.h>

namespace orvane {
namespace {

using namespace std::chrono_literals;

/// Between two attempts to stay on top: the root's list of windows changes at each of them.
constexpr auto raiseInterval = 300ms;
/// What a pressed window needs to take the keyboard by itself, where it wants it.
constexpr auto focusGrace = 150ms;

xcb_window_t focusedWindow() {
    const auto cookie = xcb_get_input_focus(x11::connection());
    const std::unique_ptr<xcb_get_input_focus_reply_t, decltype(&std::free)> reply(
        xcb_get_input_focus_reply(x11::connection(), cookie, nullptr), &std::free);
    return reply ? reply->focus : xcb_window_t(XCB_NONE);
}

/// The innermost item under `point`, in `item`'s coordinates, that takes typed text.
QQuickItem* textItemAt(QQuickItem* item, QPointF point) {
    if (!item->isVisible() || !item->isEnabled()) return nullptr;
    if (item->clip() && !item->contains(point)) return nullptr;
    auto children = item->childItems();
    std::stable_sort(children.begin(), children.end(),
                     [](const QQuickItem* left, const QQuickItem* right) { return left->z() > right->z(); });
    for (auto* child : std::as_const(children))
        if (auto* found = textItemAt(child, item->mapToItem(child, point))) return found;
    const bool takesText = item->flags() & QQuickItem::ItemAcceptsInputMethod;
    return takesText && item->contains(point) ? item : nullptr;
}

/// The item that will have the focus once the window has the keyboard.
QQuickItem* focusInWaiting(const QQuickWindow& window) {
    auto* item = window.contentItem();
    while (item->isFocusScope() && item->scopedFocusItem()) item = item->scopedFocusItem();
    return item;
}

bool composesText() {
    const auto* object = QGuiApplication::focusObject();
    return object && object->property("inputMethodComposing").toBool();
}

} // namespace

X11PanelSurface::X11PanelSurface(QQuickWindow& window, const PanelState& state)
    : window_(window), state_(state), presses_([this](int x, int y) { outsidePress(x, y); }) {
    create();
    raiseTimer_.setSingleShot(true);
    connect(&raiseTimer_, &QTimer::timeout, this, &X11PanelSurface::raise);
    focusTimer_.setSingleShot(true);
    connect(&focusTimer_, &QTimer::timeout, this, &X11PanelSurface::restoreFocus);
    connect(&window_, &QQuickWindow::afterAnimating, this, &X11PanelSurface::updateMask);
    window_.installEventFilter(this);
    qApp->installNativeEventFilter(this);
}

X11PanelSurface::~X11PanelSurface() = default;

void X11PanelSurface::create() {
    clientList_ = x11::atom("_NET_CLIENT_LIST");
    stacking_ = x11::atom("_NET_CLIENT_LIST_STACKING");
    manager_ = x11::atom("MANAGER");
    compositorSelection_ = x11::atom("_NET_WM_CM_S0");
    readCompositor();

    auto format = window_.requestedFormat();
    format.setAlphaBufferSize(8);
    window_.setFormat(format);
    window_.setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    // The toolkit rewrites the window's type at each later change of its flags: this is where it looks.
    constexpr int dock = 4;
    window_.setProperty("_q_xcb_wm_window_type", dock);
    window_.setProperty("_q_showWithoutActivating", true);
    window_.create();
}

void X11PanelSurface::announceStates() {
    const auto id = xcb_window_t(window_.winId());
    std::vector<xcb_atom_t> states{x11::atom("_NET_WM_STATE_STICKY"), x11::atom("_NET_WM_STATE_SKIP_TASKBAR"),
                                   x11::atom("_NET_WM_STATE_SKIP_PAGER")};
    above_ = state_.expanded();
    if (above_) states.push_back(x11::atom("_NET_WM_STATE_ABOVE"));
    const std::uint32_t everyDesktop = 0xffffffff;
    auto* connection = x11::connection();
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, id, x11::atom("_NET_WM_STATE"), XCB_ATOM_ATOM, 32,
                        std::uint32_t(states.size()), states.data());
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, id, x11::atom("_NET_WM_DESKTOP"),
                        XCB_ATOM_CARDINAL, 32, 1, &everyDesktop);
}

void X11PanelSurface::setAbove(bool above) {
    if (std::exchange(above_, above) == above) return;
    // A mapped window asks the window manager, as a pager would.
    constexpr std::uint32_t application = 1;
    xcb_client_message_event_t request{};
    request.response_type = XCB_CLIENT_MESSAGE;
    request.format = 32;
    request.window = xcb_window_t(window_.winId());
    request.type = x11::atom("_NET_WM_STATE");
    request.data.data32[0] = above ? 1 : 0;
    request.data.data32[1] = x11::atom("_NET_WM_STATE_ABOVE");
    request.data.data32[3] = application;
    xcb_send_event(x11::connection(), 0, x11::root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&request));
}

void X11PanelSurface::show(const planner::Rect& frame) {
    const auto geometry = downwards(frame);
    if (window_.geometry() != geometry) window_.setGeometry(geometry);
    if (!window_.isVisible()) {
        // A window manager reads these when the window is mapped and removes them when it is not.
        announceStates();
        readCompositor();
        updateMask();
        window_.show();
    } else {
        setAbove(state_.expanded());
    }
    raise();
}

void X11PanelSurface::hide() {
    window_.hide();
}

bool X11PanelSurface::hasKeyboard() const {
    return focusBefore_ != 0;
}

void X11PanelSurface::takeKeyboard() {
    focusTimer_.stop();
    if (focusBefore_ == 0) {
        rememberFocus();
        window_.setFlag(Qt::WindowDoesNotAcceptFocus, false);
    }
    window_.requestActivate();
}

void X11PanelSurface::rememberFocus() {
    const auto focused = focusedWindow();
    // The panel may still have it from a moment ago; whoever had it then is not known any more.
    focusBefore_ =
        focused == xcb_window_t(window_.winId()) ? xcb_window_t(XCB_INPUT_FOCUS_POINTER_ROOT) : focused;
    if (focusBefore_ == XCB_NONE) focusBefore_ = XCB_INPUT_FOCUS_POINTER_ROOT;
}

void X11PanelSurface::giveKeyboardBack() {
    if (focusBefore_ == 0) return;
    if (pressedOutside_)
        focusTimer_.start(focusGrace);
    else
        restoreFocus();
}

void X11PanelSurface::restoreFocus() {
    const auto before = std::exchange(focusBefore_, 0);
    window_.setFlag(Qt::WindowDoesNotAcceptFocus, true);
    if (before == 0 || focusedWindow() != xcb_window_t(window_.winId())) return;
    xcb_set_input_focus(x11::connection(), XCB_INPUT_FOCUS_POINTER_ROOT, before, XCB_CURRENT_TIME);
    xcb_flush(x11::connection());
}

bool X11PanelSurface::buttonHeld() const {
    const auto pointer = x11::pointer();
    constexpr auto buttons = XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3;
    return pointer && (pointer->held & buttons) != 0;
}

void X11PanelSurface::watchOutside(bool watch) {
    presses_.watch(watch);
}

void X11PanelSurface::outsidePress(int x, int y) {
    const double scale = window_.devicePixelRatio();
    const QPointF point(x / scale - window_.x(), y / scale - window_.y());
    if (state_.body().contains(point) || composesText()) return;
    pressedOutside_ = true;
    emit outsidePressed();
    pressedOutside_ = false;
}

void X11PanelSurface::updateMask() {
    const auto body = state_.body().toRect();
    if (body.isEmpty()) return;
    constexpr int stripHeight = 32;
    const double grown = std::clamp((body.height() - stripHeight) / 200.0, 0.0, 1.0);
    auto shape = panelShape(body, stripCorner + qRound((panelCorner - stripCorner) * grown));
    if (composited_) shape = shape.boundingRect();
    const bool shaped = shape != shape_;
    if (shaped) window_.setMask(shape_ = shape);
    if (!shaped && input_ == QRegion(body)) return;
    input_ = body;
    // The shoulders are drawn, but what is below them can be pressed.
    const double scale = window_.devicePixelRatio();
    const xcb_rectangle_t pixels{std::int16_t(body.x() * scale), std::int16_t(body.y() * scale),
                                 std::uint16_t(body.width() * scale), std::uint16_t(body.height() * scale)};
    xcb_shape_rectangles(x11::connection(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED,
                         xcb_window_t(window_.winId()), 0, 0, 1, &pixels);
    xcb_flush(x11::connection());
}

void X11PanelSurface::readCompositor() {
    const auto cookie = xcb_get_selection_owner(x11::connection(), compositorSelection_);
    const std::unique_ptr<xcb_get_selection_owner_reply_t, decltype(&std::free)> reply(
        xcb_get_selection_owner_reply(x11::connection(), cookie, nullptr), &std::free);
    composited_ = reply && reply->owner != XCB_NONE;
}

bool X11PanelSurface::onTop() const {
    const auto windows = x11::property(x11::root(), stacking_, XCB_ATOM_WINDOW);
    return windows.empty() || windows.back() == std::uint32_t(window_.winId());
}

void X11PanelSurface::raiseSoon() {
    if (raiseTimer_.isActive() || !window_.isVisible()) return;
    const auto passed =
        lastRaise_.isValid() ? std::chrono::milliseconds(lastRaise_.elapsed()) : raiseInterval;
    raiseTimer_.start(std::max(raiseInterval - passed, 0ms));
}

void X11PanelSurface::raise() {
    lastRaise_.start();
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(x11::connection(), xcb_window_t(window_.winId()), XCB_CONFIG_WINDOW_STACK_MODE,
                         &above);
    xcb_flush(x11::connection());
}

bool X11PanelSurface::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
    if (type != "xcb_generic_event_t") return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    const auto kind = event->response_type & ~0x80;
    if (kind == XCB_PROPERTY_NOTIFY) {
        const auto* change = reinterpret_cast<const xcb_property_notify_event_t*>(event);
        if (change->window == x11::root() && change->atom == clientList_ && !onTop()) raiseSoon();
    } else if (kind == XCB_CLIENT_MESSAGE) {
        const auto* news = reinterpret_cast<const xcb_client_message_event_t*>(event);
        if (news->type == manager_ && news->data.data32[1] == compositorSelection_) {
            readCompositor();
            window_.update();
        }
    }
    return false;
}

bool X11PanelSurface::eventFilter(QObject* watched, QEvent* event) {
    if (watched != &window_ || hasKeyboard() || !state_.expanded()) return false;
    if (event->type() == QEvent::MouseButtonPress) {
        focusAtPress_ = focusInWaiting(window_);
        const auto* press = static_cast<const QMouseEvent*>(event);
        auto* content = window_.contentItem();
        // The toolkit gives the keyboard to no window that stands among the docks.
        if (textItemAt(content, content->mapFromScene(press->scenePosition()))) takeKeyboard();
    } else if (event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::MouseButtonDblClick) {
        // A double click or a menu may have opened a field elsewhere, which the view does after this.
        QTimer::singleShot(0, this, [this] {
            auto* item = focusInWaiting(window_);
            const bool takesText = item->flags() & QQuickItem::ItemAcceptsInputMethod;
            if (takesText && item != focusAtPress_ && state_.expanded()) takeKeyboard();
        });
    }
    return false;
}

} // namespace orvane
