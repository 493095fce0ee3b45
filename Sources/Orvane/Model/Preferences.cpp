#include "Model/Preferences.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvane {
namespace {

constexpr std::int64_t leastMinutes = 1;
constexpr std::int64_t mostMinutes = 180;
constexpr double leastCardWidth = 230;
constexpr double mostCardWidth = 380;

QJsonArray array(const QList<WorkspaceCard>& cards) {
    QJsonArray words;
    for (const auto card : cards) words.append(rawValue(card));
    return words;
}

/// `cards` as a set: each once, in the default order.
QList<WorkspaceCard> inDefaultOrder(const QList<WorkspaceCard>& cards) {
    auto ordered = allWorkspaceCards();
    ordered.removeIf([&](WorkspaceCard card) { return !cards.contains(card); });
    return ordered;
}

bool read(const QJsonValue& value, QString& field) {
    if (value.isString()) field = value.toString();
    return value.isString();
}

bool read(const QJsonValue& value, bool& field) {
    if (value.isBool()) field = value.toBool();
    return value.isBool();
}

bool read(const QJsonValue& value, double& field) {
    if (!value.isDouble() || !std::isfinite(value.toDouble())) return false;
    field = value.toDouble();
    return true;
}

bool read(const QJsonValue& value, std::int64_t& field) {
    // What is no whole number within 64 bits gives the default, whichever it is.
    if (!value.isDouble() || value.toInteger(0) != value.toInteger(1)) return false;
    field = value.toInteger();
    return true;
}

bool read(const QJsonValue& value, std::uint32_t& field) {
    std::int64_t number = 0;
    if (!read(value, number) || number < 0 || number > std::numeric_limits<std::uint32_t>::max())
        return false;
    field = std::uint32_t(number);
    return true;
}

bool read(const QJsonValue& value, QList<WorkspaceCard>& field) {
    if (!value.isArray()) return false;
    QList<WorkspaceCard> cards;
    for (const auto word : value.toArray()) {
        const auto card = workspaceCard(word.toString());
        if (!card) return false;
        cards.append(*card);
    }
    field = cards;
    return true;
}

/// Whether `field` is as the object has it; a missing key leaves it alone.
template <class Field>
bool readOptional(const QJsonObject& object, QLatin1String key, Field& field) {
    const auto value = object.value(key);
    return value.isUndefined() || value.isNull() || read(value, field);
}

} // namespace

QList<WorkspaceCard> allWorkspaceCards() {
    return {WorkspaceCard::tasks, WorkspaceCard::focus, WorkspaceCard::notes, WorkspaceCard::agenda};
}

QList<WorkspaceCard> builtWorkspaceCards() {
    return {WorkspaceCard::tasks, WorkspaceCard::focus, WorkspaceCard::notes};
}

QString rawValue(WorkspaceCard card) {
    switch (card) {
    case WorkspaceCard::tasks:
        return QStringLiteral("tasks");
    case WorkspaceCard::focus:
        return QStringLiteral("focus");
    case WorkspaceCard::notes:
        return QStringLiteral("notes");
    case WorkspaceCard::agenda:
        break;
    }
    return QStringLiteral("agenda");
}

std::optional<WorkspaceCard> workspaceCard(const QString& raw) {
    for (const auto card : allWorkspaceCards())
        if (raw == rawValue(card)) return card;
    return std::nullopt;
}

QByteArray Preferences::encoded() const {
    const QJsonObject object{
        {"appearance", appearance},
        {"cardWidth", cardWidth},
        {"cards", array(cards)},
        {"clockStyle", clockStyle},
        {"defaultMinutes", qint64(defaultMinutes)},
        {"displayID", qint64(displayID)},
        {"hiddenCards", array(inDefaultOrder(hiddenCards))},
        {"hoverEnabled", hoverEnabled},
        {"onboardingComplete", onboardingComplete},
    };
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

std::optional<Preferences> Preferences::decoded(const QByteArray& bytes) {
    const auto document = QJsonDocument::fromJson(bytes);
    if (!document.isObject()) return std::nullopt;
    const auto object = document.object();
    Preferences read;
    const auto complete = readOptional(object, QLatin1String("appearance"), read.appearance) &&
                          readOptional(object, QLatin1String("clockStyle"), read.clockStyle) &&
                          readOptional(object, QLatin1String("defaultMinutes"), read.defaultMinutes) &&
                          readOptional(object, QLatin1String("hoverEnabled"), read.hoverEnabled) &&
                          readOptional(object, QLatin1String("cards"), read.cards) &&
                          readOptional(object, QLatin1String("hiddenCards"), read.hiddenCards) &&
                          readOptional(object, QLatin1String("cardWidth"), read.cardWidth) &&
                          readOptional(object, QLatin1String("displayID"), read.displayID) &&
                          readOptional(object, QLatin1String("onboardingComplete"), read.onboardingComplete);
    if (!complete) return std::nullopt;
    read.hiddenCards = inDefaultOrder(read.hiddenCards);
    return read;
}

Preferences Preferences::repaired() const {
    auto repaired = *this;
    repaired.defaultMinutes = std::clamp(defaultMinutes, leastMinutes, mostMinutes);
    repaired.cardWidth = std::clamp(cardWidth, leastCardWidth, mostCardWidth);
    repaired.cards.clear();
    for (const auto card : cards + allWorkspaceCards())
        if (!repaired.cards.contains(card)) repaired.cards.append(card);
    return repaired;
}

bool Preferences::operator==(const Preferences& other) const {
    return appearance == other.appearance && clockStyle == other.clockStyle &&
           defaultMinutes == other.defaultMinutes && hoverEnabled == other.hoverEnabled &&
           cards == other.cards && inDefaultOrder(hiddenCards) == inDefaultOrder(other.hiddenCards) &&
           cardWidth == other.cardWidth && displayID == other.displayID &&
           onboardingComplete == other.onboardingComplete;
}

} // namespace orvane
