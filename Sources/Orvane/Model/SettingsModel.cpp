#include "Model/SettingsModel.h"

#include "Platform/Platform.h"
#include "Platform/Screens.h"
#include "Platform/SystemEvents.h"
#include "Platform/UserDefaults.h"

#include <QVariantMap>

#include <algorithm>
#include <cmath>
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
    : QObject(parent), platform_(platform), preferences_(loaded(platform.defaults)), cards_(preferences_),
      loginStatus_(platform.loginItem.status()) {
    connect(&platform_.systemEvents, &SystemEvents::prefersDarkChanged, this, [this] {
        if (!colorScheme()) emit darkChanged();
    });
    connect(&platform_.screens, &Screens::changed, this, &SettingsModel::refreshDisplays);
    updateDisplayMissing();
}

void SettingsModel::setPreferences(const Preferences& preferences) {
    if (preferences != preferences_) apply(preferences);
}

SettingsModel::~SettingsModel() {
    if (unsaved_) write();
}

void SettingsModel::save() {
    write();
    if (onChange) onChange();
}

void SettingsModel::write() {
    unsaved_ = false;
    platform_.defaults.setData(preferencesKey(), preferences_.encoded());
}

void SettingsModel::setAdjusting(bool adjusting) {
    if (adjusting == adjusting_) return;
    adjusting_ = adjusting;
    emit adjustingChanged();
    if (!adjusting_ && unsaved_) save();
}

void SettingsModel::move(WorkspaceCard card, int offset) {
    const auto from = preferences_.cards.indexOf(card);
    const auto to = from + qsizetype(offset);
    if (from < 0 || to < 0 || to >= preferences_.cards.size()) return;
    auto changed = preferences_;
    changed.cards.swapItemsAt(from, to);
    apply(changed);
}

void SettingsModel::moveCard(const QString& card, int offset) {
    if (const auto known = workspaceCard(card)) move(*known, offset);
}

void SettingsModel::setCardShown(const QString& card, bool shown) {
    const auto known = workspaceCard(card);
    if (!known) return;
    auto changed = preferences_;
    changed.hiddenCards.removeAll(*known);
    if (!shown) changed.hiddenCards.append(*known);
    setPreferences(changed);
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
    updateDisplayMissing();
}

QVariantList SettingsModel::displayValues() const {
    QVariantList values;
    for (const auto& display : displays_)
        values.append(
            QVariantMap{{QStringLiteral("id"), display.id}, {QStringLiteral("name"), display.name}});
    return values;
}

void SettingsModel::updateDisplayMissing() {
    const auto chosen = preferences_.displayID;
    const auto missing =
        chosen != 0 && std::none_of(displays_.begin(), displays_.end(),
                                    [&](const auto& display) { return display.id == chosen; });
    if (missing == displayMissing_) return;
    displayMissing_ = missing;
    emit displayMissingChanged();
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

void SettingsModel::setAppearance(const QString& appearance) {
    set(&Preferences::appearance, appearance);
}

void SettingsModel::setClockStyle(const QString& clockStyle) {
    set(&Preferences::clockStyle, clockStyle);
}

void SettingsModel::setDefaultMinutes(int minutes) {
    set(&Preferences::defaultMinutes, std::int64_t(minutes));
}

void SettingsModel::setHoverEnabled(bool enabled) {
    set(&Preferences::hoverEnabled, enabled);
}

void SettingsModel::setCardWidth(double width) {
    if (std::isnan(width)) return;
    if (!adjusting_) return set(&Preferences::cardWidth, width);
    auto changed = preferences_;
    changed.cardWidth = width;
    changed = changed.repaired();
    if (changed == preferences_) return;
    unsaved_ = true;
    adopt(changed);
}

void SettingsModel::setDisplayID(quint32 id) {
    set(&Preferences::displayID, id);
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

void SettingsModel::adopt(const Preferences& preferences) {
    const auto wasDark = dark();
    const auto differs = preferences != preferences_;
    preferences_ = preferences;
    cards_.follow(preferences_);
    if (differs) emit preferencesChanged();
    updateDisplayMissing();
    if (dark() != wasDark) emit darkChanged();
}

void SettingsModel::apply(const Preferences& preferences) {
    adopt(preferences);
    save();
}

template <class Value>
void SettingsModel::set(Value Preferences::*field, const Value& value) {
    auto changed = preferences_;
    changed.*field = value;
    setPreferences(changed.repaired());
}

} // namespace orvane
