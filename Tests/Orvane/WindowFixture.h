#pragma once

#include "Doubles/FakeDashboardSurface.h"
#include "Doubles/FakePanelSurface.h"
#include "Model/NavigationModel.h"
#include "Model/PanelState.h"
#include "ModelFixture.h"
#include "Windows/WindowCoordinator.h"

#include <memory>

namespace orvane::test {

/// A coordinator between a real model and windows in memory, on one display, ready unless told
/// otherwise.
struct WindowFixture {
    explicit WindowFixture(bool ready = true) {
        model.platform.screens.set({FakeScreens::plain(7, QStringLiteral("Plain"))});
        if (ready) model.load();
        coordinator = std::make_unique<WindowCoordinator>(WindowCoordinator::Parts{
            *model.model, model.platform.platform, state, navigation, panel, dashboard});
    }

    void advance(double seconds) { model.platform.clock.advance(seconds); }
    /// The pointer goes to the strip and stays.
    void hoverOpen() {
        coordinator->entered();
        advance(0.18);
    }

    ModelFixture model;
    PanelState state;
    NavigationModel navigation;
    FakePanelSurface panel;
    FakeDashboardSurface dashboard;
    std::unique_ptr<WindowCoordinator> coordinator;
};

} // namespace orvane::test
