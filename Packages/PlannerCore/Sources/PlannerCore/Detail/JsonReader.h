#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace planner::detail {

/// Receives the parts of a JSON document in order. Views are valid only during the call. What it
/// throws ends the reading.
class JsonEvents {
public:
    virtual ~JsonEvents() = default;

    virtual void null() = 0;
    virtual void boolean(bool value) = 0;
    /// A number as it is spelled in the document, which JSON's grammar allows.
    virtual void number(std::string_view spelling) = 0;
    /// Well-formed UTF-8, escapes resolved; U+0000 may be among it.
    virtual void string(std::string_view text) = 0;
    virtual void beginObject() = 0;
    virtual void key(std::string_view text) = 0;
    virtual void endObject() = 0;
    virtual void beginArray() = 0;
    virtual void endArray() = 0;
};

/// How many objects and arrays may stand inside one another: far more than anything we write has, and few
/// enough for any thread's stack.
inline constexpr std::size_t maximumJsonNesting = 1000;

/// Reads one JSON document (RFC 8259) that fills `text`. Throws JsonError with the place for anything
/// else: bytes before or after it, a byte order mark, invalid UTF-8, a surrogate without its other
/// half, deeper nesting than `maximumJsonNesting`, or a number beyond the range of a double. A
/// JsonError out of `events` is thrown again with the place added.
void readJson(std::string_view text, JsonEvents& events);

/// The double nearest to a number; what is too small for one becomes 0. Throws JsonError when it is
/// too large.
double doubleFromJson(std::string_view spelling);

/// The exact integer of a number without fraction, however it is spelled ("3", "3.0", "3e2"). Throws
/// JsonError for a fraction or a value outside 64 bits.
std::int64_t integerFromJson(std::string_view spelling);

} // namespace planner::detail
