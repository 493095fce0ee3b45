#include "Model/SettingsModel.h"

#include "Platform/Platform.h"
#include "Platform/Screens.h"
#include "Platform/SystemEvents.h"
#include "Platform/UserDefaults.h"

#include <exception>

namespace orvane {
namespace {

QString preferencesKey() {
    return QStringLiteral("preferences.v1");
}

Preferences loaded(const UserDefaults& defaults) {
    const auto bytes = defaults.data(preferencesKey());
    return (bytes ? Preferences::decoded(*bytes) : std::nullopt).value_or(Preferences()).repaired();
}

} // namespace

SettingsModel::SettingsModel(Platform& platform, QObject* parent)
    : QObject(parent), platform_(platform), preferences_(loaded(platform.defaults)),
      loginStatus_(platform.loginItem.status()) {
    connect(&platform_.systemEvents, &SystemEvents::prefersDarkChanged, this, [this] {
        if (!colorScheme()) emit darkChanged();
    });
}

void SettingsModel::setPreferences(const Preferences& preferences) {
    if (preferences != preferences_) apply(preferences);
}

void SettingsModel::save() {
    platform_.defaults.setData(preferencesKey(), preferences_.encoded());
    if (onChange) onChange();
}

void SettingsModel::move(WorkspaceCard card, int offset) {
    const auto from = preferences_.cards.indexOf(card);
    const auto to = from + qsizetype(offset);
    if (from < 0 || to < 0 || to >= preferences_.cards.size()) return;
    auto changed = preferences_;
    changed.cards.swapItemsAt(from, to);
    apply(changed);
}

void SettingsModel::resetLayout() {
    const Preferences defaults;
    auto changed = preferences_;
    changed.cards = defaults.cards;
    apply(changed);
    changed = preferences_;
    changed.hiddenCards = defaults.hiddenCards;
    apply(changed);
    changed = preferences_;
    changed.cardWidth = defaults.cardWidth;
    apply(changed);
}

void SettingsModel::refreshDisplays() {
    QList<DisplayOption> displays;
    for (const auto& screen : platform_.screens.list()) displays.append({screen.id, screen.name});
    if (displays == displays_) return;
    displays_ = displays;
    emit displaysChanged();
}

void SettingsModel::setLogin(bool enabled) {
    loginError_.reset();
    try {
        platform_.loginItem.setEnabled(enabled);
    } catch (const std::exception& failure) {
        loginError_ = QString::fromUtf8(failure.what());
    }
    refreshLoginStatus();
}

void SettingsModel::refreshLoginStatus() {
    loginStatus_ = platform_.loginItem.status();
    emit loginChanged();
}

std::optional<SettingsModel::ColorScheme> SettingsModel::colorScheme() const {
    if (preferences_.appearance == QLatin1String("system")) return std::nullopt;
    return preferences_.appearance == QLatin1String("dark") ? ColorScheme::dark : ColorScheme::light;
}

bool SettingsModel::dark() const {
    const auto scheme = colorScheme();
    return scheme ? *scheme == ColorScheme::dark : platform_.systemEvents.prefersDark();
}

QList<WorkspaceCard> SettingsModel::visibleCards() const {
    const auto built = builtWorkspaceCards();
    auto visible = preferences_.cards;
    visible.removeIf(
        [&](WorkspaceCard card) { return !built.contains(card) || preferences_.hiddenCards.contains(card); });
    return visible;
}

QStringList SettingsModel::visibleCardNames() const {
    QStringList names;
    for (const auto card : visibleCards()) names.append(rawValue(card));
    return names;
}

void SettingsModel::apply(const Preferences& preferences) {
    const auto wasDark = dark();
    const auto differs = preferences != preferences_;
    preferences_ = preferences;
    if (differs) emit preferencesChanged();
    if (dark() != wasDark) emit darkChanged();
    save();
}

} // namespace orvane
