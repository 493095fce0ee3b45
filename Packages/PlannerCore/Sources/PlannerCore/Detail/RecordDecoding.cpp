#include <PlannerCore/Detail/RecordCoding.h>

#include <PlannerCore/Detail/JsonReader.h>

#include <array>
#include <cassert>
#include <cstdint>
#include <span>

namespace planner::detail {

namespace {

/// A JSON value as it meets a field. `text` is a string's text or a number's spelling.
struct Value {
    enum class Kind { null, boolean, number, string, object, array };
    Kind kind;
    std::string_view text = {};
};

std::string_view describe(Value::Kind kind) {
    switch (kind) {
    case Value::Kind::null:
        return "null";
    case Value::Kind::boolean:
        return "a boolean";
    case Value::Kind::number:
        return "a number";
    case Value::Kind::string:
        return "a string";
    case Value::Kind::object:
        return "an object";
    case Value::Kind::array:
        break;
    }
    return "an array";
}

class Decoder;
struct Shape;

/// One key of a record: either a plain value that `set` takes over, or a list of `elements`.
struct Field {
    std::string_view key;
    void (*set)(Decoder&, const Value&) = nullptr;
    const Shape* elements = nullptr;
    bool optional = false;
};

/// What a record consists of. `begin` and `end` stand around its fields.
struct Shape {
    std::string_view name;
    std::span<const Field> fields;
    void (*begin)(Decoder&);
    void (*end)(Decoder&);
};

/// Builds records from the events of one document. The record being read is a member of its own for
/// each kind; a list's record is moved to its list when it ends.
class Decoder final : public JsonEvents {
public:
    explicit Decoder(const Shape& root) : root_(root) {}

    PlannerTask task;
    DailyNote note;
    FocusSegment segment;
    FocusSession session;
    PlannerSnapshot snapshot;

    Instant instant(const Value& value) const { return {number(value)}; }

    double number(const Value& value) const {
        expect(value, Value::Kind::number);
        return doubleFromJson(value.text);
    }

    std::int64_t integer(const Value& value) const {
        expect(value, Value::Kind::number);
        return integerFromJson(value.text);
    }

    std::string_view text(const Value& value) const {
        expect(value, Value::Kind::string);
        return value.text;
    }

    Uuid uuid(const Value& value) const {
        const auto uuid = Uuid::parse(text(value));
        if (!uuid) refuse("a UUID", "other text");
        return *uuid;
    }

    /// The case that `parse` finds for a stored word.
    template <class Parse>
    auto word(const Value& value, Parse parse) const {
        const auto found = parse(text(value));
        if (!found) refuse("one of its words", "other text");
        return *found;
    }

    void null() override { take({Value::Kind::null}); }
    void boolean(bool) override { take({Value::Kind::boolean}); }
    void number(std::string_view spelling) override { take({Value::Kind::number, spelling}); }
    void string(std::string_view text) override { take({Value::Kind::string, text}); }

    void key(std::string_view text) override {
        if (skipped_ > 0) return;
        auto& frame = top();
        frame.field = find(frame, text);
    }

    void beginObject() override {
        if (skipped_ > 0) {
            ++skipped_;
        } else if (depth_ == 0) {
            push(root_);
        } else if (top().inList) {
            push(*top().field->elements);
        } else {
            take({Value::Kind::object});
        }
    }

    void endObject() override {
        if (skipped_ > 0) {
            --skipped_;
            return;
        }
        const auto& frame = top();
        for (std::size_t index = 0; index < frame.shape->fields.size(); ++index) {
            const auto& field = frame.shape->fields[index];
            if (!field.optional && (frame.seen & bit(index)) == 0)
                throw JsonError(about(frame, field) + " is missing");
        }
        frame.shape->end(*this);
        --depth_;
    }

    void beginArray() override {
        if (skipped_ > 0) {
            ++skipped_;
        } else if (depth_ > 0 && !top().inList && top().field && top().field->elements) {
            markSeen();
            top().inList = true;
        } else {
            take({Value::Kind::array});
        }
    }

    void endArray() override {
        if (skipped_ > 0)
            --skipped_;
        else
            top().inList = false;
    }

private:
    struct Frame {
        const Shape* shape = nullptr;
        /// The field whose value is next or open; none for a key that the record does not have.
        const Field* field = nullptr;
        /// Which fields were there, a bit each.
        std::uint32_t seen = 0;
        bool inList = false;
    };

    static std::uint32_t bit(std::size_t index) { return std::uint32_t(1) << index; }

    static std::string about(const Frame& frame, const Field& field) {
        return "\"" + std::string(field.key) + "\" of a " + std::string(frame.shape->name);
    }

    /// Writers sort the keys, so the next one is most often the one after the last.
    static const Field* find(const Frame& frame, std::string_view key) {
        const auto fields = frame.shape->fields;
        const auto after = frame.field ? std::size_t(frame.field - fields.data()) + 1 : 0;
        for (auto index = after; index < fields.size(); ++index)
            if (fields[index].key == key) return &fields[index];
        for (std::size_t index = 0; index < after; ++index)
            if (fields[index].key == key) return &fields[index];
        return nullptr;
    }

    Frame& top() { return frames_[depth_ - 1]; }
    const Frame& top() const { return frames_[depth_ - 1]; }

    void push(const Shape& shape) {
        assert(depth_ < frames_.size());
        frames_[depth_++] = {&shape};
        shape.begin(*this);
    }

    void markSeen() {
        auto& frame = top();
        const auto mark = bit(std::size_t(frame.field - frame.shape->fields.data()));
        if ((frame.seen & mark) != 0) throw JsonError(about(frame, *frame.field) + " is given twice");
        frame.seen |= mark;
    }

    /// A value that is neither the root object nor a list or a record where one belongs.
    void take(const Value& value) {
        if (skipped_ > 0) return;
        if (depth_ == 0) refuseRoot(value);
        const bool nested = value.kind == Value::Kind::object || value.kind == Value::Kind::array;
        const auto* const field = top().field;
        if (!field) {
            skipped_ = nested ? 1 : 0;
            return;
        }
        if (top().inList) refuse("objects", describe(value.kind));
        markSeen();
        if (field->elements) refuse("an array", describe(value.kind));
        if (value.kind == Value::Kind::null && field->optional) return;
        field->set(*this, value);
    }

    void expect(const Value& value, Value::Kind kind) const {
        if (value.kind != kind) refuse(describe(kind), describe(value.kind));
    }

    [[noreturn]] void refuse(std::string_view expected, std::string_view found) const {
        throw JsonError(about(top(), *top().field) + " must hold " + std::string(expected) + ", not " +
                        std::string(found));
    }

    [[noreturn]] void refuseRoot(const Value& value) const {
        throw JsonError("A " + std::string(root_.name) + " must be an object, not " +
                        std::string(describe(value.kind)));
    }

    const Shape& root_;
    /// A snapshot's sessions' segments are as deep as known records go.
    std::array<Frame, 3> frames_;
    std::size_t depth_ = 0;
    /// How many objects and arrays are open inside the value of an unknown key.
    std::size_t skipped_ = 0;
};

// The fields in alphabetical order, as they are written.

constexpr Field taskFields[] = {
    {.key = "completedAt",
     .set = [](Decoder& d, const Value& v) { d.task.completedAt = d.instant(v); },
     .optional = true},
    {.key = "createdAt", .set = [](Decoder& d, const Value& v) { d.task.createdAt = d.instant(v); }},
    {.key = "id", .set = [](Decoder& d, const Value& v) { d.task.id = d.uuid(v); }},
    {.key = "order", .set = [](Decoder& d, const Value& v) { d.task.order = d.integer(v); }},
    {.key = "reminderAt",
     .set = [](Decoder& d, const Value& v) { d.task.reminderAt = d.instant(v); },
     .optional = true},
    {.key = "title", .set = [](Decoder& d, const Value& v) { d.task.title = d.text(v); }},
};

constexpr Field noteFields[] = {
    {.key = "id", .set = [](Decoder& d, const Value& v) { d.note.id = d.text(v); }},
    {.key = "text", .set = [](Decoder& d, const Value& v) { d.note.text = d.text(v); }},
    {.key = "updatedAt", .set = [](Decoder& d, const Value& v) { d.note.updatedAt = d.instant(v); }},
};

constexpr Field segmentFields[] = {
    {.key = "duration", .set = [](Decoder& d, const Value& v) { d.segment.duration = d.number(v); }},
    {.key = "start", .set = [](Decoder& d, const Value& v) { d.segment.start = d.instant(v); }},
};

constexpr Shape segmentInSession{.name = "segment",
                                 .fields = segmentFields,
                                 .begin = [](Decoder& d) { d.segment = {}; },
                                 .end = [](Decoder& d) { d.session.segments.push_back(d.segment); }};

constexpr Field sessionFields[] = {
    {.key = "createdAt", .set = [](Decoder& d, const Value& v) { d.session.createdAt = d.instant(v); }},
    {.key = "id", .set = [](Decoder& d, const Value& v) { d.session.id = d.uuid(v); }},
    {.key = "mode", .set = [](Decoder& d, const Value& v) { d.session.mode = d.word(v, focusMode); }},
    {.key = "segments", .elements = &segmentInSession},
    {.key = "status", .set = [](Decoder& d, const Value& v) { d.session.status = d.word(v, focusStatus); }},
    {.key = "target", .set = [](Decoder& d, const Value& v) { d.session.target = d.number(v); }},
    {.key = "taskID", .set = [](Decoder& d, const Value& v) { d.session.taskID = d.uuid(v); }},
    {.key = "title", .set = [](Decoder& d, const Value& v) { d.session.title = d.text(v); }},
};

void stay(Decoder&) {}

constexpr Shape taskAlone{.name = "task", .fields = taskFields, .begin = stay, .end = stay};
constexpr Shape noteAlone{.name = "note", .fields = noteFields, .begin = stay, .end = stay};
constexpr Shape sessionAlone{.name = "session", .fields = sessionFields, .begin = stay, .end = stay};

constexpr Shape taskInSnapshot{.name = "task",
                               .fields = taskFields,
                               .begin = [](Decoder& d) { d.task = {}; },
                               .end = [](Decoder& d) { d.snapshot.tasks.push_back(std::move(d.task)); }};
constexpr Shape noteInSnapshot{.name = "note",
                               .fields = noteFields,
                               .begin = [](Decoder& d) { d.note = {}; },
                               .end = [](Decoder& d) { d.snapshot.notes.push_back(std::move(d.note)); }};
constexpr Shape sessionInSnapshot{
    .name = "session",
    .fields = sessionFields,
    .begin = [](Decoder& d) { d.session = {}; },
    .end = [](Decoder& d) { d.snapshot.sessions.push_back(std::move(d.session)); }};

constexpr Field snapshotFields[] = {
    {.key = "notes", .elements = &noteInSnapshot},
    {.key = "schemaVersion",
     .set = [](Decoder& d, const Value& v) { d.snapshot.schemaVersion = d.integer(v); }},
    {.key = "sessions", .elements = &sessionInSnapshot},
    {.key = "tasks", .elements = &taskInSnapshot},
};

constexpr Shape snapshotAlone{.name = "planner", .fields = snapshotFields, .begin = stay, .end = stay};

} // namespace

PlannerTask decodeTask(std::string_view json) {
    Decoder decoder(taskAlone);
    readJson(json, decoder);
    return std::move(decoder.task);
}

DailyNote decodeNote(std::string_view json) {
    Decoder decoder(noteAlone);
    readJson(json, decoder);
    return std::move(decoder.note);
}

FocusSession decodeSession(std::string_view json) {
    Decoder decoder(sessionAlone);
    readJson(json, decoder);
    return std::move(decoder.session);
}

PlannerSnapshot decodeSnapshot(std::string_view json) {
    Decoder decoder(snapshotAlone);
    readJson(json, decoder);
    return std::move(decoder.snapshot);
}

} // namespace planner::detail
