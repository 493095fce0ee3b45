#include "PreferencesTarget.h"

#include "Model/Preferences.h"

namespace orvane::test {
namespace {

void require(bool holds, const char* what) {
    if (!holds) qFatal("%s", what);
}

} // namespace

void readPreferences(const QByteArray& bytes) {
    const auto decoded = Preferences::decoded(bytes);
    if (!decoded) return;
    require(Preferences::decoded(decoded->encoded()) == *decoded, "what was read is stored as it is");
    const auto repaired = decoded->repaired();
    require(repaired.defaultMinutes >= 1 && repaired.defaultMinutes <= 180, "the minutes are in bounds");
    require(repaired.cardWidth >= 230 && repaired.cardWidth <= 380, "the width is in bounds");
    require(repaired.cards.size() == 4, "each card is listed once");
    for (const auto card : allWorkspaceCards()) require(repaired.cards.contains(card), "each card is listed");
    require(repaired.repaired() == repaired, "a repair is final");
    require(Preferences::decoded(repaired.encoded()) == repaired, "a repaired record is stored as it is");
}

} // namespace orvane::test
