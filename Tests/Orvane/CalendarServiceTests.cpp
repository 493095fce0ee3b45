#include "Doubles/FakeClock.h"
#include "Doubles/FakeEventStore.h"
#include "Integrations/CalendarService.h"

#include <QTest>

#include <memory>

using namespace orvane;
using namespace orvane::test;
using planner::Instant;

namespace {

constexpr double hour = 3600;

struct House {
    FakeClock clock;
    FakeEventStore store;
    std::unique_ptr<CalendarService> service;

    explicit House(CalendarAuthorization status = CalendarAuthorization::fullAccess) {
        store.status = status;
        service = std::make_unique<CalendarService>(store, clock);
    }

    CalendarEvent event(const char* title, double startsIn, double lasts, bool allDay = false) const {
        CalendarEvent event;
        event.identifier = QStringLiteral("event-") + QString::fromUtf8(title);
        event.title = QString::fromUtf8(title);
        event.start = clock.now() + startsIn;
        event.end = event.start + lasts;
        event.allDay = allDay;
        event.calendar = QStringLiteral("Work");
        return event;
    }
    void answer(std::size_t question, const CalendarEvents& events) {
        const auto give = store.questions.at(question).answer;
        store.questions.erase(store.questions.begin() + std::ptrdiff_t(question));
        give(events);
    }
    QStringList titles() const {
        QStringList all;
        for (const auto& event : service->events()) all.append(event.title);
        return all;
    }
};

} // namespace

class CalendarServiceTests : public QObject {
    Q_OBJECT

private slots:
    void aNewServiceKnowsItsAccessAndHasReadNothing() {
        House house(CalendarAuthorization::denied);
        QCOMPARE(house.service->status(), CalendarAuthorization::denied);
        QVERIFY(house.service->events().isEmpty());
        QVERIFY(!house.service->loading());
        QVERIFY(house.store.questions.empty());
    }

    void todayIsAskedForFromMidnightToMidnightAlsoWhenTheClocksChange() {
        House house;
        // 2025-03-30 in Berlin has 23 hours.
        const auto noon = Instant{1743328800 - planner::unixEpochOffset};
        house.clock.setNow(noon);
        house.service->refresh();
        QCOMPARE(house.store.questions[0].start.seconds, 1743289200 - planner::unixEpochOffset);
        QCOMPARE(house.store.questions[0].end - house.store.questions[0].start, 23 * hour);
        QVERIFY(house.service->loading());
    }

    void whatIsOverIsNotListedAndAllDayEventsAre() {
        House house;
        house.service->refresh();
        house.answer(0,
                     {{house.event("over", -hour, hour - 60), house.event("just over", -hour, hour),
                       house.event("running", -hour, 2 * hour), house.event("all day", -20 * hour, 60, true)},
                      {}});
        QCOMPARE(house.titles(), (QStringList{"all day", "running"}));
        QVERIFY(!house.service->loading());
    }

    void eventsOfTheSameMomentKeepTheStoresOrder() {
        House house;
        house.service->refresh();
        house.answer(0, {{house.event("b", 2 * hour, 60), house.event("z", hour, 60),
                          house.event("a", hour, 60), house.event("m", hour, 60)},
                         {}});
        QCOMPARE(house.titles(), (QStringList{"z", "a", "m", "b"}));
    }

    void occurrencesOfOneEventAreToldApart() {
        House house;
        house.service->refresh();
        house.answer(0, {{house.event("run", hour, 60), house.event("run", 2 * hour, 60)}, {}});
        const auto& events = house.service->events();
        QCOMPARE(events.size(), 2);
        QVERIFY(events[0].id != events[1].id);
        QVERIFY(events[0].id.startsWith(QStringLiteral("event-run-")));
    }

    void anEventWithoutATitleOrNameIsShownAllTheSame() {
        House house;
        house.service->refresh();
        auto bare = house.event("", hour, 60);
        bare.identifier.clear();
        bare.location = QStringLiteral("Roof");
        house.answer(0, {{bare, bare}, {}});
        const auto& events = house.service->events();
        QCOMPARE(events[0].title, QStringLiteral("Untitled event"));
        QVERIFY(events[0].id != events[1].id);
        QCOMPARE(events[0].calendar, QStringLiteral("Work"));
        QCOMPARE(events[0].location, std::optional(QStringLiteral("Roof")));
    }

    void ofTwoRefreshesOnlyTheSecondOnesAnswerIsShown() {
        House house;
        house.service->refresh();
        house.service->refresh();
        house.answer(1, {{house.event("new", hour, 60)}, {}});
        house.answer(0, {{house.event("old", hour, 60)}, {}});
        QCOMPARE(house.titles(), QStringList{"new"});
        house.service->refresh();
        house.service->refresh();
        house.answer(0, {{house.event("older", hour, 60)}, {}});
        QCOMPARE(house.titles(), QStringList{"new"});
        QVERIFY(house.service->loading());
    }

    void accessThatWasTakenAwayEmptiesTheAgenda() {
        House house;
        house.service->refresh();
        house.answer(0, {{house.event("one", hour, 60)}, {}});
        house.store.status = CalendarAuthorization::writeOnly;
        house.service->refresh();
        QVERIFY(house.service->events().isEmpty());
        QVERIFY(!house.service->loading());
        QCOMPARE(house.service->status(), CalendarAuthorization::writeOnly);
        QCOMPARE(house.service->error(), std::nullopt);
    }

    void anAnswerThatComesAfterTheAccessIsGoneIsDropped() {
        House house;
        house.service->refresh();
        house.store.status = CalendarAuthorization::denied;
        house.service->refresh();
        house.answer(0, {{house.event("one", hour, 60)}, {}});
        QVERIFY(house.service->events().isEmpty());
    }

    void aFailureIsSaidEndsLoadingAndIsForgottenByTheNextRefresh() {
        House house;
        house.service->refresh();
        house.answer(0, {{house.event("one", hour, 60)}, {}});
        house.service->refresh();
        house.answer(0, {{}, QStringLiteral("The calendars are away.")});
        QCOMPARE(house.service->error(), QStringLiteral("The calendars are away."));
        QVERIFY(house.service->events().isEmpty());
        QVERIFY(!house.service->loading());
        house.service->refresh();
        QCOMPARE(house.service->error(), std::nullopt);
    }

    void aChangeInTheCalendarsReadsThemAgainUntilTheServiceStops() {
        House house;
        emit house.store.changed();
        QCOMPARE(house.store.questions.size(), std::size_t(1));
        house.service->stop();
        QVERIFY(!house.service->loading());
        emit house.store.changed();
        QCOMPARE(house.store.questions.size(), std::size_t(1));
        house.answer(0, {{house.event("late", hour, 60)}, {}});
        QVERIFY(house.service->events().isEmpty());
    }

    void anAnswerForAServiceThatIsGoneIsDropped() {
        House house;
        house.service->refresh();
        house.service.reset();
        house.answer(0, {{house.event("late", hour, 60)}, {}});
        QVERIFY(house.store.questions.empty());
    }

    void connectingAsksOnceAndReadsWhatWasDecided() {
        House house(CalendarAuthorization::notDetermined);
        int done = 0;
        house.service->connect([&] { ++done; });
        QCOMPARE(house.store.requests.size(), std::size_t(1));
        QCOMPARE(done, 0);
        house.store.status = CalendarAuthorization::fullAccess;
        house.store.requests.front()(std::nullopt);
        QCOMPARE(done, 1);
        QCOMPARE(house.service->status(), CalendarAuthorization::fullAccess);
        QCOMPARE(house.store.questions.size(), std::size_t(1));
    }

    void aRefusalIsNoFailure() {
        House house(CalendarAuthorization::notDetermined);
        house.service->connect([] {});
        house.store.status = CalendarAuthorization::denied;
        house.store.requests.front()(std::nullopt);
        QCOMPARE(house.service->status(), CalendarAuthorization::denied);
        QCOMPARE(house.service->error(), std::nullopt);
    }

    void aQuestionThatCannotBeAskedIsSaid() {
        House house(CalendarAuthorization::notDetermined);
        int done = 0;
        house.service->connect([&] { ++done; });
        house.store.status = CalendarAuthorization::restricted;
        house.store.requests.front()(QStringLiteral("No calendar answers."));
        QCOMPARE(done, 1);
        QCOMPARE(house.service->error(), std::optional(QStringLiteral("No calendar answers.")));
        QCOMPARE(house.service->status(), CalendarAuthorization::restricted);
        QVERIFY(house.store.questions.empty());
    }

    void anAnswerAboutAccessForAServiceThatIsGoneIsDropped() {
        House house(CalendarAuthorization::notDetermined);
        int done = 0;
        house.service->connect([&] { ++done; });
        house.service.reset();
        house.store.requests.front()(std::nullopt);
        QCOMPARE(done, 0);
    }
};

QTEST_GUILESS_MAIN(CalendarServiceTests)
#include "CalendarServiceTests.moc"
