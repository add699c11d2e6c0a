#pragma once

#include "text/case_folding.h"
#include "text/runtime_error.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

namespace veldrane {

// What a collection does when it is asked for a key or a position that it does not hold.
enum class OnMissing
{
    Raises,        // RuntimeError: 5 for a key, 9 for a position
    YieldsNothing, // of Item: a null pointer
    Ignored,       // of Remove: nothing happens
};

// Which of the members that not every collection has are there.
enum class Extras
{
    None,
    Clear,
    AddExisting,
    AddExistingAndClear,
    AddExistingAndLastIndex,
};

struct CollectionRules
{
    OnMissing Item = OnMissing::Raises;
    OnMissing Remove = OnMissing::Raises;
    Extras Extra = Extras::None;
};

// The one collection of the program: items in the order of insertion, reached by 1-based position or by a key that is
// compared without regard to case and unique in the collection. An item added under an empty key has none.
//
// A collection adds the `Add` of its own item type through Insert. Items are shared; copying a collection is not
// possible, because what a copy takes along differs from type to type.
template <class ItemType, CollectionRules Rules>
class KeyedCollection
{
  public:
    using ItemPointer = std::shared_ptr<ItemType>;

    KeyedCollection() = default;
    ~KeyedCollection() = default;
    KeyedCollection(const KeyedCollection&) = delete;
    KeyedCollection& operator=(const KeyedCollection&) = delete;
    KeyedCollection(KeyedCollection&&) noexcept = default;
    KeyedCollection& operator=(KeyedCollection&&) noexcept = default;

    [[nodiscard]] ItemPointer Item(std::string_view key) const
    {
        if (const ItemPointer* found = Find(text::Fold(key)))
            return *found;
        if constexpr (Rules.Item == OnMissing::Raises)
            throw NoSuchKey(key);
        return nullptr;
    }

    [[nodiscard]] ItemPointer Item(std::size_t position) const
    {
        if (position >= 1 && position <= entries_.size())
            return entries_[position - 1].Item;
        if constexpr (Rules.Item == OnMissing::Raises)
            throw NoSuchPosition(position);
        return nullptr;
    }

    // Whether an item stands under the key. Never raises.
    [[nodiscard]] bool Contains(std::string_view key) const { return Find(text::Fold(key)) != nullptr; }

    [[nodiscard]] std::size_t Count() const { return entries_.size(); }

    void Remove(std::string_view key)
    {
        const std::string folded = text::Fold(key);
        const auto found = EntryOf(folded);
        if (found != entries_.end())
            Erase(entries_.begin() + (found - entries_.begin()));
        else if constexpr (Rules.Remove == OnMissing::Raises)
            throw NoSuchKey(key);
    }

    void Remove(std::size_t position)
    {
        if (position >= 1 && position <= entries_.size())
            Erase(entries_.begin() + static_cast<std::ptrdiff_t>(position - 1));
        else if constexpr (Rules.Remove == OnMissing::Raises)
            throw NoSuchPosition(position);
    }

    // Puts an item that already exists into the collection; false if the key is in use.
    bool AddExisting(ItemPointer item,
                     std::string_view key) requires(Rules.Extra != Extras::None && Rules.Extra != Extras::Clear)
    {
        if (!key.empty() && Contains(key))
            return false;
        Insert(std::move(item), key);
        return true;
    }

    void Clear() requires(Rules.Extra == Extras::AddExistingAndClear || Rules.Extra == Extras::Clear)
    {
        entries_.clear();
        index_.reset();
    }

    // The key given to the latest successful addition under a key that was not empty.
    [[nodiscard]] const std::string& LastIndex() const requires(Rules.Extra == Extras::AddExistingAndLastIndex)
    {
        return lastKey_;
    }

    // Adds to `target`, in the same order and under the same keys, what `copy` makes of each item. Throws RuntimeError
    // 457 if `target` holds one of the keys already.
    template <class Copy>
    void CopyInto(KeyedCollection& target, const Copy& copy) const
    {
        for (const Entry& entry : entries_)
            target.Insert(copy(*entry.Item), entry.FoldedKey);
        if constexpr (kKnowsLastIndex)
            target.lastKey_ = lastKey_;
    }

  private:
    struct Entry
    {
        ItemPointer Item;
        std::string FoldedKey;
    };

  public:
    // Iteration gives references to the items in their order. The collection may grow meanwhile only if it is walked
    // by position instead.
    class Iterator
    {
      public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = ItemType;
        using difference_type = std::ptrdiff_t;
        using pointer = ItemType*;
        using reference = ItemType&;

        Iterator() = default;
        explicit Iterator(typename std::vector<Entry>::const_iterator at) : at_(at) {}
        reference operator*() const { return *at_->Item; }
        pointer operator->() const { return at_->Item.get(); }
        Iterator& operator++()
        {
            ++at_;
            return *this;
        }
        Iterator operator++(int)
        {
            Iterator before = *this;
            ++at_;
            return before;
        }
        friend bool operator==(const Iterator&, const Iterator&) = default;

      private:
        typename std::vector<Entry>::const_iterator at_;
    };

    [[nodiscard]] Iterator begin() const { return Iterator(entries_.begin()); }
    [[nodiscard]] Iterator end() const { return Iterator(entries_.end()); }

  protected:
    // Appends the item under the key. Throws RuntimeError 457 if the key is in use; the collection is then as it was.
    ItemPointer Insert(ItemPointer item, std::string_view key)
    {
        std::string folded = text::Fold(key);
        if (Find(folded) != nullptr)
            throw RuntimeError(error_number::kDuplicateKey, "Collection",
                               "This key is already associated with an element of this collection: '" +
                                   std::string(key) + "'");
        entries_.push_back({item, std::move(folded)});
        AddToIndex(entries_.back());
        if constexpr (kKnowsLastIndex)
            if (!key.empty())
                lastKey_ = key;
        return item;
    }

  private:
    static RuntimeError NoSuchKey(std::string_view key)
    {
        return {error_number::kInvalidCall, "Collection",
                "There is no element with the key '" + std::string(key) + "' in this collection."};
    }

    static RuntimeError NoSuchPosition(std::size_t position)
    {
        return {error_number::kSubscript, "Collection",
                "There is no element at position " + std::to_string(position) + " in this collection."};
    }

    using Entries = std::vector<Entry>;
    using Index = std::unordered_map<std::string, ItemPointer>; // by folded key

    // Most collections hold a few dozen items at most: to walk over them takes no longer than to look into an index,
    // and the index would take more memory than their entries. It is made when a collection outgrows this.
    static constexpr std::size_t kMostWithoutIndex = 64;

    static constexpr bool kKnowsLastIndex = Rules.Extra == Extras::AddExistingAndLastIndex;

    struct Nothing
    {};

    // An empty key is no key: nothing stands under it.
    [[nodiscard]] typename Entries::const_iterator EntryOf(std::string_view folded) const
    {
        if (folded.empty())
            return entries_.end();
        return std::find_if(entries_.begin(), entries_.end(),
                            [&](const Entry& entry) { return entry.FoldedKey == folded; });
    }

    [[nodiscard]] const ItemPointer* Find(const std::string& folded) const
    {
        if (index_ == nullptr) {
            const auto entry = EntryOf(folded);
            return entry == entries_.end() ? nullptr : &entry->Item;
        }
        const auto found = index_->find(folded);
        return found == index_->end() ? nullptr : &found->second;
    }

    void AddToIndex(const Entry& added)
    {
        if (index_ == nullptr && entries_.size() <= kMostWithoutIndex)
            return;
        const auto add = [this](const Entry& entry) {
            if (!entry.FoldedKey.empty())
                index_->emplace(entry.FoldedKey, entry.Item);
        };
        if (index_ != nullptr)
            return add(added);
        index_ = std::make_unique<Index>();
        std::for_each(entries_.begin(), entries_.end(), add);
    }

    void Erase(typename Entries::iterator entry)
    {
        if (index_ != nullptr)
            index_->erase(entry->FoldedKey);
        entries_.erase(entry);
    }

    Entries entries_;
    std::unique_ptr<Index> index_; // nothing while the entries are few
    [[no_unique_address]] std::conditional_t<kKnowsLastIndex, std::string, Nothing> lastKey_;
};

} // namespace veldrane
