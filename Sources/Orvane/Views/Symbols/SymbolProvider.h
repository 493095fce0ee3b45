#pragma once

#include <QQuickImageProvider>

namespace orvane {

/// Draws the symbols and the mark at the size and in the colour a view asks for. An address reads
/// "name", "name/colour" or "name/colour/stroke": the file's name without its ending, the colour as
/// rrggbb or aarrggbb, the stroke's width on the symbols' 24-pixel grid. Called on the main thread.
class SymbolProvider : public QQuickImageProvider {
public:
    SymbolProvider();

    /// The drawing in `requestedSize` device pixels, or in the file's own size when none is asked for;
    /// `size` receives the size drawn. An unknown name gives an empty image and a warning.
    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

} // namespace orvane
