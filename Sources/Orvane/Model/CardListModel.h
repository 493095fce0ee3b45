#pragma once

#include "Model/Preferences.h"

#include <QAbstractListModel>
#include <QList>
#include <QtQml/qqmlregistration.h>

namespace orvane {

/// The four cards in the user's order, for views: each row has `card` (the stored word) and `shown`. Rows
/// move when the order changes and are never replaced, so a row keeps the keyboard on its way. Main thread.
class CardListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The settings make it.")

public:
    enum Role { cardRole = Qt::UserRole, shownRole };

    explicit CardListModel(const Preferences& preferences, QObject* parent = nullptr);

    /// Takes over the order of the cards and which of them are hidden, and announces what differs.
    void follow(const Preferences& preferences);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    QList<WorkspaceCard> cards_;
    QList<WorkspaceCard> hidden_;
};

} // namespace orvane
