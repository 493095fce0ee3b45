#include "Orvane/ModelFixture.h"

#include <QSignalSpy>
#include <QTest>

#include <sqlite3.h>

using namespace orvane;
using namespace orvane::test;
using planner::Calendar;
using planner::DailyNote;
using planner::Instant;

namespace {

const QString tooLong =
    QStringLiteral("This note exceeds the 5 MB limit. The last saved text has been kept.");

/// Seconds between 2001-01-01 00:00 UTC and the beginning of 1970.
constexpr double unixEpoch = -978'307'200;

/// A ready model, without a task, on Monday, 9 March 2026, 12:00 in Berlin.
class Notes : public ModelFixture {
public:
    Notes() {
        platform.clock.setNow({unixEpoch + 1'773'054'000});
        renew();
        load();
    }

    std::string stored(const std::string& day) const {
        const auto notes = ModelFixture::stored().notes;
        const auto found = notes.find([&](const DailyNote& note) { return note.id == day; });
        return found < notes.size() ? notes[found].text : "(none)";
    }
    std::size_t saves() const { return platform.storeExecutor.handedOver(); }
    /// Lets the wall clock and the timers go on, and the store with them.
    void pass(double seconds) {
        platform.clock.advance(seconds);
        platform.settle();
    }
};

} // namespace

class AppModelNotesTests : public QObject {
    Q_OBJECT

private slots:
    void theFirstTextOfADayMakesANoteWithThatDaysKey() {
        Notes house;
        QCOMPARE(house.model->noteText(), QString());
        house.model->updateNote(QStringLiteral("Call the printer"));
        QCOMPARE(house.model->snapshot().notes.size(), std::size_t(1));
        const auto note = house.model->snapshot().notes[0];
        QCOMPARE(note.id, std::string("2026-03-09"));
        QCOMPARE(note.text, std::string("Call the printer"));
        QVERIFY(note.updatedAt == house.platform.clock.now());
        QCOMPARE(house.model->noteText(), QStringLiteral("Call the printer"));
    }

    void furtherTextsOfADayReplaceTheNoteAndItsTime() {
        Notes house;
        house.model->updateNote(QStringLiteral("a"));
        house.platform.clock.advance(60);
        house.model->updateNote(QStringLiteral("ab"));
        QCOMPARE(house.model->snapshot().notes.size(), std::size_t(1));
        QCOMPARE(house.model->snapshot().notes[0].text, std::string("ab"));
        QVERIFY(house.model->snapshot().notes[0].updatedAt == house.platform.clock.now());
    }

    void anEmptiedNoteStaysWithAnEmptyText() {
        Notes house;
        house.model->updateNote(QStringLiteral("a"));
        house.model->updateNote(QString());
        house.pass(1);
        QCOMPARE(house.stored("2026-03-09"), std::string());
    }

    void nothingIsWrittenBeforeThePlannerIsOpen() {
        Notes house;
        house.renew();
        QSignalSpy edits(house.model.get(), &AppModel::noteEdited);
        house.model->updateNote(QStringLiteral("too early"));
        house.pass(10);
        QCOMPARE(house.model->snapshot().notes.size(), std::size_t(0));
        QCOMPARE(house.model->saveState(), QString::fromUtf8("Opening your planner…"));
        QCOMPARE(edits.count(), 0);
        QCOMPARE(house.model->revision(), 0);
    }

    void tenKeysMakeOneSaveFourHundredMillisecondsAfterTheLast() {
        Notes house;
        const auto before = house.saves();
        QString text;
        for (int key = 0; key < 10; ++key) {
            if (key > 0) house.pass(0.1);
            house.model->updateNote(text += QLatin1Char('a'));
            QCOMPARE(house.model->saveState(), QString::fromUtf8("Saving…"));
        }
        house.pass(0.399);
        QCOMPARE(house.saves(), before);
        QCOMPARE(house.model->revision(), 0);
        house.pass(0.0015);
        QCOMPARE(house.saves(), before + 1);
        QCOMPARE(house.model->revision(), 1);
        QCOMPARE(house.model->saveState(), QStringLiteral("Saved on this Mac"));
        QCOMPARE(house.stored("2026-03-09"), std::string("aaaaaaaaaa"));
        house.pass(10);
        QCOMPARE(house.saves(), before + 1);
    }

    void aSaveThatEndsWhileAKeyWaitsDoesNotSaySaved() {
        Notes house;
        house.add(QStringLiteral("Tea"));
        house.model->updateNote(QStringLiteral("a"));
        house.platform.settle();
        QCOMPARE(house.model->lastSavedRevision(), 1);
        QCOMPARE(house.model->saveState(), QString::fromUtf8("Saving…"));
        house.pass(0.5);
        QCOMPARE(house.model->saveState(), QStringLiteral("Saved on this Mac"));
        QCOMPARE(house.stored("2026-03-09"), std::string("a"));
    }

    void aKeyAfterThePauseIsSavedAgain() {
        Notes house;
        house.model->updateNote(QStringLiteral("a"));
        house.pass(0.5);
        house.model->updateNote(QStringLiteral("ab"));
        house.pass(0.5);
        QCOMPARE(house.model->revision(), 2);
        QCOMPARE(house.stored("2026-03-09"), std::string("ab"));
    }

    void anotherDayWithinThePauseSavesAtOnceAndShowsThatDaysNote() {
        Notes house;
        house.model->updateNote(QStringLiteral("Monday"));
        house.platform.clock.advance(0.1);
        QSignalSpy days(house.model.get(), &AppModel::noteDayChanged);
        house.model->selectNoteDayBy(-1);
        QCOMPARE(days.count(), 1);
        QCOMPARE(house.model->noteDay(), QStringLiteral("2026-03-08"));
        QCOMPARE(house.model->noteDate().seconds, unixEpoch + 1'772'924'400);
        QCOMPARE(house.model->noteText(), QString());
        QCOMPARE(house.model->revision(), 1);
        house.platform.settle();
        QCOMPARE(house.stored("2026-03-09"), std::string("Monday"));
        house.pass(1);
        QCOMPARE(house.model->revision(), 1);
        house.model->selectNoteDayBy(1);
        QCOMPARE(house.model->noteText(), QStringLiteral("Monday"));
    }

    void anotherDaySavesAlsoWhenNothingWaits() {
        Notes house;
        house.model->selectNoteDay(house.platform.clock.now() + 86'400);
        QCOMPARE(house.model->revision(), 1);
        QCOMPARE(house.model->noteDay(), QStringLiteral("2026-03-10"));
    }

    void daysMayLieAheadWithoutABound() {
        Notes house;
        house.model->selectNoteDayBy(4000);
        QCOMPARE(house.model->noteDay(), QStringLiteral("2037-02-19"));
        house.model->updateNote(QStringLiteral("Far"));
        house.pass(1);
        QCOMPARE(house.stored("2037-02-19"), std::string("Far"));
    }

    void aFlushCutsTheWaitShort() {
        Notes house;
        house.model->updateNote(QStringLiteral("Quick"));
        const auto saves = house.saves();
        std::optional<bool> saved;
        house.model->flush([&](bool everything) { saved = everything; });
        house.platform.settle();
        QCOMPARE(saved, std::optional(true));
        QCOMPARE(house.stored("2026-03-09"), std::string("Quick"));
        house.pass(1);
        QCOMPARE(house.saves(), saves + 1);
    }

    void aFailedSaveKeepsTheNoteAndALaterKeySavesIt() {
        Notes house;
        house.disk.failWrites(SQLITE_FULL);
        house.model->updateNote(QStringLiteral("Keep me"));
        house.pass(0.5);
        QCOMPARE(house.model->saveState(), QStringLiteral("Not saved"));
        QVERIFY(house.model->error().value_or(QString()).startsWith(
            QStringLiteral("Your changes are still in memory. Retry saving or export a backup. ")));
        QCOMPARE(house.model->noteText(), QStringLiteral("Keep me"));
        house.disk.heal();
        house.model->updateNote(QStringLiteral("Keep me!"));
        house.pass(0.5);
        QCOMPARE(house.model->saveState(), QStringLiteral("Saved on this Mac"));
        QCOMPARE(house.stored("2026-03-09"), std::string("Keep me!"));
    }

    void fiveMillionBytesAreAcceptedAndOneMoreIsRefused() {
        Notes house;
        const QString most(5'000'000, QLatin1Char('a'));
        QSignalSpy replaced(house.model.get(), &AppModel::noteReplaced);
        QSignalSpy edited(house.model.get(), &AppModel::noteEdited);
        house.model->updateNote(most);
        QCOMPARE(house.model->error(), std::nullopt);
        QCOMPARE(edited.count(), 1);
        house.pass(1);
        house.model->updateNote(most + QLatin1Char('a'));
        QCOMPARE(house.model->error(), std::optional(tooLong));
        QCOMPARE(replaced.count(), 1);
        QCOMPARE(edited.count(), 1);
        QVERIFY(house.model->noteText() == most);
        QCOMPARE(house.model->saveState(), QStringLiteral("Saved on this Mac"));
        house.pass(1);
        QCOMPARE(house.model->revision(), 1);
        QCOMPARE(house.stored("2026-03-09").size(), std::size_t(5'000'000));
    }

    void bytesAreCountedAndNotCharacters_data() {
        QTest::addColumn<QString>("letter");
        QTest::addColumn<int>("bytes");
        QTest::newRow("two bytes") << QStringLiteral("ä") << 2;
        QTest::newRow("three bytes") << QStringLiteral("€") << 3;
        QTest::newRow("four bytes") << QStringLiteral("🌱") << 4;
    }

    void bytesAreCountedAndNotCharacters() {
        QFETCH(QString, letter);
        QFETCH(int, bytes);
        Notes house;
        const QString most =
            letter.repeated(5'000'000 / bytes) + QString(5'000'000 % bytes, QLatin1Char('.'));
        house.model->updateNote(most);
        QCOMPARE(house.model->error(), std::nullopt);
        house.model->updateNote(most + QLatin1Char('.'));
        QCOMPARE(house.model->error(), std::optional(tooLong));
        QVERIFY(house.model->noteText() == most);
    }

    void aModelThatIsGoneSavesNothingMore() {
        Notes house;
        house.model->updateNote(QStringLiteral("Gone"));
        const auto saves = house.saves();
        house.model.reset();
        house.pass(1);
        QCOMPARE(house.saves(), saves);
        QCOMPARE(house.stored("2026-03-09"), std::string("(none)"));
    }

    void anUntouchedNoteOfTodayFollowsIntoTheNewDay() {
        Notes house;
        QSignalSpy today(house.model.get(), &AppModel::todayChanged);
        house.platform.clock.stepWall(12 * 3600);
        house.model->followToday();
        QCOMPARE(house.model->noteDay(), QStringLiteral("2026-03-10"));
        QCOMPARE(today.count(), 1);
        house.model->followToday();
        QCOMPARE(today.count(), 1);
    }

    void aNoteWithTheKeyboardKeepsItsDay() {
        Notes house;
        house.model->setEditingNote(true);
        house.platform.clock.stepWall(12 * 3600);
        house.model->followToday();
        QCOMPARE(house.model->noteDay(), QStringLiteral("2026-03-09"));
        house.model->updateNote(QStringLiteral("Past midnight"));
        house.pass(1);
        QCOMPARE(house.stored("2026-03-09"), std::string("Past midnight"));
        QCOMPARE(house.stored("2026-03-10"), std::string("(none)"));
    }

    void aNoteWithAnUnsavedKeyKeepsItsDay() {
        Notes house;
        house.model->updateNote(QStringLiteral("a"));
        house.platform.clock.stepWall(12 * 3600);
        house.model->followToday();
        QCOMPARE(house.model->noteDay(), QStringLiteral("2026-03-09"));
        QCOMPARE(house.model->noteText(), QStringLiteral("a"));
    }

    void aSavedNoteWithoutTheKeyboardFollows() {
        Notes house;
        house.model->updateNote(QStringLiteral("a"));
        house.pass(0.5);
        house.platform.clock.stepWall(12 * 3600);
        house.model->followToday();
        QCOMPARE(house.model->noteDay(), QStringLiteral("2026-03-10"));
    }

    void theNoteOfAnotherDayStays() {
        Notes house;
        house.model->selectNoteDayBy(-3);
        house.platform.clock.stepWall(12 * 3600);
        house.model->followToday();
        QCOMPARE(house.model->noteDay(), QStringLiteral("2026-03-06"));
    }

    void todayFollowsOverDaysOfOtherLengths() {
        Notes house;
        // In Berlin 29 March has 23 hours.
        house.platform.clock.setNow({unixEpoch + 1'774'738'799});
        house.model->followToday();
        QCOMPARE(house.model->noteDay(), QStringLiteral("2026-03-28"));
        house.platform.clock.stepWall(1);
        house.model->followToday();
        QCOMPARE(house.model->noteDay(), QStringLiteral("2026-03-29"));
        house.platform.clock.stepWall(23 * 3600 - 1);
        house.model->followToday();
        QCOMPARE(house.model->noteDay(), QStringLiteral("2026-03-29"));
        house.platform.clock.stepWall(1);
        house.model->followToday();
        QCOMPARE(house.model->noteDay(), QStringLiteral("2026-03-30"));
        house.model->selectNoteDayBy(-1);
        QCOMPARE(house.model->noteDay(), QStringLiteral("2026-03-29"));
        house.model->selectNoteDayBy(-1);
        QCOMPARE(house.model->noteDay(), QStringLiteral("2026-03-28"));
    }

    void anotherTimeZoneTakesTodayAlongAndLeavesOtherDays() {
        Notes house;
        house.platform.clock.setCalendar(Calendar("Pacific/Kiritimati"));
        house.model->followToday();
        QCOMPARE(house.model->noteDay(), QStringLiteral("2026-03-10"));
        house.model->selectNoteDayBy(-4);
        QCOMPARE(house.model->noteDay(), QStringLiteral("2026-03-06"));
        for (const char* zone : {"Pacific/Pago_Pago", "Pacific/Kiritimati", "Europe/Berlin"}) {
            house.platform.clock.setCalendar(Calendar(zone));
            // The first key may be quicker than the desktop's word of the new zone.
            house.model->updateNote(QString::fromLatin1(zone));
            house.model->followToday();
            QCOMPARE(house.model->noteDay(), QStringLiteral("2026-03-06"));
            QCOMPARE(house.model->noteText(), QString::fromLatin1(zone));
            const auto day = house.platform.clock.calendar().day(house.model->noteDate());
            QCOMPARE(day, std::optional(planner::CivilDay{2026, 3, 6}));
        }
        QCOMPARE(house.model->snapshot().notes.size(), std::size_t(1));
    }

    void theDaysBesideADateThatTheZoneLeftOutAreReached() {
        Notes house;
        house.platform.clock.setCalendar(Calendar("Pacific/Apia"));
        // There was no 30 December 2011 in Apia.
        house.model->selectNoteDay({unixEpoch + 1'325'286'000});
        QCOMPARE(house.model->noteDay(), QStringLiteral("2011-12-31"));
        house.model->selectNoteDayBy(-1);
        QCOMPARE(house.model->noteDay(), QStringLiteral("2011-12-29"));
        house.model->selectNoteDayBy(1);
        QCOMPARE(house.model->noteDay(), QStringLiteral("2011-12-31"));
    }
};

QTEST_GUILESS_MAIN(AppModelNotesTests)
#include "AppModelNotesTests.moc"
