#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace planner::detail {

/// Appends JSON to a string, compact or indented by 2 spaces. The caller gives the keys in the order
/// in which they are to stand and closes what it opens.
class JsonWriter {
public:
    enum class Layout { compact, indented };

    /// `out` is the caller's and must outlive the writer.
    JsonWriter(std::string& out, Layout layout) : out_(out), layout_(layout) {}

    void beginObject() { open('{'); }
    void endObject() { close('}'); }
    void beginArray() { open('['); }
    void endArray() { close(']'); }

    /// `name` needs no escapes.
    void key(std::string_view name);
    /// Before each value of an array.
    void element() { separate(); }

    /// Throws JsonError for text that is not UTF-8.
    void string(std::string_view text);
    /// Text that needs no escapes.
    void plain(std::string_view text);
    void integer(std::int64_t value);
    /// The shortest spelling that reads back to the same bits, and -0.0 as 0. Throws JsonError for a
    /// number that is not finite.
    void number(double value);

private:
    void open(char bracket);
    void close(char bracket);
    void separate();
    void breakLine();

    std::string& out_;
    Layout layout_;
    std::size_t depth_ = 0;
    /// Nothing was written yet into what was opened last.
    bool empty_ = true;
};

} // namespace planner::detail
