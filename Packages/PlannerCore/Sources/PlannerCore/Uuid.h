#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace planner {

/// A universally unique identifier (RFC 4122), 16 bytes in network order. A plain value; any thread.
struct Uuid {
    std::array<std::uint8_t, 16> bytes{};

    /// A fresh random identifier (version 4), from the operating system's random source.
    /// Throws std::system_error when that source cannot be read.
    static Uuid random();

    /// Reads the canonical 36-character form, either letter case; anything else gives nothing.
    static std::optional<Uuid> parse(std::string_view text);

    /// The canonical 36-character form with upper-case digits.
    std::string text() const;
    /// The same characters without an allocation.
    std::array<char, 36> characters() const;

    auto operator<=>(const Uuid&) const = default;
};

} // namespace planner

template <>
struct std::hash<planner::Uuid> {
    std::size_t operator()(const planner::Uuid& uuid) const noexcept;
};
