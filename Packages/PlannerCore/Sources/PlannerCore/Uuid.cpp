#include <PlannerCore/Uuid.h>

#include <cerrno>
#include <cstring>
#include <sys/random.h>
#include <system_error>

namespace planner {

namespace {

constexpr std::string_view digits = "0123456789ABCDEF";
constexpr std::size_t textLength = 36;

bool isHyphenPlace(std::size_t index) {
    return index == 8 || index == 13 || index == 18 || index == 23;
}

std::optional<std::uint8_t> digitValue(char digit) {
    if (digit >= '0' && digit <= '9') return std::uint8_t(digit - '0');
    if (digit >= 'A' && digit <= 'F') return std::uint8_t(digit - 'A' + 10);
    if (digit >= 'a' && digit <= 'f') return std::uint8_t(digit - 'a' + 10);
    return std::nullopt;
}

} // namespace

Uuid Uuid::random() {
    Uuid uuid;
    // Reads of up to 256 bytes come whole (getrandom(2)).
    ssize_t read = -1;
    do read = getrandom(uuid.bytes.data(), uuid.bytes.size(), 0);
    while (read < 0 && errno == EINTR);
    if (read != ssize_t(uuid.bytes.size())) throw std::system_error(errno, std::generic_category());
    // Version 4, variant 10 (RFC 4122, section 4.4).
    uuid.bytes[6] = std::uint8_t((uuid.bytes[6] & 0x0F) | 0x40);
    uuid.bytes[8] = std::uint8_t((uuid.bytes[8] & 0x3F) | 0x80);
    return uuid;
}

std::optional<Uuid> Uuid::parse(std::string_view text) {
    if (text.size() != textLength) return std::nullopt;
    Uuid uuid;
    std::size_t nibble = 0;
    for (std::size_t index = 0; index < textLength; ++index) {
        if (isHyphenPlace(index)) {
            if (text[index] != '-') return std::nullopt;
            continue;
        }
        const auto value = digitValue(text[index]);
        if (!value) return std::nullopt;
        auto& byte = uuid.bytes[nibble / 2];
        byte = std::uint8_t(nibble % 2 == 0 ? *value << 4 : byte | *value);
        ++nibble;
    }
    return uuid;
}

std::string Uuid::text() const {
    std::string text;
    text.reserve(textLength);
    for (const auto byte : bytes) {
        if (isHyphenPlace(text.size())) text += '-';
        text += digits[byte >> 4];
        text += digits[byte & 0x0F];
    }
    return text;
}

} // namespace planner

std::size_t std::hash<planner::Uuid>::operator()(const planner::Uuid& uuid) const noexcept {
    std::uint64_t halves[2];
    std::memcpy(halves, uuid.bytes.data(), sizeof halves);
    // Identifiers from a backup need not be random: both halves count.
    return std::size_t(halves[0] * 0x9E3779B97F4A7C15ull ^ halves[1]);
}
