#pragma once

#include "App/offlineStage.h"

#include <functional>
#include <map>

namespace orvane::offline {

inline void idle(Stage&) {}

/// A state to look at and the way to it.
struct Scene {
    Window window;
    std::function<planner::PlannerSnapshot()> planner = ordinaryDay;
    /// Prepares the desktop before the planner is opened.
    std::function<void(Stage&)> before = idle;
    /// Brings the model into its state, before the window is made.
    std::function<void(Stage&)> model = idle;
    /// Brings the window into its state.
    std::function<void(Stage&)> act = idle;
    bool expanded = true;
};

/// Those of the Dashboard's Settings page.
std::map<QString, Scene> settingsScenes();
/// The states of the notes card.
std::map<QString, Scene> noteScenes();
/// Every state by its name.
std::map<QString, Scene> scenes();
/// Those of the focus card.
std::map<QString, Scene> focusScenes();
/// Those of the Dashboard's pages Insights and History.
std::map<QString, Scene> insightsScenes();

} // namespace orvane::offline
