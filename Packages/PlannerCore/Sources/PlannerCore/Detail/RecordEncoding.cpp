#include <PlannerCore/Detail/RecordCoding.h>

#include <PlannerCore/Detail/JsonWriter.h>

namespace planner::detail {

namespace {

using Layout = JsonWriter::Layout;

void writeInstant(JsonWriter& json, std::string_view key, Instant instant) {
    json.key(key);
    json.number(instant.seconds);
}

void writeText(JsonWriter& json, std::string_view key, std::string_view text) {
    json.key(key);
    json.string(text);
}

void writePlain(JsonWriter& json, std::string_view key, std::string_view text) {
    json.key(key);
    json.plain(text);
}

void writeUuid(JsonWriter& json, std::string_view key, const Uuid& uuid) {
    const auto characters = uuid.characters();
    writePlain(json, key, {characters.data(), characters.size()});
}

void write(JsonWriter& json, const PlannerTask& task) {
    json.beginObject();
    if (task.completedAt) writeInstant(json, "completedAt", *task.completedAt);
    writeInstant(json, "createdAt", task.createdAt);
    writeUuid(json, "id", task.id);
    json.key("order");
    json.integer(task.order);
    if (task.reminderAt) writeInstant(json, "reminderAt", *task.reminderAt);
    writeText(json, "title", task.title);
    json.endObject();
}

void write(JsonWriter& json, const DailyNote& note) {
    json.beginObject();
    writeText(json, "id", note.id);
    writeText(json, "text", note.text);
    writeInstant(json, "updatedAt", note.updatedAt);
    json.endObject();
}

void write(JsonWriter& json, const FocusSegment& segment) {
    json.beginObject();
    json.key("duration");
    json.number(segment.duration);
    writeInstant(json, "start", segment.start);
    json.endObject();
}

template <class Records>
void writeList(JsonWriter& json, std::string_view key, const Records& records);

void write(JsonWriter& json, const FocusSession& session) {
    json.beginObject();
    writeInstant(json, "createdAt", session.createdAt);
    writeUuid(json, "id", session.id);
    writePlain(json, "mode", rawValue(session.mode));
    writeList(json, "segments", session.segments);
    writePlain(json, "status", rawValue(session.status));
    json.key("target");
    json.number(session.target);
    writeUuid(json, "taskID", session.taskID);
    writeText(json, "title", session.title);
    json.endObject();
}

void write(JsonWriter& json, const PlannerSnapshot& snapshot) {
    json.beginObject();
    writeList(json, "notes", snapshot.notes);
    json.key("schemaVersion");
    json.integer(snapshot.schemaVersion);
    writeList(json, "sessions", snapshot.sessions);
    writeList(json, "tasks", snapshot.tasks);
    json.endObject();
}

template <class Records>
void writeList(JsonWriter& json, std::string_view key, const Records& records) {
    json.key(key);
    json.beginArray();
    for (const auto& record : records) {
        json.element();
        write(json, record);
    }
    json.endArray();
}

template <class Record>
void writeTo(std::string& out, const Record& record, Layout layout) {
    JsonWriter json(out, layout);
    write(json, record);
}

} // namespace

void encode(const PlannerTask& task, std::string& out) {
    writeTo(out, task, Layout::compact);
}

void encode(const DailyNote& note, std::string& out) {
    writeTo(out, note, Layout::compact);
}

void encode(const FocusSession& session, std::string& out) {
    writeTo(out, session, Layout::compact);
}

void encodeIndented(const PlannerSnapshot& snapshot, std::string& out) {
    writeTo(out, snapshot, Layout::indented);
}

} // namespace planner::detail
