#include "Doubles/FakePlatform.h"
#include "Model/SettingsModel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using orvane::CardListModel;
using orvane::SettingsModel;
using orvane::WorkspaceCard;
using orvane::test::FakePlatform;

namespace {

/// The rows of the card list as "tasks" or, for a hidden one, "-tasks".
QStringList rows(orvane::SettingsModel& settings) {
    QStringList rows;
    auto& cards = *settings.cards();
    for (int row = 0; row < cards.rowCount(); ++row) {
        const auto shown = cards.data(cards.index(row), orvane::CardListModel::shownRole).toBool();
        rows.append((shown ? "" : "-") +
                    cards.data(cards.index(row), orvane::CardListModel::cardRole).toString());
    }
    return rows;
}

} // namespace

class CardListModelTests : public QObject {
    Q_OBJECT

private slots:
    void itBeginsWithTheStoredCards() {
        FakePlatform desktop;
        desktop.defaults.values["preferences.v1"] =
            R"({"cards":["notes","tasks"],"hiddenCards":["focus","tasks"]})";
        SettingsModel settings(desktop.platform);
        QCOMPARE(rows(settings), (QStringList{"notes", "-tasks", "-focus", "agenda"}));
    }

    void rowsMoveInsteadOfBeingReplaced() {
        FakePlatform desktop;
        SettingsModel settings(desktop.platform);
        const QAbstractItemModelTester tester(settings.cards(),
                                              QAbstractItemModelTester::FailureReportingMode::QtTest);
        QSignalSpy reset(settings.cards(), &QAbstractItemModel::modelReset);
        QSignalSpy moved(settings.cards(), &QAbstractItemModel::rowsMoved);
        QSignalSpy changed(settings.cards(), &QAbstractItemModel::dataChanged);
        QSignalSpy inserted(settings.cards(), &QAbstractItemModel::rowsInserted);
        const QPersistentModelIndex notes(settings.cards()->index(2));
        settings.moveCard("notes", -1);
        QCOMPARE(rows(settings), (QStringList{"tasks", "notes", "focus", "agenda"}));
        QCOMPARE(notes.row(), 1);
        QCOMPARE(moved.size(), 1);
        settings.setCardShown("notes", false);
        QCOMPARE(rows(settings), (QStringList{"tasks", "-notes", "focus", "agenda"}));
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed[0][0].toModelIndex().row(), 1);
        auto preferences = settings.preferences();
        preferences.cards = {WorkspaceCard::agenda, WorkspaceCard::focus, WorkspaceCard::notes,
                             WorkspaceCard::tasks};
        settings.setPreferences(preferences);
        QCOMPARE(rows(settings), (QStringList{"agenda", "focus", "-notes", "tasks"}));
        QCOMPARE(notes.row(), 2);
        settings.resetLayout();
        QCOMPARE(rows(settings), (QStringList{"tasks", "focus", "notes", "agenda"}));
        QCOMPARE(reset.size() + inserted.size(), 0);
    }

    void anUnknownRoleAndAnInvalidIndexGiveNothing() {
        FakePlatform desktop;
        SettingsModel settings(desktop.platform);
        const auto& cards = *settings.cards();
        QVERIFY(!cards.data(cards.index(0), Qt::DisplayRole).isValid());
        QVERIFY(!cards.data({}, CardListModel::cardRole).isValid());
        QCOMPARE(cards.rowCount(cards.index(0)), 0);
    }
};

QTEST_GUILESS_MAIN(CardListModelTests)
#include "CardListModelTests.moc"
