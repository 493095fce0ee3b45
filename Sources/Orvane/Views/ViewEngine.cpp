#include "Views/ViewEngine.h"

#include "Views/Symbols/SymbolProvider.h"

#include <QFont>
#include <QQmlEngine>

namespace orvane {

void prepareEngine(QQmlEngine& engine) {
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    engine.addImageProvider(QStringLiteral("symbols"), new SymbolProvider);
    // Where a family is not installed the closest relative stands in for it.
    QFont::insertSubstitution(QStringLiteral("Inter Display"), QStringLiteral("Inter"));
    QFont::insertSubstitution(QStringLiteral("Quicksand"), QStringLiteral("Inter"));
    QFont::insertSubstitution(QStringLiteral("Inter"), QStringLiteral("Sans Serif"));
    QFont::insertSubstitution(QStringLiteral("JetBrains Mono"), QStringLiteral("Monospace"));
}

} // namespace orvane
