#pragma once

class QQmlEngine;

namespace orvane {

/// Makes `engine` able to load the views: gives it the symbols and names substitutes for the program's
/// fonts. Call it once for each engine, on the main thread, before anything is loaded.
void prepareEngine(QQmlEngine& engine);

} // namespace orvane
