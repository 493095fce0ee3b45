#include "Orvane/ModelFixture.h"
#include "Orvane/Seed.h"
#include "TestScale.h"

#include <QTest>

#include <algorithm>
#include <deque>
#include <map>
#include <random>

using namespace orvane;
using namespace orvane::test;
using planner::PlannerTask;
using planner::Uuid;
using List = std::vector<PlannerTask>;
/// By their days.
using Notes = std::map<std::string, planner::DailyNote>;

namespace {

constexpr int commands = 100'000;

/// What the model ought to do, written down the plain way.
struct Reference {
    struct Save {
        std::int64_t revision;
        List tasks;
        Notes notes;
        int flushes = 0;
    };

    List tasks;
    Notes notes;
    std::string day;
    /// Whether a note waits for a pause in typing.
    bool typing = false;
    /// Seconds since the last key.
    double quiet = 0;
    std::optional<PlannerTask> deleted;
    /// What the store holds.
    List stored;
    Notes storedNotes;
    std::int64_t revision = 0;
    std::int64_t lastSaved = 0;
    QString state = QStringLiteral("Saved on this Mac");
    /// Saves that the model has not heard of yet, oldest first.
    std::deque<Save> saves;
    /// How the oldest one went, once it has reached the store.
    std::optional<bool> outcome;
    bool eitherWay = false;
    std::vector<bool> flushAnswers;

    List::iterator find(const Uuid& id) {
        return std::find_if(tasks.begin(), tasks.end(), [&](const auto& task) { return task.id == id; });
    }

    void persist() {
        saves.push_back({++revision, tasks, notes, 0});
        state = QStringLiteral("Saving…");
    }

    void pass(double seconds) {
        quiet += seconds;
        if (quiet > 0.4 && std::exchange(typing, false)) persist();
    }

    void write(const std::string& text, planner::Instant now) {
        notes.insert_or_assign(day, planner::DailyNote(day, text, now));
        state = QStringLiteral("Saving…");
        typing = true;
        quiet = 0;
    }

    void add(const Uuid& id, std::string title, planner::Instant now) {
        std::int64_t order = -1;
        for (const auto& task : tasks) order = std::max(order, task.order);
        tasks.push_back({id, std::move(title), now, order + 1});
        persist();
    }

    void undo() {
        if (!deleted) return;
        if (find(deleted->id) == tasks.end()) tasks.push_back(*deleted);
        deleted.reset();
        persist();
    }

    void move(const Uuid& moved, const std::optional<Uuid>& before) {
        if (moved == before || find(moved) == tasks.end()) return;
        const auto task = *find(moved);
        tasks.erase(find(moved));
        tasks.insert(before ? find(*before) : tasks.end(), task);
        for (std::size_t i = 0; i < tasks.size(); ++i) tasks[i].order = std::int64_t(i);
        persist();
    }

    void moveBy(const Uuid& id, int offset) {
        List open;
        for (const auto& task : tasks)
            if (!task.isComplete()) open.push_back(task);
        const auto at =
            std::find_if(open.begin(), open.end(), [&](const auto& task) { return task.id == id; });
        const auto neighbour = at - open.begin() + offset;
        if (at == open.end() || neighbour < 0 || neighbour >= std::ptrdiff_t(open.size())) return;
        const auto passed = open[std::size_t(neighbour)].id;
        if (offset < 0)
            move(id, passed);
        else
            move(passed, id);
    }

    /// The oldest save reaches the store, which takes it unless it must write and cannot. What is there
    /// already needs no writing, but a store that looks again at a broken disk may fail all the same.
    void write(bool broken) {
        const bool unchanged =
            byId(saves.front().tasks) == byId(stored) && saves.front().notes == storedNotes;
        eitherWay = broken && unchanged;
        outcome = !broken || unchanged;
        if (!*outcome) return;
        stored = saves.front().tasks;
        storedNotes = saves.front().notes;
    }

    /// The model hears how the oldest save went.
    void settle() {
        const auto save = saves.front();
        saves.pop_front();
        if (!*outcome)
            state = QStringLiteral("Not saved");
        else {
            lastSaved = save.revision;
            if (revision == save.revision && !typing) state = QStringLiteral("Saved on this Mac");
        }
        outcome.reset();
        flushAnswers.insert(flushAnswers.end(), std::size_t(save.flushes), lastSaved == revision);
    }

    /// As a store keeps them: it knows no sequence.
    static List byId(List tasks) {
        std::sort(tasks.begin(), tasks.end(),
                  [](const auto& left, const auto& right) { return left.id < right.id; });
        return tasks;
    }

    /// As a store is opened: by order, then age.
    static List sorted(List tasks) {
        std::sort(tasks.begin(), tasks.end(), [](const auto& left, const auto& right) {
            return left.order != right.order ? left.order < right.order : left.createdAt < right.createdAt;
        });
        return tasks;
    }
};

Notes asNotes(const planner::RecordList<planner::DailyNote>& notes) {
    Notes all;
    for (const auto& note : notes)
        if (!all.emplace(note.id, note).second) qFatal("a day has two notes");
    return all;
}

List asList(const planner::RecordList<PlannerTask>& tasks) {
    return {tasks.begin(), tasks.end()};
}

/// Gives a model and the reference the same commands and compares them.
class Comparison {
public:
    explicit Comparison(unsigned seed) : random_(seed) {
        house_.load();
        reference_.day = house_.model->noteDay().toStdString();
        reader_ = std::make_unique<planner::PlannerRepository>(house_.folder());
    }

    /// One command, and some progress of the saves. Says wherein the two differ, nothing when they agree.
    QString step() {
        const double seconds = below(4) == 0 ? 1 : 0.11;
        house_.platform.clock.advance(seconds);
        reference_.pass(seconds);
        command();
        if (below(200) == 0) breakOrMend();
        const auto most = reference_.saves.size() > 20 ? 40u : below(4);
        for (std::size_t i = 0; i < most; ++i) progress();
        if (below(2000) == 0) restart();
        return difference();
    }

    /// Mends the disk, lets all saves through and compares what is stored.
    bool end() {
        house_.disk.heal();
        broken_ = false;
        house_.model->flush([](bool) {});
        reference_.typing = false;
        reference_.persist();
        while (!reference_.saves.empty()) progress();
        return difference().isEmpty() && reference_.state == QStringLiteral("Saved on this Mac") &&
               storeAgrees() && reference_.stored == reference_.tasks &&
               reference_.storedNotes == reference_.notes;
    }

    std::size_t failures() const { return failures_; }

private:
    std::size_t below(std::size_t bound) { return bound == 0 ? 0 : random_() % bound; }
    Uuid anyTask() {
        if (reference_.tasks.empty() || below(50) == 0) return Uuid::random();
        return reference_.tasks[below(reference_.tasks.size())].id;
    }
    static PlannerTask named(const Uuid& id) { return {id, "an old title", {0}, 0}; }

    void command() {
        auto& model = *house_.model;
        const auto now = house_.platform.clock.now();
        const auto id = anyTask();
        if (below(4) == 0) return note();
        switch (below(reference_.tasks.size() > 40 ? 10 : 13)) {
        case 0:
            if (const auto found = reference_.find(id); found != reference_.tasks.end()) {
                found->title = "Renamed " + std::to_string(now.seconds);
                reference_.persist();
            }
            return model.rename(named(id), QString::fromStdString("Renamed " + std::to_string(now.seconds)));
        case 1:
        case 2:
            if (const auto found = reference_.find(id); found != reference_.tasks.end()) {
                found->completedAt = found->isComplete() ? std::nullopt : std::optional(now);
                reference_.persist();
            }
            return model.toggle(named(id));
        case 3:
            if (const auto found = reference_.find(id); found != reference_.tasks.end()) {
                reference_.deleted = *found;
                reference_.tasks.erase(found);
                reference_.persist();
            }
            return model.deleteTask(named(id));
        case 4:
            reference_.undo();
            return model.undoDelete();
        case 5: {
            const auto before = anyTask();
            reference_.move(id, reference_.find(before) == reference_.tasks.end() ? std::nullopt
                                                                                  : std::optional(before));
            return model.moveTask(id, before);
        }
        case 6: {
            const auto offset = int(below(7)) - 3;
            reference_.moveBy(id, offset);
            return model.moveTask(named(id), offset);
        }
        case 7:
            reference_.persist();
            return model.persist();
        case 8:
            reference_.typing = false;
            reference_.persist();
            ++reference_.saves.back().flushes;
            return model.flush([this](bool everything) { flushAnswers_.push_back(everything); });
        case 9:
            model.addTask(below(2) == 0 ? QStringLiteral(" ") : QString(1001, u'x'));
            return;
        default: {
            const auto title = "Task " + std::to_string(now.seconds);
            if (const auto added = model.addTask(QString::fromStdString(title)))
                reference_.add(*added, title, now);
        }
        }
    }

    void note() {
        auto& model = *house_.model;
        if (below(8) > 0) {
            const auto now = house_.platform.clock.now();
            const auto text = "Noted " + std::to_string(now.seconds);
            reference_.write(text, now);
            return model.updateNote(QString::fromStdString(text));
        }
        reference_.typing = false;
        reference_.persist();
        model.selectNoteDayBy(int(below(5)) - 2);
        reference_.day = model.noteDay().toStdString();
    }

    void breakOrMend() {
        broken_ = !broken_;
        if (broken_)
            house_.disk.failWrites(below(2) == 0 ? SQLITE_FULL : SQLITE_IOERR);
        else
            house_.disk.heal();
    }

    /// The oldest save gets half its way: into the store, or back to the model.
    void progress() {
        auto& worker = house_.platform.storeExecutor;
        if (worker.waiting() + worker.untold() != (reference_.saves.empty() ? 0u : 1u))
            qFatal("saves overlap or are missing");
        if (reference_.saves.empty()) return;
        if (reference_.outcome) {
            worker.tell();
            if (reference_.eitherWay) reference_.outcome = house_.platform.log.lines().size() == failures_;
            failures_ += *reference_.outcome ? 0 : 1;
            reference_.settle();
        } else {
            reference_.write(broken_);
            worker.work();
        }
    }

    /// The model goes with its saves in the air; a new one opens what has reached the store by then.
    void restart() {
        auto& worker = house_.platform.storeExecutor;
        house_.model.reset();
        for (; !reference_.saves.empty(); worker.tell()) {
            if (!reference_.outcome) {
                reference_.write(broken_);
                worker.work();
            }
            reference_.outcome.reset();
            reference_.saves.pop_front();
        }
        house_.disk.heal();
        broken_ = false;
        house_.renew();
        house_.load();
        const auto stored = Reference::sorted(reference_.stored);
        const auto notes = reference_.storedNotes;
        reference_ = {};
        reference_.notes = reference_.storedNotes = notes;
        reference_.day = house_.model->noteDay().toStdString();
        reference_.tasks = reference_.stored = stored;
        flushAnswers_.clear();
    }

    bool storeAgrees() {
        const auto found = reader_->load();
        return asList(found.tasks) == Reference::sorted(reference_.stored) &&
               asNotes(found.notes) == reference_.storedNotes;
    }

    QString difference() {
        const auto& model = *house_.model;
        const bool look = !broken_ && below(10) == 0;
        if (asList(model.snapshot().tasks) != reference_.tasks) return QStringLiteral("the tasks");
        if (asNotes(model.snapshot().notes) != reference_.notes) return QStringLiteral("the notes");
        if (model.saveState() != reference_.state)
            return model.saveState() + QStringLiteral(" for ") + reference_.state;
        if (model.revision() != reference_.revision) return QStringLiteral("the revision");
        if (model.lastSavedRevision() != reference_.lastSaved)
            return QStringLiteral("the last saved revision");
        if (flushAnswers_ != reference_.flushAnswers) return QStringLiteral("the answers to flush");
        if (model.canUndoDelete() != reference_.deleted.has_value()) return QStringLiteral("the undo");
        if (look && !storeAgrees()) return QStringLiteral("the store");
        return {};
    }

    std::mt19937 random_;
    ModelFixture house_;
    Reference reference_;
    /// Looks at the store from outside.
    std::unique_ptr<planner::PlannerRepository> reader_;
    std::vector<bool> flushAnswers_;
    bool broken_ = false;
    std::size_t failures_ = 0;
};

} // namespace

class AppModelRandomTests : public QObject {
    Q_OBJECT

private slots:
    void nothingIsLostAndNothingInventedWhateverTheCommandsAndTheDisk() {
        Comparison comparison(seed());
        const auto count = scaled(commands);
        for (int step = 0; step < count; ++step) {
            const auto difference = comparison.step();
            QVERIFY2(difference.isEmpty(), qPrintable(QStringLiteral("command %1: ").arg(step) + difference));
        }
        QVERIFY(comparison.end());
        QVERIFY(count < 10'000 || comparison.failures() > 0);
    }
};

QTEST_GUILESS_MAIN(AppModelRandomTests)
#include "AppModelRandomTests.moc"
