#pragma once

#include <cstddef>
#include <string_view>

/// Questions about UTF-8 text. Pure functions; any thread. Bytes that are not UTF-8 are taken one by
/// one as characters that are not white space.
namespace planner::detail {

/// `text` without the white space and line breaks at both ends: every code point with the Unicode
/// property White_Space. A view into `text`.
std::string_view trimmed(std::string_view text);

/// Whether nothing is left of `text` once it is trimmed.
bool isBlank(std::string_view text);

/// The number of user-perceived characters: extended grapheme clusters (Unicode Standard Annex #29).
/// A line feed after a carriage return counts with it as one.
std::size_t characterCount(std::string_view text);

/// The position of the first byte that does not belong to well-formed UTF-8 (RFC 3629: nothing
/// overlong, no surrogates, nothing above U+10FFFF), or the length of the text when there is none.
std::size_t wellFormedPrefix(std::string_view text);

} // namespace planner::detail
