#include "Views/WidgetPalette.h"

#include <QColor>
#include <QQmlEngine>
#include <QVariant>

#include <utility>

namespace orvane {

QPalette widgetPalette(QQmlEngine& engine, bool dark) {
    const auto id = qmlTypeId("Orvane", 1, 0, "Palette");
    const auto* colours = engine.singletonInstance<QObject*>(id);
    if (!colours) return {};
    const auto* tones = colours->property(dark ? "darkDashboard" : "lightDashboard").value<QObject*>();
    if (!tones) return {};
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
