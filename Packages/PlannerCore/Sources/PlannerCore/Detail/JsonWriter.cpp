#include <PlannerCore/Detail/JsonWriter.h>

#include <PlannerCore/Detail/Text.h>
#include <PlannerCore/PlannerError.h>

#include <array>
#include <charconv>
#include <cmath>

namespace planner::detail {

namespace {

constexpr std::size_t indentation = 2;

bool needsEscape(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '\\';
}

void appendEscape(std::string& out, char c) {
    constexpr std::string_view digits = "0123456789abcdef";
    switch (c) {
    case '"':
    case '\\':
        out += {'\\', c};
        break;
    case '\b':
        out += "\\b";
        break;
    case '\f':
        out += "\\f";
        break;
    case '\n':
        out += "\\n";
        break;
    case '\r':
        out += "\\r";
        break;
    case '\t':
        out += "\\t";
        break;
    default:
        out += "\\u00";
        out += {digits[std::size_t(c) >> 4], digits[std::size_t(c) & 0xF]};
    }
}

} // namespace

void JsonWriter::key(std::string_view name) {
    separate();
    plain(name);
    out_ += layout_ == Layout::indented ? ": " : ":";
}

void JsonWriter::string(std::string_view text) {
    if (wellFormedPrefix(text) != text.size()) throw JsonError("Text that is not UTF-8 cannot be stored");
    out_ += '"';
    std::size_t written = 0;
    for (std::size_t position = 0; position < text.size(); ++position) {
        if (!needsEscape(text[position])) continue;
        out_.append(text.substr(written, position - written));
        appendEscape(out_, text[position]);
        written = position + 1;
    }
    out_.append(text.substr(written));
    out_ += '"';
}

void JsonWriter::plain(std::string_view text) {
    out_ += '"';
    out_ += text;
    out_ += '"';
}

void JsonWriter::integer(std::int64_t value) {
    std::array<char, 24> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    out_.append(digits.data(), end);
}

void JsonWriter::number(double value) {
    if (!std::isfinite(value)) throw JsonError("A number that is not finite cannot be stored");
    constexpr double exactIntegers = 9007199254740992; // 2^53
    if (std::abs(value) < exactIntegers && value == std::trunc(value)) return integer(std::int64_t(value));
    std::array<char, 32> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    out_.append(digits.data(), end);
}

void JsonWriter::open(char bracket) {
    out_ += bracket;
    ++depth_;
    empty_ = true;
}

void JsonWriter::close(char bracket) {
    --depth_;
    if (!empty_) breakLine();
    out_ += bracket;
    empty_ = false;
}

void JsonWriter::separate() {
    if (!empty_) out_ += ',';
    empty_ = false;
    breakLine();
}

void JsonWriter::breakLine() {
    if (layout_ == Layout::compact) return;
    out_ += '\n';
    out_.append(depth_ * indentation, ' ');
}

} // namespace planner::detail
