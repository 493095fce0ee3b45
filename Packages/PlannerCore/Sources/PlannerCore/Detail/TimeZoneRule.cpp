#include <PlannerCore/Detail/TimeZoneRule.h>

#include <date/date.h>

#include <algorithm>
#include <charconv>
#include <vector>

namespace planner::detail {
namespace {

constexpr std::int64_t secondsADay = 86400;

std::int64_t secondsOf(date::sys_days day) {
    return day.time_since_epoch().count() * secondsADay;
}

} // namespace

/// Reads a rule from left to right; each step gives nothing, or false, where the text goes wrong.
class TimeZoneRule::Reader {
public:
    explicit Reader(std::string_view text) : text_(text) {}

    bool atEnd() const { return text_.empty(); }

    bool skip(char expected) {
        if (text_.empty() || text_.front() != expected) return false;
        text_.remove_prefix(1);
        return true;
    }

    /// An abbreviation of at least three letters, or of anything between angle brackets.
    bool name() {
        const auto quoted = skip('<');
        const auto length =
            quoted ? text_.find('>') : std::size_t(std::ranges::find_if_not(text_, isLetter) - text_.begin());
        if (length == std::string_view::npos || length < 3) return false;
        text_.remove_prefix(length + (quoted ? 1 : 0));
        return true;
    }

    std::optional<int> number(int least, int most) {
        int value = 0;
        const auto [end, error] = std::from_chars(text_.data(), text_.data() + text_.size(), value);
        if (error != std::errc() || text_.front() == '-' || value < least || value > most)
            return std::nullopt;
        text_.remove_prefix(std::size_t(end - text_.data()));
        return value;
    }

    /// [+-]hh[:mm[:ss]] in seconds.
    std::optional<std::int64_t> time() {
        const auto negative = skip('-');
        if (!negative) skip('+');
        const auto hours = number(0, 167);
        if (!hours) return std::nullopt;
        std::int64_t seconds = *hours * 3600;
        for (const auto unit : {60, 1}) {
            if (!skip(':')) break;
            const auto part = number(0, 59);
            if (!part) return std::nullopt;
            seconds += *part * unit;
        }
        return negative ? -seconds : seconds;
    }

    std::optional<Moment> moment() {
        Moment moment;
        if (skip('M')) {
            moment.kind = Moment::Kind::weekday;
            const auto month = number(1, 12);
            const auto week = month && skip('.') ? number(1, 5) : std::nullopt;
            const auto weekday = week && skip('.') ? number(0, 6) : std::nullopt;
            if (!weekday) return std::nullopt;
            moment.number = *month;
            moment.week = *week;
            moment.weekday = *weekday;
        } else {
            const auto julian = skip('J');
            moment.kind = julian ? Moment::Kind::julian : Moment::Kind::zeroBased;
            const auto day = number(julian ? 1 : 0, 365);
            if (!day) return std::nullopt;
            moment.number = *day;
        }
        if (skip('/')) {
            const auto seconds = time();
            if (!seconds) return std::nullopt;
            moment.seconds = *seconds;
        }
        return moment;
    }

private:
    static bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

    std::string_view text_;
};

std::int64_t TimeZoneRule::Moment::in(int inYear) const {
    const date::year year{inYear};
    switch (kind) {
    case Kind::julian: {
        // 29 February is never counted, so 1 March is day 60 of every year.
        const auto leapDay = year.is_leap() && number >= 60 ? 1 : 0;
        return secondsOf(date::sys_days(year / date::January / 1) + date::days(number - 1 + leapDay)) +
               seconds;
    }
    case Kind::zeroBased:
        return secondsOf(date::sys_days(year / date::January / 1) + date::days(number)) + seconds;
    case Kind::weekday:
        break;
    }
    const date::month month{unsigned(number)};
    const date::weekday day{unsigned(weekday)};
    const auto found = week == 5 ? date::sys_days(year / month / day[date::last])
                                 : date::sys_days(year / month / day[unsigned(week)]);
    return secondsOf(found) + seconds;
}

std::optional<TimeZoneRule> TimeZoneRule::parse(std::string_view text) {
    Reader reader(text);
    TimeZoneRule rule;
    if (!reader.name()) return std::nullopt;
    const auto west = reader.time();
    if (!west) return std::nullopt;
    rule.offset_ = -*west;
    if (reader.atEnd()) return rule;

    Summer summer;
    if (!reader.name()) return std::nullopt;
    summer.offset = rule.offset_ + 3600;
    if (!reader.skip(',')) {
        const auto summerWest = reader.time();
        if (!summerWest || !reader.skip(',')) return std::nullopt;
        summer.offset = -*summerWest;
    }
    const auto begin = reader.moment();
    const auto end = begin && reader.skip(',') ? reader.moment() : std::nullopt;
    if (!end || !reader.atEnd()) return std::nullopt;
    summer.begin = *begin;
    summer.end = *end;
    rule.summer_ = summer;
    return rule;
}

OffsetSpan TimeZoneRule::spanAt(std::int64_t time) const {
    if (!summer_) return {.offset = offset_};
    struct Change {
        std::int64_t at;
        bool summer;
        auto operator<=>(const Change&) const = default;
    };
    const auto day = date::floor<date::days>(date::sys_seconds{std::chrono::seconds(time)});
    const auto year = int(date::year_month_day(day).year());
    std::vector<Change> changes;
    changes.reserve(6);
    for (const auto near : {year - 1, year, year + 1}) {
        if (near < int(date::year::min()) || near > int(date::year::max())) continue;
        changes.push_back({summer_->begin.in(near)-offset_, true});
        changes.push_back({summer_->end.in(near)-summer_->offset, false});
    }
    // Summer time all the year is written as one that ends in the moment in which the next begins: the
    // beginning has to sort last.
    std::sort(changes.begin(), changes.end());

    OffsetSpan span{.offset = changes.front().summer ? offset_ : summer_->offset};
    for (const auto& change : changes) {
        if (change.at > time) {
            span.end = change.at;
            break;
        }
        span.begin = change.at;
        span.offset = change.summer ? summer_->offset : offset_;
    }
    return span;
}

} // namespace planner::detail
