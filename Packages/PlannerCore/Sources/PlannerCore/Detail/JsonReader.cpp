#include <PlannerCore/Detail/JsonReader.h>

#include <PlannerCore/Detail/Text.h>
#include <PlannerCore/PlannerError.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <memory>
#include <string>

#if defined(__SSE2__)
#define RAPIDJSON_SSE2
#endif
#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>

namespace planner::detail {

namespace {

/// The reader scans in aligned blocks of 16 bytes and may look that far past the end.
constexpr std::size_t padding = 16;

[[noreturn]] void refuse(std::string_view problem, std::size_t position,
                         std::string_view where = " at byte ") {
    throw JsonError(std::string(problem).append(where) + std::to_string(position));
}

/// A \u escape can spell half of a surrogate pair alone, which is no character: as UTF-8 it would be
/// the byte ED followed by A0 or more, and nothing well-formed begins like that.
bool hasLoneSurrogate(std::string_view text) {
    for (auto at = text.find('\xED'); at != text.npos; at = text.find('\xED', at + 1))
        if (at + 1 < text.size() && static_cast<unsigned char>(text[at + 1]) >= 0xA0) return true;
    return false;
}

/// Hands the parser's events on and keeps watch over what it lets through.
class Handler {
public:
    /// `hasEscapes`: whether the document has any \u, without which no surrogate can come up.
    Handler(JsonEvents& events, bool hasEscapes) : events_(events), hasEscapes_(hasEscapes) {}

    bool Null() { return events_.null(), true; }
    bool Bool(bool value) { return events_.boolean(value), true; }
    bool RawNumber(const char* text, rapidjson::SizeType length, bool) {
        return events_.number({text, length}), true;
    }
    bool String(const char* text, rapidjson::SizeType length, bool) {
        return events_.string(checked({text, length})), true;
    }
    bool StartObject() { return descend(), events_.beginObject(), true; }
    bool Key(const char* text, rapidjson::SizeType length, bool) {
        return events_.key(checked({text, length})), true;
    }
    bool EndObject(rapidjson::SizeType) { return --depth_, events_.endObject(), true; }
    bool StartArray() { return descend(), events_.beginArray(), true; }
    bool EndArray(rapidjson::SizeType) { return --depth_, events_.endArray(), true; }

    // Numbers come as they are spelled, so none of these is ever called.
    bool Int(int) { return false; }
    bool Uint(unsigned) { return false; }
    bool Int64(std::int64_t) { return false; }
    bool Uint64(std::uint64_t) { return false; }
    bool Double(double) { return false; }

private:
    std::string_view checked(std::string_view text) const {
        if (hasEscapes_ && hasLoneSurrogate(text))
            throw JsonError("Half of a surrogate pair without the other");
        return text;
    }

    void descend() {
        if (++depth_ > maximumJsonNesting) throw JsonError("Nesting that is too deep");
    }

    JsonEvents& events_;
    bool hasEscapes_;
    std::size_t depth_ = 0;
};

/// Reads what stands at `text`, which ends with `padding` zeros and is overwritten on the way.
void readInPlace(char* text, std::size_t size, JsonEvents& events) {
    // The reader calls itself for each level, which the handler limits. Its other way, a stack of its own,
    // is slower and begins with arithmetic on a null pointer.
    constexpr auto flags = rapidjson::kParseInsituFlag | rapidjson::kParseNumbersAsStringsFlag;
    rapidjson::InsituStringStream stream(text);
    Handler handler(events, std::string_view(text, size).find("\\u") != std::string_view::npos);
    rapidjson::Reader reader;
    rapidjson::ParseResult result;
    try {
        result = reader.Parse<flags>(stream, handler);
    } catch (const JsonError& error) {
        // The reader has taken the value by now, or is about to go into it.
        refuse(error.what(), std::min(stream.Tell(), size), " near byte ");
    }
    if (result.IsError()) refuse(rapidjson::GetParseError_En(result.Code()), result.Offset());
}

/// The value of a number as digits without zeros at either end, times ten to the power `exponent`.
struct Decimal {
    std::string digits;
    std::int64_t exponent = 0;
    bool negative = false;
};

Decimal decimal(std::string_view spelling) {
    Decimal result;
    result.negative = spelling.starts_with('-');
    if (result.negative) spelling.remove_prefix(1);
    const auto mark = spelling.find_first_of("eE");
    if (mark != spelling.npos) {
        auto power = spelling.substr(mark + 1);
        const bool negative = power.starts_with('-');
        if (power.starts_with('+') || negative) power.remove_prefix(1);
        // Beyond this no number of digits that fits in memory brings it back.
        constexpr std::int64_t immense = 1'000'000'000'000;
        std::int64_t value = 0;
        const auto [end, problem] = std::from_chars(power.data(), power.data() + power.size(), value);
        if (problem != std::errc() || value > immense) value = immense;
        result.exponent = negative ? -value : value;
        spelling = spelling.substr(0, mark);
    }
    for (bool fraction = false; const char c : spelling) {
        if (c == '.') {
            fraction = true;
            continue;
        }
        if (fraction) --result.exponent;
        if (c != '0' || !result.digits.empty()) result.digits += c;
    }
    while (result.digits.ends_with('0')) {
        result.digits.pop_back();
        ++result.exponent;
    }
    return result;
}

} // namespace

void readJson(std::string_view text, JsonEvents& events) {
    if (text.starts_with("\xEF\xBB\xBF")) refuse("A byte order mark", 0);
    const auto wellFormed = wellFormedPrefix(text);
    if (wellFormed != text.size()) refuse("A byte that is not UTF-8", wellFormed);
    const auto zero = text.find('\0');
    if (zero != text.npos) refuse("A zero byte", zero);

    std::array<char, 2048> small;
    std::unique_ptr<char[]> large;
    auto* copy = small.data();
    if (text.size() + padding > small.size()) {
        large = std::make_unique_for_overwrite<char[]>(text.size() + padding);
        copy = large.get();
    }
    std::memcpy(copy, text.data(), text.size());
    std::memset(copy + text.size(), 0, padding);
    readInPlace(copy, text.size(), events);
}

double doubleFromJson(std::string_view spelling) {
    double value = 0;
    const auto result = std::from_chars(spelling.data(), spelling.data() + spelling.size(), value);
    if (result.ec == std::errc()) return value;
    const auto exact = decimal(spelling);
    if (std::int64_t(exact.digits.size()) + exact.exponent > 0) throw JsonError("A number that is too large");
    return 0;
}

std::int64_t integerFromJson(std::string_view spelling) {
    std::int64_t value = 0;
    const auto* const end = spelling.data() + spelling.size();
    const auto plain = std::from_chars(spelling.data(), end, value);
    if (plain.ec == std::errc() && plain.ptr == end) return value;

    auto exact = decimal(spelling);
    if (exact.digits.empty()) return 0;
    if (exact.exponent < 0) throw JsonError("A number with a fraction in place of an integer");
    constexpr std::int64_t mostDigits = 19;
    if (std::int64_t(exact.digits.size()) + exact.exponent <= mostDigits) {
        exact.digits.append(std::size_t(exact.exponent), '0');
        if (exact.negative) exact.digits.insert(0, 1, '-');
        const auto* const first = exact.digits.data();
        const auto* const last = first + exact.digits.size();
        if (std::from_chars(first, last, value).ec == std::errc()) return value;
    }
    throw JsonError("An integer beyond 64 bits");
}

} // namespace planner::detail
