#include <PlannerCore/Detail/TimeZone.h>

#include <date/tz.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace planner::detail {
namespace {

const date::time_zone* located(std::string_view name) {
    try {
        return date::locate_zone(name);
    } catch (const std::runtime_error& error) {
        throw std::invalid_argument(error.what());
    }
}

/// The rule that ends a zone's file (RFC 8536, section 3.3): the zone list reads only the changes
/// before it, of which a file may hold none after 2007 and none holds any after 2037.
std::optional<TimeZoneRule> closingRule(const std::string& name) {
    std::ifstream file("/usr/share/zoneinfo/" + name, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(file), {});
    if (!bytes.starts_with("TZif") || bytes.size() < 6 || bytes[4] < '2' || bytes.back() != '\n')
        return std::nullopt;
    const auto text = std::string_view(bytes).substr(0, bytes.size() - 1);
    return TimeZoneRule::parse(text.substr(text.rfind('\n') + 1));
}

std::int64_t seconds(date::sys_seconds time) {
    return time.time_since_epoch().count();
}

} // namespace

TimeZone::TimeZone(std::string_view name) : listed_(located(name)), rule_(closingRule(listed_->name())) {}

const std::string& TimeZone::name() const {
    return listed_->name();
}

OffsetSpan TimeZone::spanAt(std::int64_t time) const {
    static const date::sys_seconds endOfList = date::sys_days(date::year::max() / date::December / 31);
    const auto info = listed_->get_info(date::sys_seconds{std::chrono::seconds(time)});
    if (info.end < endOfList) return {seconds(info.begin), seconds(info.end), info.offset.count()};
    if (!rule_) return {.begin = seconds(info.begin), .offset = info.offset.count()};
    auto span = rule_->spanAt(time);
    span.begin = std::max(span.begin, seconds(info.begin));
    return span;
}

} // namespace planner::detail
