#pragma once

#include <QPalette>

class QQmlEngine;

namespace orvane {

/// The Dashboard's colours for the toolkit's own widgets. Main thread; `engine` has been prepared.
QPalette widgetPalette(QQmlEngine& engine, bool dark);

} // namespace orvane
