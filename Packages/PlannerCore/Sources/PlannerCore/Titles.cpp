#include <PlannerCore/Detail/Text.h>
#include <PlannerCore/Titles.h>

namespace planner::titles {

std::string_view trimmed(std::string_view text) {
    return detail::trimmed(text);
}

bool isBlank(std::string_view text) {
    return detail::isBlank(text);
}

std::size_t characterCount(std::string_view text) {
    return detail::characterCount(text);
}

} // namespace planner::titles
