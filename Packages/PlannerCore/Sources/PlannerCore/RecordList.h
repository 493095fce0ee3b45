#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <functional>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <span>
#include <unordered_set>
#include <utility>
#include <vector>

namespace planner {

/// A sequence of records in copy-on-write chunks.
///
/// Copying shares every chunk, so a copy costs one pointer per few hundred records; changing a record
/// clones the one chunk that holds it. Two lists that came from one another therefore share almost
/// all their chunks, and whatever compares them looks only at the others.
///
/// A plain value. Distinct lists may be used on distinct threads even while they share chunks: a
/// shared chunk is never written.
template <class T>
class RecordList {
    using Chunk = std::vector<T>;
    using Shared = std::shared_ptr<Chunk>;

public:
    /// Chunks are filled up to this many records and split in two above it.
    static constexpr std::size_t chunkCapacity = 256;

    class const_iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = T;
        using difference_type = std::ptrdiff_t;
        using pointer = const T*;
        using reference = const T&;

        const_iterator() = default;
        reference operator*() const { return (*(*chunks_)[chunk_])[position_]; }
        pointer operator->() const { return &**this; }
        const_iterator& operator++() {
            if (++position_ == (*chunks_)[chunk_]->size()) {
                ++chunk_;
                position_ = 0;
            }
            return *this;
        }
        const_iterator operator++(int) {
            auto old = *this;
            ++*this;
            return old;
        }
        bool operator==(const const_iterator& other) const {
            return chunk_ == other.chunk_ && position_ == other.position_;
        }

    private:
        friend class RecordList;
        const_iterator(const std::vector<Shared>* chunks, std::size_t chunk)
            : chunks_(chunks), chunk_(chunk) {}
        const std::vector<Shared>* chunks_ = nullptr;
        std::size_t chunk_ = 0;
        std::size_t position_ = 0;
    };

    using value_type = T;
    using iterator = const_iterator;

    RecordList() = default;
    RecordList(std::initializer_list<T> records) : RecordList(std::vector<T>(records)) {}
    /// Takes the records over, in order.
    explicit RecordList(std::vector<T> records) {
        for (std::size_t start = 0; start < records.size(); start += chunkCapacity) {
            const auto first = std::make_move_iterator(records.begin() + std::ptrdiff_t(start));
            const auto count = std::min(chunkCapacity, records.size() - start);
            starts_.push_back(start);
            chunks_.push_back(std::make_shared<Chunk>(first, first + std::ptrdiff_t(count)));
        }
    }

    std::size_t size() const { return starts_.empty() ? 0 : starts_.back() + chunks_.back()->size(); }
    bool empty() const { return chunks_.empty(); }
    const_iterator begin() const { return {&chunks_, 0}; }
    const_iterator end() const { return {&chunks_, chunks_.size()}; }

    /// The record at `index`, which must be below `size()`. Valid until the list changes.
    const T& operator[](std::size_t index) const {
        const auto chunk = chunkOf(index);
        return (*chunks_[chunk])[index - starts_[chunk]];
    }
    const T& front() const { return chunks_.front()->front(); }
    const T& back() const { return chunks_.back()->back(); }

    /// Position of the first record for which `matches` holds, or `size()`.
    template <class Predicate>
    std::size_t find(Predicate matches) const {
        std::size_t index = 0;
        for (const auto& chunk : chunks_)
            for (const auto& record : *chunk) {
                if (matches(record)) return index;
                ++index;
            }
        return index;
    }

    void push_back(T record) {
        if (chunks_.empty() || chunks_.back()->size() >= chunkCapacity) {
            auto chunk = std::make_shared<Chunk>();
            chunk->reserve(16);
            starts_.push_back(size());
            chunks_.push_back(std::move(chunk));
        }
        writable(chunks_.size() - 1).push_back(std::move(record));
    }

    /// Puts `record` in the place of the one at `index`, which must be below `size()`.
    void replace(std::size_t index, T record) {
        const auto chunk = chunkOf(index);
        writable(chunk)[index - starts_[chunk]] = std::move(record);
    }

    /// Puts `record` before the one at `index`; at the end when `index` is `size()`.
    void insert(std::size_t index, T record) {
        if (index == size()) return push_back(std::move(record));
        const auto chunk = chunkOf(index);
        auto& records = writable(chunk);
        records.insert(records.begin() + std::ptrdiff_t(index - starts_[chunk]), std::move(record));
        if (records.size() > 2 * chunkCapacity) split(chunk);
        recount(chunk);
    }

    /// Removes the record at `index`, which must be below `size()`.
    void erase(std::size_t index) {
        const auto chunk = chunkOf(index);
        auto& records = writable(chunk);
        records.erase(records.begin() + std::ptrdiff_t(index - starts_[chunk]));
        if (records.empty()) {
            chunks_.erase(chunks_.begin() + std::ptrdiff_t(chunk));
            starts_.pop_back();
        }
        recount(chunk);
    }

    /// Removes every record for which `matches` holds, keeping the order of the others; returns how
    /// many there were. Chunks without a match stay shared.
    template <class Predicate>
    std::size_t eraseIf(Predicate matches) {
        const auto before = size();
        for (std::size_t chunk = 0; chunk < chunks_.size(); ++chunk) {
            const auto& records = *chunks_[chunk];
            const auto first = std::find_if(records.begin(), records.end(), std::ref(matches));
            if (first == records.end()) continue;
            const auto from = first - records.begin();
            auto& kept = writable(chunk);
            // The first match is asked about only once: a predicate may count.
            auto last = kept.begin() + from;
            for (auto record = last + 1; record != kept.end(); ++record)
                if (!matches(std::as_const(*record))) *last++ = std::move(*record);
            kept.erase(last, kept.end());
        }
        std::erase_if(chunks_, [](const Shared& chunk) { return chunk->empty(); });
        starts_.resize(chunks_.size());
        recount(0);
        return before - size();
    }

    /// Calls `change` with each record for which `differs` holds and its position; `differs` gets the
    /// same two. Chunks without such a record stay shared.
    template <class Differs, class Change>
    void changeIf(Differs differs, Change change) {
        for (std::size_t chunk = 0; chunk < chunks_.size(); ++chunk)
            for (std::size_t at = 0; at < chunks_[chunk]->size(); ++at)
                if (const auto index = starts_[chunk] + at;
                    differs(std::as_const((*chunks_[chunk])[at]), index))
                    change(writable(chunk)[at], index);
    }

    std::size_t chunkCount() const { return chunks_.size(); }
    /// The records of one chunk, in order. Two lists share a chunk exactly when these begin at the same
    /// address.
    std::span<const T> chunk(std::size_t chunk) const { return *chunks_[chunk]; }

    /// Field-by-field equality of all records in order. A chunk shared at the same place costs one
    /// pointer comparison.
    bool operator==(const RecordList& other) const {
        if (size() != other.size()) return false;
        std::size_t left = 0, right = 0, leftAt = 0, rightAt = 0;
        while (left < chunks_.size() && right < other.chunks_.size()) {
            const auto& a = chunks_[left];
            const auto& b = other.chunks_[right];
            if (a == b && leftAt == rightAt) {
                ++left, ++right;
                leftAt = rightAt = 0;
                continue;
            }
            const auto count = std::min(a->size() - leftAt, b->size() - rightAt);
            if (!std::equal(a->begin() + std::ptrdiff_t(leftAt), a->begin() + std::ptrdiff_t(leftAt + count),
                            b->begin() + std::ptrdiff_t(rightAt)))
                return false;
            if ((leftAt += count) == a->size()) ++left, leftAt = 0;
            if ((rightAt += count) == b->size()) ++right, rightAt = 0;
        }
        return true;
    }

    /// Calls `visit` with each record of the chunks that `other` does not share, in order. A record
    /// that is not visited stands unchanged in `other` too; one that is visited may.
    template <class Visitor>
    void forEachUnshared(const RecordList& other, Visitor visit) const {
        // Lists that came from one another mostly begin and end with the same chunks: only what lies
        // between has to be looked up.
        const auto most = std::min(chunks_.size(), other.chunks_.size());
        std::size_t front = 0, back = 0;
        while (front < most && chunks_[front] == other.chunks_[front]) ++front;
        while (front + back < most &&
               chunks_.end()[-1 - std::ptrdiff_t(back)] == other.chunks_.end()[-1 - std::ptrdiff_t(back)])
            ++back;
        std::unordered_set<const Chunk*> shared;
        shared.reserve(other.chunks_.size() - front - back);
        for (auto index = front; index < other.chunks_.size() - back; ++index)
            shared.insert(other.chunks_[index].get());
        for (auto index = front; index < chunks_.size() - back; ++index)
            if (!shared.contains(chunks_[index].get()))
                for (const auto& record : *chunks_[index]) visit(record);
    }

private:
    std::size_t chunkOf(std::size_t index) const {
        const auto after = std::upper_bound(starts_.begin(), starts_.end(), index);
        return std::size_t(after - starts_.begin()) - 1;
    }

    Chunk& writable(std::size_t chunk) {
        auto& shared = chunks_[chunk];
        if (shared.use_count() > 1) shared = std::make_shared<Chunk>(*shared);
        // Another thread that just let go of this chunk had read it: its reads come before our writes.
        std::atomic_thread_fence(std::memory_order_acquire);
        return *shared;
    }

    void split(std::size_t chunk) {
        auto& records = *chunks_[chunk];
        const auto middle = records.begin() + std::ptrdiff_t(records.size() / 2);
        auto tail =
            std::make_shared<Chunk>(std::make_move_iterator(middle), std::make_move_iterator(records.end()));
        records.erase(middle, records.end());
        chunks_.insert(chunks_.begin() + std::ptrdiff_t(chunk) + 1, std::move(tail));
        starts_.push_back(0);
    }

    void recount(std::size_t from) {
        for (auto chunk = from; chunk < chunks_.size(); ++chunk)
            starts_[chunk] = chunk == 0 ? 0 : starts_[chunk - 1] + chunks_[chunk - 1]->size();
    }

    std::vector<Shared> chunks_;
    /// Position of each chunk's first record.
    std::vector<std::size_t> starts_;
};

} // namespace planner
