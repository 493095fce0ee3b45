#include <PlannerCore/Detail/JsonReader.h>
#include <PlannerCore/Detail/RecordCoding.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

using namespace planner;
using namespace planner::detail;
using namespace std::string_view_literals;

namespace {

constexpr auto note = R"({"id":"2026-03-07","text":"Hello","updatedAt":5})"sv;

/// What decoding says, or nothing when it succeeds.
std::string problemOf(const std::function<void()>& decode) {
    try {
        decode();
        return {};
    } catch (const JsonError& error) {
        return error.what();
    }
}

std::string problemOfNote(std::string_view json) {
    return problemOf([&] { decodeNote(json); });
}

std::string noteWith(std::string_view members) {
    return std::string(note.substr(0, note.size() - 1)) + "," + std::string(members) + "}";
}

struct Member {
    std::string key;
    std::string value;
};

std::string object(const std::vector<Member>& members) {
    std::string json = "{";
    for (const auto& [key, value] : members) json += (json.size() > 1 ? ",\"" : "\"") + key + "\":" + value;
    return json + "}";
}

/// A kind of record with all its required keys.
struct RecordKind {
    std::string name;
    std::vector<Member> required;
    std::function<void(const std::string&)> decode;
};

std::vector<RecordKind> recordKinds() {
    const std::string id = R"("0F8FAD5B-D9CB-469F-A165-70867728950E")";
    const std::vector<Member> task{{"createdAt", "1"}, {"id", id}, {"order", "2"}, {"title", R"("Water")"}};
    const std::vector<Member> day{{"id", R"("2026-03-07")"}, {"text", R"("")"}, {"updatedAt", "1"}};
    const std::vector<Member> segment{{"duration", "1"}, {"start", "2"}};
    const std::vector<Member> session{{"createdAt", "1"},
                                      {"id", id},
                                      {"mode", R"("stopwatch")"},
                                      {"segments", "[]"},
                                      {"status", R"("paused")"},
                                      {"target", "60"},
                                      {"taskID", id},
                                      {"title", R"("Read")"}};
    const std::vector<Member> snapshot{
        {"notes", "[]"}, {"schemaVersion", "1"}, {"sessions", "[]"}, {"tasks", "[]"}};
    const auto inSession = [session](const std::string& record) {
        auto members = session;
        members[3].value = "[" + record + "]";
        decodeSession(object(members));
    };
    const auto inSnapshot = [snapshot](std::size_t list) {
        return [snapshot, list](const std::string& record) {
            auto members = snapshot;
            members[list].value = "[" + record + "]";
            decodeSnapshot(object(members));
        };
    };
    return {{"task", task, [](const std::string& json) { decodeTask(json); }},
            {"note", day, [](const std::string& json) { decodeNote(json); }},
            {"session", session, [](const std::string& json) { decodeSession(json); }},
            {"segment", segment, inSession},
            {"planner", snapshot, [](const std::string& json) { decodeSnapshot(json); }},
            {"note", day, inSnapshot(0)},
            {"session", session, inSnapshot(2)},
            {"task", task, inSnapshot(3)}};
}

bool isNumber(const std::string& value) {
    return value.front() >= '0' && value.front() <= '9';
}

} // namespace

TEST(Decoding, ARecordWithAllItsRequiredKeysIsRead) {
    for (const auto& kind : recordKinds()) EXPECT_NO_THROW(kind.decode(object(kind.required))) << kind.name;
}

TEST(Decoding, EveryMissingRequiredKeyIsRefusedByName) {
    for (const auto& kind : recordKinds())
        for (std::size_t index = 0; index < kind.required.size(); ++index) {
            auto members = kind.required;
            const auto key = members[index].key;
            members.erase(members.begin() + std::ptrdiff_t(index));
            const auto problem = problemOf([&] { kind.decode(object(members)); });
            EXPECT_TRUE(problem.starts_with("\"" + key + "\" of a " + kind.name + " is missing near byte "))
                << problem;
        }
}

TEST(Decoding, EveryValueOfAnotherKindIsRefusedByName) {
    for (const auto& kind : recordKinds())
        for (std::size_t index = 0; index < kind.required.size(); ++index)
            for (const std::string wrong :
                 {"null", "true", "{}", R"("text")", "0.5", "[]", "[[]]", "[1]", "[null]"}) {
                auto members = kind.required;
                const auto& [key, right] = members[index];
                const bool sameKind =
                    wrong == right ||
                    (isNumber(right) && wrong == "0.5" && key != "order" && key != "schemaVersion") ||
                    ((key == "title" || key == "text" || (key == "id" && kind.name == "note")) &&
                     wrong == R"("text")");
                if (sameKind) continue;
                members[index].value = wrong;
                const auto problem = problemOf([&] { kind.decode(object(members)); });
                EXPECT_FALSE(problem.empty()) << kind.name << ' ' << key << ' ' << wrong;
                EXPECT_NE(problem.find(" near byte "), std::string::npos) << problem;
            }
}

TEST(Decoding, EveryKeyGivenTwiceIsRefusedByName) {
    for (const auto& kind : recordKinds())
        for (const auto& member : kind.required) {
            auto members = kind.required;
            members.push_back(member);
            const auto problem = problemOf([&] { kind.decode(object(members)); });
            EXPECT_TRUE(problem.starts_with("\"" + member.key + "\" of a " + kind.name +
                                            " is given twice near byte "))
                << problem;
        }
}

TEST(Decoding, UnknownKeysAreSkippedWithAllThatIsInThem) {
    for (const auto* members :
         {R"("x":1)", R"("x":null,"x":null)", R"("":"")", R"("Text":"other","ID":[])",
          R"("x":{"id":5,"text":[{"text":1}],"updatedAt":{}})", R"("x":[[],[{"id":[]}],"id"])",
          R"("x":-1.5e-7,"y":false,"z":"\ud83d\ude00")"})
        EXPECT_EQ(decodeNote(noteWith(members)), decodeNote(note)) << members;
}

TEST(Decoding, KeysMayStandInAnyOrderAndBeSpelledWithEscapes) {
    EXPECT_EQ(decodeNote(R"( { "updatedAt" : 5 , "\u0074ext" : "Hello" , "id" : "2026-03-07" } )"),
              decodeNote(note));
}

TEST(Decoding, AnUnknownValueAsDeepAsTheLimitIsSkipped) {
    // The record itself is the first level.
    const auto levels = maximumJsonNesting - 1;
    EXPECT_EQ(decodeNote(noteWith("\"x\":" + std::string(levels, '[') + std::string(levels, ']'))),
              decodeNote(note));

    std::string objects;
    for (std::size_t level = 0; level < levels; ++level) objects += R"({"id":)";
    EXPECT_EQ(decodeNote(noteWith("\"x\":" + objects + "1" + std::string(levels, '}'))), decodeNote(note));
}

TEST(Decoding, NestingBombsAreRefused) {
    for (const std::string bomb : {"[", "{\"a\":", "[{\"a\":"})
        for (const auto levels : {maximumJsonNesting, std::size_t(10'000), std::size_t(5'000'000)}) {
            std::string json;
            json.reserve(levels * bomb.size());
            for (std::size_t level = 0; level < levels; ++level) json += bomb;
            const auto problem = problemOfNote(noteWith("\"x\":" + json));
            EXPECT_TRUE(problem.starts_with("Nesting that is too deep near byte ")) << problem;
            EXPECT_FALSE(problemOfNote(json).empty());
        }
}

TEST(Decoding, WhatDoesNotBelongIsNamedWithItsPlace) {
    const auto hello = std::string(note).find("Hello");
    const auto replaced = [&](std::string_view text) { return std::string(note).replace(hello, 5, text); };
    const auto place = " at byte " + std::to_string(hello);
    EXPECT_EQ(problemOfNote("\xEF\xBB\xBF" + std::string(note)), "A byte order mark at byte 0");
    EXPECT_EQ(problemOfNote(replaced("\xC3(")), "A byte that is not UTF-8" + place);
    EXPECT_EQ(problemOfNote(replaced("\xED\xA0\x80")), "A byte that is not UTF-8" + place);
    EXPECT_EQ(problemOfNote(replaced("\0"sv)), "A zero byte" + place);
    EXPECT_EQ(problemOfNote(std::string(note) + '\0'), "A zero byte at byte " + std::to_string(note.size()));
}

TEST(Decoding, HalfOfASurrogatePairIsRefusedWhereverItStands) {
    for (const std::string half : {R"(\ud800)", R"(\uDBFF)", R"(\udc00)", R"(\uDFFF)", R"(\ud83d\ud83d)",
                                   R"(\ude00\ud83d)", R"(\ud83dx)", R"(\ud83d\n)", R"(\ud83d\u0041)"}) {
        EXPECT_FALSE(problemOfNote(R"({"id":"2026-03-07","updatedAt":5,"text":")" + half + "\"}").empty())
            << half;
        EXPECT_FALSE(problemOfNote(noteWith("\"x\":\"" + half + "\"")).empty()) << half;
        EXPECT_FALSE(problemOfNote(noteWith("\"" + half + "\":1")).empty()) << half;
        EXPECT_FALSE(problemOfNote(noteWith("\"x\":{\"" + half + "\":1}")).empty()) << half;
    }
}

TEST(Decoding, MalformedDocumentsAreRefused) {
    for (const auto json : {""sv,
                            " "sv,
                            "null"sv,
                            "true"sv,
                            "1"sv,
                            "\"note\""sv,
                            "[]"sv,
                            "{"sv,
                            "}"sv,
                            "{}"sv,
                            "[{}]"sv,
                            "{]"sv,
                            R"({"id":"a","text":"b","updatedAt":5)"sv,
                            R"({"id":"a","text":"b","updatedAt":5}})"sv,
                            R"({"id":"a","text":"b","updatedAt":5}{})"sv,
                            R"({"id":"a","text":"b","updatedAt":5} x)"sv,
                            R"({"id":"a","text":"b","updatedAt":5},)"sv,
                            R"({"id":"a","text":"b","updatedAt":5,})"sv,
                            R"({"id":"a","text":"b",,"updatedAt":5})"sv,
                            R"({"id":"a","text":"b" "updatedAt":5})"sv,
                            R"({"id":"a","text":"b","updatedAt" 5})"sv,
                            R"({id:"a","text":"b","updatedAt":5})"sv,
                            R"({'id':'a','text':'b','updatedAt':5})"sv,
                            R"({"id":"a","text":"b","updatedAt":5} // end)"sv,
                            R"({"id":"a","text":"b\","updatedAt":5})"sv,
                            R"({"id":"a","text":"\x","updatedAt":5})"sv,
                            R"({"id":"a","text":"\u12","updatedAt":5})"sv,
                            R"({"id":"a","text":"\u12G4","updatedAt":5})"sv,
                            "{\"id\":\"a\",\"text\":\"line\nbreak\",\"updatedAt\":5}"sv,
                            "{\"id\":\"a\",\"text\":\"\t\",\"updatedAt\":5}"sv,
                            R"({"id":"a","text":"b","updatedAt":5,"x":[1,]})"sv,
                            R"({"id":"a","text":"b","updatedAt":5,"x":tru})"sv,
                            R"({"id":"a","text":"b","updatedAt":5,"x":1 2})"sv}) {
        const auto problem = problemOfNote(json);
        EXPECT_NE(problem.find(" byte "), std::string::npos) << json << ": " << problem;
    }
}

TEST(Decoding, EveryDocumentCutShortIsRefused) {
    for (const auto& kind : recordKinds()) {
        const auto json = object(kind.required);
        for (std::size_t length = 1; length < json.size(); ++length)
            EXPECT_FALSE(problemOf([&] { kind.decode(json.substr(0, length)); }).empty())
                << json.substr(0, length);
    }
}

TEST(Decoding, AMismatchSaysWhatWasExpectedAndWhatWasFound) {
    EXPECT_EQ(problemOfNote(R"({"id":5})"), R"("id" of a note must hold a string, not a number near byte 7)");
    EXPECT_EQ(problemOfNote(R"([])"), "A note must be an object, not an array near byte 1");
    const auto task = [](const char* json) { return problemOf([&] { decodeTask(json); }); };
    EXPECT_EQ(task(R"({"order":1.5})"), "A number with a fraction in place of an integer near byte 12");
    EXPECT_EQ(task(R"({"order":1e30})"), "An integer beyond 64 bits near byte 13");
    EXPECT_EQ(task(R"({"completedAt":null,"completedAt":1})"),
              R"("completedAt" of a task is given twice near byte 35)");
}

TEST(Decoding, DocumentsOfEveryLengthAroundTheReadersBlocksAreRead) {
    for (std::size_t length = 0; length < 5000; length += length < 100 ? 1 : 37) {
        const auto json = R"({"id":"","text":")" + std::string(length, 'x') + R"(","updatedAt":0})";
        // A copy of its exact size lets a sanitizer see any step beyond the end.
        const std::vector<char> exact(json.begin(), json.end());
        EXPECT_EQ(decodeNote({exact.data(), exact.size()}).text.size(), length);
    }
}
