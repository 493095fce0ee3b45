#include "Doubles/FakeClock.h"
#include "Model/FocusController.h"

#include <PlannerCore/PlannerDates.h>

#include "Seed.h"
#include "Times.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <vector>

using orvane::FocusController;
using orvane::test::FakeClock;
using planner::FocusMode;
using planner::FocusSession;
using planner::FocusStatus;
using planner::Instant;

namespace {

/// All times are whole quarters of a second, which a double holds exactly: sums are compared with ==.
constexpr double quarter = 0.25;
constexpr double secondsADay = 86400;
constexpr double checkpointEvery = 15;

/// Thrown where the program and the ledger differ.
struct Mismatch {
    std::string what;
};

void require(bool holds, const char* what) {
    if (!holds) throw Mismatch{what};
}

/// What must have been counted, kept by plain addition.
struct Ledger {
    FocusMode mode = FocusMode::stopwatch;
    FocusStatus status = FocusStatus::finished;
    double target = 0;
    /// Seconds run, and how many of them the store must have.
    double counted = 0;
    double saved = 0;
    /// `counted` when the ticker was started last.
    double countedAtStart = 0;

    bool countdown() const { return mode == FocusMode::countdown; }
    double capped(double seconds) const { return countdown() ? std::min(seconds, target) : seconds; }
};

/// Whether the wall clock is set now and then. Where it is not, the program is told before the machine sleeps
/// and pauses, as it does on a desktop.
enum class WallClock { stepped, steady };

/// Somebody who works on a desktop for some days, in one zone: starts, pauses, resumes and ends
/// sessions, sets the clock either way, lets the machine sleep, and loses the program now and then.
class Life {
public:
    Life(const std::string& zone, std::uint64_t seed, WallClock wall)
        : random_(seed), wall_(wall), calendar_(zone),
          clock_(std::make_unique<FakeClock>(Instant{std::floor(between(0, 1.1e9))}, 50, zone)) {
        launch();
    }

    void run(double days) {
        while (lived_ < days * secondsADay) {
            step();
            check();
        }
        focus_->finish();
        noteCommand(FocusStatus::finished);
        check();
        checkDays();
    }

    std::size_t sessions() const { return store_.size(); }
    double counted() const { return total(); }
    int kills() const { return kills_; }

private:
    double between(double least, double most) {
        return std::uniform_real_distribution<double>(least, most)(random_);
    }
    int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(random_); }
    double quarters(double most) { return quarter * std::floor(between(0, most / quarter)); }

    void launch() {
        focus_ = std::make_unique<FocusController>(*clock_);
        focus_->onCheckpoint = [this](const FocusSession& session) { record(session); };
        focus_->onCompleted = [this](const FocusSession& session) {
            require(session.status == FocusStatus::finished, "a completed session is finished");
            ++completed_;
        };
    }

    /// The owner's part: keeps the session, after a look at what was added to it.
    void record(const FocusSession& session) {
        const auto stored =
            std::ranges::find_if(store_, [&](const auto& other) { return other.id == session.id; });
        const auto known = stored == store_.end() ? 0 : stored->segments.size();
        require(session.segments.size() <= known + 1, "at most one segment is added at a time");
        if (session.segments.size() > known) {
            const auto& added = session.segments.back();
            const auto room = session.target - (session.activeDuration() - added.duration);
            const auto ran = clock_->uptime() - anchorUptime_;
            require(added.start == anchorDate_, "a segment starts where the one before was closed");
            require(added.duration > 0, "no segment is empty");
            require(added.duration == (session.mode == FocusMode::countdown ? std::min(ran, room) : ran),
                    "a segment is as long as the clock ran");
        }
        anchorDate_ = clock_->now();
        anchorUptime_ = clock_->uptime();
        if (stored == store_.end())
            store_.push_back(session);
        else
            *stored = session;
    }

    void step() {
        switch (upTo(11)) {
        case 0:
            return begin();
        case 1:
            focus_->pause();
            return noteCommand(FocusStatus::paused);
        case 2:
        case 3:
            return resume();
        case 4:
            focus_->checkpoint();
            return noteCommand(ledger_.status);
        case 5:
            if (upTo(3) == 0) {
                focus_->finish();
                noteCommand(FocusStatus::finished);
            }
            return;
        case 6:
            if (wall_ == WallClock::steady) return;
            // By minutes mostly, as a time server or a traveller does, and sometimes by months.
            return clock_->stepWall(std::floor(between(-1, 1) * (upTo(9) == 0 ? 2e7 : 7200)));
        case 7: {
            const auto seconds = quarters(8 * 3600);
            if (wall_ == WallClock::steady) {
                focus_->pause();
                noteCommand(FocusStatus::paused);
            }
            lived_ += seconds;
            return clock_->sleep(seconds);
        }
        case 8:
            return kill();
        default:
            return pass(quarters(upTo(2) == 0 ? 4000 : 70));
        }
    }

    void begin() {
        noteCommand(FocusStatus::finished);
        const auto mode = upTo(1) == 0 ? FocusMode::countdown : FocusMode::stopwatch;
        const auto minutes = 1 + upTo(39);
        const planner::PlannerTask task(planner::Uuid::random(), "Write the letter", Instant{0}, 1);
        focus_->start(task, mode, minutes);
        banked_ += ledger_.saved;
        ledger_ = {};
        ledger_.mode = mode;
        ledger_.status = FocusStatus::running;
        ledger_.target = minutes * 60.0;
    }

    void resume() {
        const auto date = anchorDate_;
        const auto uptime = anchorUptime_;
        focus_->resume();
        if (ledger_.status == FocusStatus::running) {
            // Nothing is closed, but the next checkpoint is fifteen seconds from here.
            anchorDate_ = date;
            anchorUptime_ = uptime;
            postponed_ = true;
        }
        if (ledger_.status == FocusStatus::paused) ledger_.status = FocusStatus::running;
        ledger_.countedAtStart = ledger_.counted;
    }

    void pass(double seconds) {
        lived_ += seconds;
        stayAwake(seconds);
        if (ledger_.status != FocusStatus::running) return;
        ledger_.counted += seconds;
        const auto ran = ledger_.counted - ledger_.countedAtStart;
        const auto lastCheckpoint = std::floor(ran / checkpointEvery) * checkpointEvery;
        if (lastCheckpoint > 0) {
            ledger_.saved = std::max(ledger_.saved, ledger_.capped(ledger_.countedAtStart + lastCheckpoint));
            postponed_ = false;
        }
        // Only a tick notices the end, and ticks come in whole seconds.
        if (ledger_.countdown() && ledger_.countedAtStart + std::floor(ran) >= ledger_.target) runOut();
    }

    void stayAwake(double seconds) {
        awake_.segments.push_back({clock_->now(), seconds});
        clock_->advance(seconds);
    }

    void runOut() {
        ledger_.counted = ledger_.saved = ledger_.target;
        ledger_.status = FocusStatus::finished;
        ++expectedCompleted_;
    }

    /// A command closes what runs; one that finds the countdown at its end completes it.
    void noteCommand(FocusStatus after) {
        if (ledger_.status == FocusStatus::running) {
            if (ledger_.countdown() && ledger_.counted >= ledger_.target) return runOut();
            ledger_.saved = ledger_.counted;
            postponed_ = false;
        }
        if (ledger_.status != FocusStatus::finished) ledger_.status = after;
    }

    /// The program dies between two moments and is started again, after a restart of the machine or
    /// not. What was not saved is lost, and nothing else.
    void kill() {
        ++kills_;
        focus_.reset();
        require(clock_->pending() == 0, "a dead program has no timers");
        if (upTo(2) == 0) clock_->setUptime(quarters(100));
        const auto away = quarters(3600);
        stayAwake(away);
        lived_ += away;
        launch();
        const auto open = std::ranges::find_if(
            store_, [](const auto& session) { return session.status != FocusStatus::finished; });
        if (open == store_.end()) return;
        focus_->restore(*open);
        require(focus_->recovered() == (ledger_.status == FocusStatus::running),
                "a session that ran when the program died is recovered");
        ledger_.status = FocusStatus::paused;
        ledger_.counted = ledger_.saved;
        postponed_ = false;
        record(focus_->engine()->session);
    }

    void check() {
        require(completed_ == expectedCompleted_, "each countdown that ran out completed once");
        require(store_.empty() || total() == banked_ + ledger_.saved, "the store holds what was counted");
        if (!focus_->engine()) return;
        const auto& engine = *focus_->engine();
        require(engine.session.status == ledger_.status, "the status is the ledger's");
        require(engine.elapsed(clock_->uptime()) == ledger_.capped(ledger_.counted),
                "the time shown is the ledger's");
        require(ledger_.counted - ledger_.saved < checkpointEvery || postponed_ || overdue(),
                "a crash would lose less than fifteen seconds");
        require(focus_->isRunning() == (clock_->tickers() == 1), "it ticks exactly while it runs");
        const auto open = std::ranges::count_if(
            store_, [](const auto& session) { return session.status != FocusStatus::finished; });
        require(open <= 1, "at most one session is open");
    }

    /// Past its target, until the next tick sees it.
    bool overdue() const { return ledger_.countdown() && ledger_.counted >= ledger_.target; }

    double total() const {
        double sum = 0;
        for (const auto& session : store_) sum += session.activeDuration();
        return sum;
    }

    /// Every counted second lies on exactly one of the zone's days, and, where the clock is honest, no day
    /// has more of them than it was awake.
    void checkDays() const {
        auto first = clock_->now();
        auto last = first;
        planner::RecordList<FocusSession> sessions;
        for (const auto& session : store_) {
            sessions.push_back(session);
            for (const auto& segment : session.segments) {
                first = std::min(first, segment.start);
                last = std::max(last, segment.start + segment.duration);
            }
        }
        const planner::RecordList<FocusSession> awake{awake_};
        double sum = 0;
        for (auto day = *calendar_.startOfDay(first); day <= last; day = *calendar_.startOfDay(day, 1)) {
            const auto focused = planner::dates::focusSeconds(day, sessions, calendar_);
            sum += focused;
            require(wall_ == WallClock::stepped ||
                        focused <= planner::dates::focusSeconds(day, awake, calendar_),
                    "no day has more focus than it was awake");
        }
        require(sum == total(), "the days add up to what was counted");
    }

    std::mt19937_64 random_;
    WallClock wall_;
    planner::Calendar calendar_;
    std::unique_ptr<FakeClock> clock_;
    std::unique_ptr<FocusController> focus_;
    std::vector<FocusSession> store_;
    /// When the machine was awake, as segments.
    FocusSession awake_;
    Ledger ledger_;
    /// Counted by the sessions before the present one.
    double banked_ = 0;
    double lived_ = 0;
    Instant anchorDate_;
    double anchorUptime_ = 0;
    /// Whether a running session was told to go on, which starts its ticks anew.
    bool postponed_ = false;
    int completed_ = 0;
    int expectedCompleted_ = 0;
    int kills_ = 0;
};

} // namespace

class FocusSimulationTests : public QObject {
    Q_OBJECT

private slots:
    void noSecondIsCountedTwiceOrInvented() {
        const auto base = orvane::test::seed();
        const auto zones = planner::test::allTimeZones();
        // Twice as many days in every zone there is, where there is time for it.
        const bool everywhere = qEnvironmentVariableIsSet("ORVANE_EVERY_ZONE");
        const double days = everywhere ? 12 : 6;
        std::size_t lives = 0;
        std::size_t sessions = 0;
        double counted = 0;
        int kills = 0;
        for (std::size_t index = 0; index < zones.size(); index += everywhere ? 1 : 7)
            for (const auto wall : {WallClock::stepped, WallClock::steady}) {
                try {
                    Life life(zones[index], base + 2 * index + std::size_t(wall), wall);
                    life.run(days);
                    ++lives;
                    sessions += life.sessions();
                    counted += life.counted();
                    kills += life.kills();
                } catch (const Mismatch& mismatch) {
                    QFAIL(qPrintable(
                        QStringLiteral("%1, in %2 with ORVANE_SEED=%3")
                            .arg(QString::fromStdString(mismatch.what), QString::fromStdString(zones[index]))
                            .arg(base)));
                }
            }
        qInfo("%zu lives, %.0f days, %zu sessions, %.0f hours counted, %d kills", lives, double(lives) * days,
              sessions, counted / 3600, kills);
        // A simulation in which nothing happens proves nothing.
        QVERIFY(double(lives) * days >= (everywhere ? 10'000 : 1'000));
        QVERIFY(sessions > lives * 10);
        QVERIFY(kills > int(lives) * 10);
    }
};

QTEST_GUILESS_MAIN(FocusSimulationTests)
#include "FocusSimulationTests.moc"
