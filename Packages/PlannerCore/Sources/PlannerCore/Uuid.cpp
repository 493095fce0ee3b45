#include <PlannerCore/Uuid.h>

#include <cerrno>
#include <cstring>
#include <sys/random.h>
#include <system_error>

namespace planner {

namespace {

constexpr std::string_view digits = "0123456789ABCDEF";
constexpr std::size_t textLength = 36;
constexpr std::uint8_t noDigit = 0xFF;

/// The value of each character as a hexadecimal digit. The digits of an identifier are random, so a
/// look-up costs less than branches that nobody can predict.
constexpr auto digitValues = [] {
    std::array<std::uint8_t, 256> values;
    values.fill(noDigit);
    for (std::uint8_t value = 0; value < 16; ++value) {
        const auto digit = static_cast<unsigned char>(digits[value]);
        values[digit] = value;
        if (value >= 10) values[digit - 'A' + 'a'] = value;
    }
    return values;
}();

/// Where the two digits of each byte stand in the canonical form.
constexpr std::array<std::uint8_t, 16> digitPlaces{0, 2, 4, 6, 9, 11, 14, 16, 19, 21, 24, 26, 28, 30, 32, 34};
constexpr std::array<std::uint8_t, 4> hyphenPlaces{8, 13, 18, 23};

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
    for (const auto place : hyphenPlaces)
        if (text[place] != '-') return std::nullopt;
    Uuid uuid;
    unsigned problems = 0;
    for (std::size_t index = 0; index < uuid.bytes.size(); ++index) {
        const auto place = digitPlaces[index];
        const unsigned high = digitValues[static_cast<unsigned char>(text[place])];
        const unsigned low = digitValues[static_cast<unsigned char>(text[place + 1u])];
        problems |= high | low;
        uuid.bytes[index] = std::uint8_t(high << 4 | low);
    }
    if (problems >= digits.size()) return std::nullopt;
    return uuid;
}

std::string Uuid::text() const {
    const auto text = characters();
    return {text.begin(), text.end()};
}

std::array<char, textLength> Uuid::characters() const {
    std::array<char, textLength> text;
    for (const auto place : hyphenPlaces) text[place] = '-';
    for (std::size_t index = 0; index < bytes.size(); ++index) {
        const auto place = digitPlaces[index];
        text[place] = digits[bytes[index] >> 4];
        text[place + 1u] = digits[bytes[index] & 0x0F];
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
