#include <PlannerCore/Detail/Text.h>

#include <cstdint>
#include <cstring>
#include <utf8proc.h>

namespace planner::detail {

namespace {

constexpr utf8proc_int32_t noCodePoint = -1;

/// A code point and how many bytes it takes; `noCodePoint` and one byte where there is none.
struct Decoded {
    utf8proc_int32_t codePoint;
    std::size_t length;
};

Decoded decodeFirst(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text.front());
    if (lead < 0x80) return {lead, 1};
    utf8proc_int32_t codePoint = noCodePoint;
    const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                         utf8proc_ssize_t(text.size()), &codePoint);
    if (length <= 0) return {noCodePoint, 1};
    return {codePoint, std::size_t(length)};
}

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

Decoded decodeLast(std::string_view text) {
    auto start = text.size() - 1;
    while (start > 0 && text.size() - start < 4 && isContinuation(text[start])) --start;
    const auto decoded = decodeFirst(text.substr(start));
    if (decoded.length == text.size() - start) return decoded;
    return {noCodePoint, 1};
}

/// The property White_Space (Unicode Character Database, PropList.txt).
bool isWhiteSpace(utf8proc_int32_t codePoint) {
    switch (codePoint) {
    case 0x20:
    case 0x85:
    case 0xA0:
    case 0x1680:
    case 0x2028:
    case 0x2029:
    case 0x202F:
    case 0x205F:
    case 0x3000:
        return true;
    default:
        return (codePoint >= 0x09 && codePoint <= 0x0D) || (codePoint >= 0x2000 && codePoint <= 0x200A);
    }
}

/// How many bytes at the start of `text` are ASCII, looked at eight at a time.
std::size_t asciiPrefix(std::string_view text) {
    constexpr std::uint64_t highBits = 0x8080808080808080u;
    std::size_t length = 0;
    for (std::uint64_t word; length + sizeof word <= text.size(); length += sizeof word) {
        std::memcpy(&word, text.data() + length, sizeof word);
        if ((word & highBits) != 0) break;
    }
    while (length < text.size() && static_cast<unsigned char>(text[length]) < 0x80) ++length;
    return length;
}

} // namespace

std::string_view trimmed(std::string_view text) {
    while (!text.empty()) {
        const auto first = decodeFirst(text);
        if (!isWhiteSpace(first.codePoint)) break;
        text.remove_prefix(first.length);
    }
    while (!text.empty()) {
        const auto last = decodeLast(text);
        if (!isWhiteSpace(last.codePoint)) break;
        text.remove_suffix(last.length);
    }
    return text;
}

bool isBlank(std::string_view text) {
    return trimmed(text).empty();
}

std::size_t characterCount(std::string_view text) {
    std::size_t count = 0;
    auto previous = noCodePoint;
    utf8proc_int32_t state = 0;
    while (!text.empty()) {
        const auto next = decodeFirst(text);
        text.remove_prefix(next.length);
        const bool isASCII = next.codePoint >= 0 && next.codePoint < 0x80;
        const bool followsASCII = previous >= 0 && previous < 0x80;
        if (previous == noCodePoint || next.codePoint == noCodePoint) {
            state = 0;
            ++count;
        } else if (isASCII && followsASCII) {
            // Between two ASCII characters there is always a break, but within CR LF.
            state = 0;
            if (previous != '\r' || next.codePoint != '\n') ++count;
        } else if (utf8proc_grapheme_break_stateful(previous, next.codePoint, &state)) {
            ++count;
        }
        previous = next.codePoint;
    }
    return count;
}

std::size_t wellFormedPrefix(std::string_view text) {
    std::size_t position = 0;
    while (position < text.size()) {
        position += asciiPrefix(text.substr(position));
        while (position < text.size() && static_cast<unsigned char>(text[position]) >= 0x80) {
            const auto next = decodeFirst(text.substr(position));
            if (next.codePoint == noCodePoint) return position;
            position += next.length;
        }
    }
    return position;
}

} // namespace planner::detail
