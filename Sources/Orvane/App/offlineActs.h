#pragma once

#include "App/offlineStage.h"

namespace orvane::offline {

// What a user does to the stage's window. Points are in its coordinates.

void key(Stage& stage, int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {});
void type(Stage& stage, const QString& text);
/// Lets animations and tooltips come to their end: `milliseconds` of real time.
void wait(int milliseconds);
/// A point in a row of the tasks card; a negative `x` counts from its right edge.
QPointF rowPoint(Stage& stage, int row, double x);
void hoverRow(Stage& stage, int row, double x = 100);
void click(Stage& stage, QPointF at, int times = 1);
/// Changes to the second tab of the tasks card.
void showCompleted(Stage& stage);
/// Takes the sixth row to the fourth and holds it there.
void dragRow(Stage& stage);

} // namespace orvane::offline
