#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <cstdint>
#include <optional>

namespace orvane {

/// The four cards of the workspace, in their default order.
enum class WorkspaceCard { tasks, focus, notes, agenda };

/// Every card, in the default order.
QList<WorkspaceCard> allWorkspaceCards();
/// The cards that this build can show; the others are kept in `Preferences` but take no room.
QList<WorkspaceCard> builtWorkspaceCards();
/// The stored word of a card: "tasks", "focus", "notes", "agenda".
QString rawValue(WorkspaceCard card);
/// The card of a stored word; nothing for any other text.
std::optional<WorkspaceCard> workspaceCard(const QString& rawValue);

/// The user's display and layout choices. A plain value.
struct Preferences {
    /// "system" follows the desktop, "dark" forces dark, anything else forces light.
    QString appearance = QStringLiteral("system");
    /// Style of the clock figures.
    QString clockStyle = QStringLiteral("rounded");
    /// Minutes offered for a new countdown, 1 to 180.
    std::int64_t defaultMinutes = 25;
    /// Whether hovering at the top centre of the screen opens the panel.
    bool hoverEnabled = true;
    /// Order of the cards; each of the four exactly once.
    QList<WorkspaceCard> cards = allWorkspaceCards();
    /// Cards that are not shown; no card twice.
    QList<WorkspaceCard> hiddenCards;
    /// Width of a card, 230 to 380 logical pixels.
    double cardWidth = 260;
    /// The display that hosts the panel; 0 is the built-in one, or the first.
    std::uint32_t displayID = 0;
    bool onboardingComplete = false;

    /// JSON with the fields' names as keys, sorted; `hiddenCards` in the cards' default order.
    QByteArray encoded() const;
    /// Reads what `encoded` writes. A missing or null key takes its default; bytes that are no such object, a
    /// value of the wrong type or an unknown card give nothing.
    static std::optional<Preferences> decoded(const QByteArray& bytes);
    /// These preferences with minutes and width clamped and every card listed exactly once.
    Preferences repaired() const;

    /// Field by field; `hiddenCards` as a set.
    bool operator==(const Preferences& other) const;
};

} // namespace orvane
