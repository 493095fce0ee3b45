#include "Views/WidgetPalette.h"

#include <QColor>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QVariant>

#include <memory>
#include <utility>

namespace orvane {

QPalette widgetPalette(QQmlEngine& engine, bool dark) {
    // The toolkit gives a module's singleton only to QML.
    QQmlComponent reader(&engine);
    reader.setData("import QtQml\nimport Orvane as Orvane\n"
                   "QtObject {\n"
                   "    readonly property QtObject dark: Orvane.Palette.darkDashboard\n"
                   "    readonly property QtObject light: Orvane.Palette.lightDashboard\n"
                   "}\n",
                   QUrl());
    const std::unique_ptr<QObject> colours(reader.create());
    if (!colours) qFatal("The colours cannot be read.");
    const auto* tones = colours->property(dark ? "dark" : "light").value<QObject*>();
    QPalette palette;
    for (const auto& [role, tone] :
         {std::pair(QPalette::Window, "page"), std::pair(QPalette::WindowText, "text"),
          std::pair(QPalette::Base, "card"), std::pair(QPalette::AlternateBase, "hover"),
          std::pair(QPalette::Text, "text"), std::pair(QPalette::PlaceholderText, "third"),
          std::pair(QPalette::Button, "raise"), std::pair(QPalette::ButtonText, "text"),
          std::pair(QPalette::BrightText, "clay"), std::pair(QPalette::Highlight, "fill"),
          std::pair(QPalette::HighlightedText, "inkOnFill"), std::pair(QPalette::Link, "lilac"),
          std::pair(QPalette::ToolTipBase, "raise"), std::pair(QPalette::ToolTipText, "text"),
          std::pair(QPalette::Light, "line"), std::pair(QPalette::Midlight, "line"),
          std::pair(QPalette::Mid, "edge"), std::pair(QPalette::Dark, "edge")})
        palette.setColor(role, tones->property(tone).value<QColor>());
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, tones->property("off").value<QColor>());
    return palette;
}

} // namespace orvane
