#include "Model/CardListModel.h"

namespace orvane {

CardListModel::CardListModel(const Preferences& preferences, QObject* parent)
    : QAbstractListModel(parent), cards_(preferences.cards), hidden_(preferences.hiddenCards) {}

void CardListModel::follow(const Preferences& preferences) {
    // Both lists hold the same four cards: each place below `row` is right already.
    for (qsizetype row = 0; row < preferences.cards.size(); ++row) {
        const auto from = cards_.indexOf(preferences.cards[row]);
        if (from <= row) continue;
        beginMoveRows({}, int(from), int(from), {}, int(row));
        cards_.move(from, row);
        endMoveRows();
    }
    const auto before = hidden_;
    hidden_ = preferences.hiddenCards;
    for (qsizetype row = 0; row < cards_.size(); ++row)
        if (before.contains(cards_[row]) != hidden_.contains(cards_[row]))
            emit dataChanged(index(int(row)), index(int(row)), {shownRole});
}

int CardListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(cards_.size());
}

QVariant CardListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= cards_.size()) return {};
    const auto card = cards_[index.row()];
    if (role == cardRole) return rawValue(card);
    if (role == shownRole) return !hidden_.contains(card);
    return {};
}

QHash<int, QByteArray> CardListModel::roleNames() const {
    return {{cardRole, "card"}, {shownRole, "shown"}};
}

} // namespace orvane
