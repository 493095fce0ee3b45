#include "Windows/WindowCoordinator.h"

#include "Integrations/CalendarService.h"
#include "Model/AppModel.h"
#include "Model/PanelState.h"
#include "Platform/Platform.h"
#include "Platform/SystemEvents.h"
#include "Windows/DashboardSurface.h"
#include "Windows/PanelPlacement.h"
#include "Windows/PanelSurface.h"

#include <algorithm>

namespace orvane {
namespace {

using Page = NavigationModel::DashboardPage;

/// Seconds that the pointer rests on the strip before it opens, and is away before the panel closes.
constexpr double hoverDelay = 0.18;
constexpr double closeDelay = 0.4;

} // namespace

WindowCoordinator::WindowCoordinator(const Parts& parts, QObject* parent)
    : QObject(parent), model_(parts.model), platform_(parts.platform), state_(parts.state),
      navigation_(parts.navigation), panel_(parts.panel), dashboard_(parts.dashboard),
      hotKey_(parts.platform.hotKeys, [this] { expand(true); }) {
    installCallbacks();
    registerHotKey();
    followDesktop();
    connect(&panel_, &PanelSurface::outsidePressed, this, &WindowCoordinator::collapse);
    connect(&dashboard_, &DashboardSurface::stateChanged, this, &WindowCoordinator::dashboardChanged);
    // Assistive programs change the page of a window that is not in front.
    connect(&navigation_, &NavigationModel::pageChanged, this, &WindowCoordinator::dashboardChanged);
    position(false);
}

WindowCoordinator::~WindowCoordinator() {
    stop();
}

void WindowCoordinator::installCallbacks() {
    model_.openDashboard = [this] { showDashboard(Page::today); };
    model_.openSettings = [this] { showDashboard(Page::settings); };
    model_.dismissPanel = [this] { collapse(); };
    model_.suppressPanel = [this] { suppress(); };
    model_.restorePanel = [this] { restore(); };
}

void WindowCoordinator::registerHotKey() {
    if (hotKey_.registerKey() != 0)
        model_.setNotice(tr("Option–N is already in use. Open Orvane from the menu bar."));
}

void WindowCoordinator::followDesktop() {
    const auto jump = [this] { position(false); };
    connect(&platform_.screens, &Screens::changed, this, jump);
    connect(&platform_.systemEvents, &SystemEvents::activeSpaceChanged, this, jump);
    connect(model_.settings(), &SettingsModel::preferencesChanged, this, jump);
    const auto follow = [this] { state_.setReduceMotion(platform_.systemEvents.reduceMotion()); };
    connect(&platform_.systemEvents, &SystemEvents::reduceMotionChanged, this, follow);
    follow();
}

void WindowCoordinator::entered() {
    closeWork_.reset();
    if (!model_.settings()->preferences().hoverEnabled || state_.expanded() || suppressed_) return;
    hoverWork_ = platform_.clock.after(hoverDelay, [this] { expand(false); });
}

void WindowCoordinator::exited() {
    hoverWork_.reset();
    if (!state_.expanded() || openedExplicitly_ || panel_.hasKeyboard() || panel_.buttonHeld()) return;
    closeWork_ = platform_.clock.after(closeDelay, [this] { collapse(); });
}

void WindowCoordinator::expand(bool keyboard) {
    if (stopped_ || presentingDialog_) return;
    if (keyboard && suppressed_) {
        dashboard_.hide();
        suppressed_ = false;
    }
    if (!model_.ready()) return showDashboard(Page::today);
    if (suppressed_) return;
    hoverWork_.reset();
    closeWork_.reset();
    openedExplicitly_ = keyboard;
    state_.setExpanded(true);
    position(true);
    panel_.watchOutside(true);
    model_.calendar()->refresh();
    if (!keyboard) return;
    panel_.takeKeyboard();
    focusWork_ = platform_.clock.after(0, [this] { model_.requestFocus(); });
}

void WindowCoordinator::collapse() {
    hoverWork_.reset();
    closeWork_.reset();
    focusWork_.reset();
    openedExplicitly_ = false;
    state_.setExpanded(false);
    panel_.watchOutside(false);
    if (panel_.hasKeyboard()) panel_.giveKeyboardBack();
    position(true);
}

void WindowCoordinator::showDashboard(Page page) {
    if (stopped_) return;
    navigation_.setPage(page);
    collapse();
    suppressed_ = true;
    const auto chosen = screen();
    dashboard_.show(chosen ? std::optional(chosen->visible) : std::nullopt);
}

void WindowCoordinator::dashboardChanged() {
    suppressed_ = dashboard_.isKey() || (dashboard_.visible() && navigation_.page() == Page::settings);
    position(false);
}

void WindowCoordinator::suppress() {
    presentingDialog_ = true;
    collapse();
    panel_.hide();
}

void WindowCoordinator::restore() {
    presentingDialog_ = false;
    suppressed_ = dashboard_.isKey();
    position(false);
}

std::optional<Screen> WindowCoordinator::screen() const {
    return panelScreen(platform_.screens.list(), model_.settings()->preferences().displayID);
}

void WindowCoordinator::position(bool animated) {
    if (stopped_) return;
    const auto chosen = screen();
    if (!chosen) return panel_.hide();
    const auto cards = std::max<std::int64_t>(model_.settings()->visibleCards().size(), 1);
    const auto place =
        panelPlacement(*chosen, state_.expanded(), cards, model_.settings()->preferences().cardWidth);
    state_.setNotch(place.topInset, place.notchWidth);
    state_.setTarget(place.target, animated && !platform_.systemEvents.reduceMotion());
    if (!presentingDialog_) panel_.show(place.window);
}

void WindowCoordinator::stop() {
    if (stopped_) return;
    stopped_ = true;
    hoverWork_.reset();
    closeWork_.reset();
    focusWork_.reset();
    panel_.watchOutside(false);
    hotKey_.unregisterKey();
    disconnect(&platform_.screens, nullptr, this, nullptr);
    disconnect(&platform_.systemEvents, nullptr, this, nullptr);
    disconnect(model_.settings(), nullptr, this, nullptr);
    disconnect(&dashboard_, nullptr, this, nullptr);
    disconnect(&navigation_, nullptr, this, nullptr);
    for (auto* callback : {&model_.openDashboard, &model_.openSettings, &model_.dismissPanel,
                           &model_.suppressPanel, &model_.restorePanel})
        *callback = nullptr;
    panel_.hide();
}

} // namespace orvane
