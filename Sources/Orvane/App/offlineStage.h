#pragma once

#include "Doubles/FakePlatform.h"
#include "Model/AppModel.h"
#include "Model/NavigationModel.h"
#include "Model/PanelState.h"

#include <PlannerCore/PlannerSnapshot.h>

#include <QQuickItem>
#include <QQuickView>
#include <QTemporaryDir>

#include <memory>

namespace orvane::offline {

enum class Window { panel, dashboard, alert };

/// One shown window and what stands behind it.
struct Stage {
    test::FakePlatform desk;
    QTemporaryDir folder;
    std::unique_ptr<AppModel> model;
    PanelState state;
    NavigationModel navigation;
    QQuickView view;
    double notch = 0;
    double inset = 0;
    /// The panel's size, where it differs from what its cards ask for.
    QSize size;

    /// The item of that object name, wherever it is; ends the program when there is none.
    QQuickItem* find(const char* name) const;
};

/// Makes the stage's model over a scratch folder that holds `planner`; opens nothing yet.
void prepareModel(Stage& stage, const planner::PlannerSnapshot& planner);
/// Loads the view of `window`; the panel's is `expanded` or collapsed.
void makeWindow(Stage& stage, Window window, bool expanded);

// Planners to show.

planner::PlannerSnapshot emptyPlanner();
planner::PlannerSnapshot ordinaryDay();
planner::PlannerSnapshot manyTasks(int count);
/// Titles that are long, written from right to left, or not of letters.
planner::PlannerSnapshot longTitles();

} // namespace orvane::offline
