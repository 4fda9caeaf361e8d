#pragma once

#include "model/DuplicateKeyError.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <limits>
#include <memory>
#include <optional>
#include <ranges>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

namespace orbelan {

// The ordered keyed collection behind Layers, Entidades, Campos, Labels and
// ThematicMap: elements keep the order in which they were added, are reached
// by 1-based position or by key text, and no two share a key.
//
// Keys are texts to the outside. Collections keyed by the decimal text of an
// id store the id itself (Key = std::int32_t): the text "12" finds key 12,
// while "012" or " 12" find nothing, as they are other texts. Collections
// keyed by a name store the name (Key = std::string). Keys compare exactly.
//
// Lookup by key is O(1) on average. Removal leaves a hole that iteration
// skips; the holes are squeezed out once they outnumber the elements, so
// removing k elements from n costs O(k + n) in all. While holes exist a
// position is found through a Fenwick tree over the live slots, built on the
// first positional access after a removal, in O(log n).
//
// Elements are owned by the collection and never move in memory: a pointer
// from Item or Find stays valid until that element is removed. Changing the
// collection while iterating over it is safe, but the loop may then miss or
// repeat elements, as squeezing and inserting move them between slots; an
// element added at the end during the loop is visited.
template <typename T, typename Key>
    requires std::same_as<Key, std::string> || std::same_as<Key, std::int32_t>
class KeyedCollection {
    struct Slot {
        std::unique_ptr<T> value; // empty once the element is removed
        Key key{};
    };

    template <bool Const>
    class Iterator {
        using Owner = std::conditional_t<Const, const KeyedCollection, KeyedCollection>;

    public:
        using value_type = T;
        using difference_type = std::ptrdiff_t;

        Iterator() = default;
        Iterator(Owner* owner, std::size_t slot) : owner_(owner), slot_(slot) { skipHoles(); }

        std::conditional_t<Const, const T&, T&> operator*() const { return *owner_->slots_[slot_].value; }
        Iterator& operator++()
        {
            ++slot_;
            skipHoles();
            return *this;
        }
        Iterator operator++(int)
        {
            Iterator before = *this;
            ++*this;
            return before;
        }
        friend bool operator==(const Iterator& it, std::default_sentinel_t) { return it.atEnd(); }

    private:
        bool atEnd() const { return owner_ == nullptr || slot_ >= owner_->slots_.size(); }
        void skipHoles()
        {
            while (!atEnd() && !owner_->slots_[slot_].value) {
                ++slot_;
            }
        }

        Owner* owner_ = nullptr;
        std::size_t slot_ = 0;
    };

    // The elements from an iterator to the end, for range-for and the range
    // algorithms. Not std::ranges::subrange: clang 14 cannot instantiate it
    // with this library's view_interface, and the fuzzers build with clang.
    template <typename It>
    class Elements {
    public:
        explicit Elements(It first) : first_(first) {}
        It begin() const { return first_; }
        std::default_sentinel_t end() const { return std::default_sentinel; }

    private:
        It first_;
    };

    struct TextHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const noexcept { return std::hash<std::string_view>{}(text); }
    };
    using Index = std::conditional_t<std::same_as<Key, std::string>,
                                     std::unordered_map<std::string, std::uint32_t, TextHash, std::equal_to<>>,
                                     std::unordered_map<std::int32_t, std::uint32_t>>;

    static constexpr std::size_t kNoSlot = std::numeric_limits<std::size_t>::max();

public:
    using iterator = Iterator<false>;
    using const_iterator = Iterator<true>;

    std::int32_t count() const { return static_cast<std::int32_t>(index_.size()); }

    // The element at a 1-based position, or null when there is none.
    const T* Item(std::int32_t position) const { return valueAt(slotOf(position)); }
    T* Item(std::int32_t position) { return const_cast<T*>(std::as_const(*this).Item(position)); }
    // The element under a key text, or null when there is none.
    const T* Item(std::string_view key) const { return valueAt(slotOfText(key)); }
    T* Item(std::string_view key) { return const_cast<T*>(std::as_const(*this).Item(key)); }
    // The element under a key, or null when there is none.
    const T* Find(const Key& key) const { return valueAt(slotOfKey(key)); }
    T* Find(const Key& key) { return const_cast<T*>(std::as_const(*this).Find(key)); }

    // Each removes one element and tells whether there was one to remove.
    bool Remove(std::int32_t position) { return takeSlot(slotOf(position)) != nullptr; }
    bool Remove(std::string_view key) { return takeSlot(slotOfText(key)) != nullptr; }
    bool RemoveKey(const Key& key) { return takeSlot(slotOfKey(key)) != nullptr; }

    void Clear()
    {
        // The elements die after the collection is consistent again, in case
        // one of them looks at it on the way out.
        std::vector<Slot> old = std::move(slots_);
        slots_.clear();
        index_.clear();
        holes_ = 0;
        rank_.clear();
        lastNumber_ = 0;
        ++removals_;
    }

    // Changes whenever an element leaves the collection, so that a holder of
    // element pointers knows when to look them up again.
    std::uint64_t removals() const { return removals_; }

    iterator begin() { return iterator(this, 0); }
    const_iterator begin() const { return const_iterator(this, 0); }
    std::default_sentinel_t end() const { return std::default_sentinel; }
    // The elements in order.
    Elements<iterator> NewEnum() { return Elements<iterator>(begin()); }
    Elements<const_iterator> NewEnum() const { return Elements<const_iterator>(begin()); }

protected:
    // Adds at the end. DuplicateKeyError when the key is taken.
    T& Insert(Key key, std::unique_ptr<T> value)
    {
        checkNewKey(key);
        slots_.push_back(Slot{std::move(value), std::move(key)});
        try {
            index_.emplace(slots_.back().key, static_cast<std::uint32_t>(slots_.size() - 1));
            if (!rank_.empty()) {
                appendRank();
            }
        } catch (...) {
            rank_.clear();
            index_.erase(slots_.back().key);
            slots_.pop_back();
            throw;
        }
        return *slots_.back().value;
    }

    // Adds before the element at a 1-based position, which must exist. This
    // renumbers the elements after it, so it costs O(n).
    T& InsertBefore(std::int32_t position, Key key, std::unique_ptr<T> value)
    {
        if (position < 1 || position > count()) {
            throw std::out_of_range("no element at position " + std::to_string(position) + " to insert before");
        }
        checkNewKey(key);
        squeezeHoles();
        const auto at = static_cast<std::size_t>(position - 1);
        slots_.insert(slots_.begin() + static_cast<std::ptrdiff_t>(at), Slot{std::move(value), std::move(key)});
        index_.emplace(slots_[at].key, static_cast<std::uint32_t>(at));
        renumberFrom(at + 1);
        return *slots_[at].value;
    }

    // Adds at the end under the decimal text of count + 1, the element's
    // position while nothing is removed. After a removal that number may
    // still be taken by a later element, so the key is then one past the
    // largest number given since the last Clear.
    T& InsertNumbered(std::unique_ptr<T> value)
        requires std::same_as<Key, std::int32_t>
    {
        if (lastNumber_ == std::numeric_limits<std::int32_t>::max()) {
            throw std::length_error("no number is left for another element");
        }
        const std::int32_t key = std::max(count(), lastNumber_) + 1;
        T& added = Insert(key, std::move(value));
        lastNumber_ = key;
        return added;
    }

    // Removes an element without destroying it.
    std::unique_ptr<T> Take(const Key& key) { return takeSlot(slotOfKey(key)); }

private:
    static std::string keyText(const Key& key)
    {
        if constexpr (std::same_as<Key, std::string>) {
            return key;
        } else {
            return std::to_string(key);
        }
    }

    // The id whose decimal text is exactly this text, if any.
    static std::optional<std::int32_t> idOfText(std::string_view text)
    {
        std::int32_t id = 0;
        const char* last = text.data() + text.size();
        const auto [end, error] = std::from_chars(text.data(), last, id);
        if (error != std::errc{} || end != last || std::to_string(id) != text) {
            return std::nullopt;
        }
        return id;
    }

    void checkNewKey(const Key& key) const
    {
        if (index_.contains(key)) {
            throw DuplicateKeyError(keyText(key));
        }
        // Counts and positions are Longs.
        if (index_.size() >= static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
            throw std::length_error("a collection holds at most 2147483647 elements");
        }
    }

    const T* valueAt(std::size_t slot) const { return slot == kNoSlot ? nullptr : slots_[slot].value.get(); }

    std::size_t slotOfKey(const Key& key) const
    {
        const auto found = index_.find(key);
        return found == index_.end() ? kNoSlot : found->second;
    }

    std::size_t slotOfText(std::string_view text) const
    {
        if constexpr (std::same_as<Key, std::string>) {
            const auto found = index_.find(text);
            return found == index_.end() ? kNoSlot : found->second;
        } else {
            const std::optional<std::int32_t> id = idOfText(text);
            return id ? slotOfKey(*id) : kNoSlot;
        }
    }

    std::size_t slotOf(std::int32_t position) const
    {
        if (position < 1 || position > count()) {
            return kNoSlot;
        }
        if (holes_ == 0) {
            return static_cast<std::size_t>(position - 1);
        }
        buildRank();
        return nthLiveSlot(position);
    }

    std::unique_ptr<T> takeSlot(std::size_t slot)
    {
        if (slot == kNoSlot) {
            return nullptr;
        }
        std::unique_ptr<T> taken = std::move(slots_[slot].value);
        index_.erase(slots_[slot].key);
        ++holes_;
        ++removals_;
        if (!rank_.empty()) {
            for (std::size_t i = slot + 1; i < rank_.size(); i += lowestBit(i)) {
                --rank_[i];
            }
        }
        if (holes_ > index_.size()) {
            squeezeHoles();
        }
        return taken;
    }

    // Moves the live slots together, keeping their order.
    void squeezeHoles()
    {
        if (holes_ == 0) {
            return;
        }
        std::size_t kept = 0;
        for (Slot& slot : slots_) {
            if (slot.value) {
                index_.find(slot.key)->second = static_cast<std::uint32_t>(kept);
                if (&slots_[kept] != &slot) {
                    slots_[kept] = std::move(slot);
                }
                ++kept;
            }
        }
        slots_.erase(slots_.begin() + static_cast<std::ptrdiff_t>(kept), slots_.end());
        holes_ = 0;
        rank_.clear();
    }

    void renumberFrom(std::size_t first)
    {
        for (std::size_t slot = first; slot < slots_.size(); ++slot) {
            index_.find(slots_[slot].key)->second = static_cast<std::uint32_t>(slot);
        }
    }

    static std::size_t lowestBit(std::size_t i) { return i & (~i + 1); }

    // rank_[i] counts the live slots in the 1-based range (i - lowestBit(i), i].
    void buildRank() const
    {
        if (!rank_.empty()) {
            return;
        }
        rank_.assign(slots_.size() + 1, 0);
        for (std::size_t i = 1; i <= slots_.size(); ++i) {
            rank_[i] += slots_[i - 1].value ? 1 : 0;
            const std::size_t parent = i + lowestBit(i);
            if (parent <= slots_.size()) {
                rank_[parent] += rank_[i];
            }
        }
    }

    void appendRank()
    {
        const std::size_t i = slots_.size();
        rank_.push_back(1 + liveUpTo(i - 1) - liveUpTo(i - lowestBit(i)));
    }

    std::int32_t liveUpTo(std::size_t i) const
    {
        std::int32_t live = 0;
        for (; i > 0; i -= lowestBit(i)) {
            live += rank_[i];
        }
        return live;
    }

    // The 0-based slot of the n-th live element, by descending the tree.
    std::size_t nthLiveSlot(std::int32_t n) const
    {
        std::size_t below = 0;
        for (std::size_t step = std::bit_floor(slots_.size()); step != 0; step >>= 1) {
            if (below + step <= slots_.size() && rank_[below + step] < n) {
                below += step;
                n -= rank_[below];
            }
        }
        return below;
    }

    std::vector<Slot> slots_;
    Index index_;
    std::size_t holes_ = 0;
    mutable std::vector<std::int32_t> rank_; // empty until a position is looked up past a hole
    std::uint64_t removals_ = 0;
    // The largest key InsertNumbered gave since the last Clear.
    std::int32_t lastNumber_ = 0;
};

} // namespace orbelan
