#pragma once

#include <cstddef>
#include <string_view>

/// What a typed title is measured by. Pure functions over UTF-8; any thread.
namespace planner::titles {

/// `text` without the white space and line breaks (every Unicode one) at both ends; a view into it.
std::string_view trimmed(std::string_view text);

/// Whether nothing is left of `text` once it is trimmed: no task may be called that.
bool isBlank(std::string_view text);

/// The number of user-perceived characters, of which a title may have `maximumTitleCharacters`
/// (PlannerSnapshot.h): extended grapheme clusters, so a flag, a family or CR LF is one.
std::size_t characterCount(std::string_view text);

} // namespace planner::titles
