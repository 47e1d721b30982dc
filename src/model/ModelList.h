#pragma once

#include <QHash>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

/// Owns the mirror objects of one kind, in the order of their arrival, with a quick lookup by
/// `getId()`. Where ids repeat, the first object in the list is the one that is found. An object's
/// id must not change while it is in the list. Pointers are good until the object is removed or
/// the list cleared.
template <class T> class ModelList
{
public:
    using Storage = std::vector<std::unique_ptr<T>>;

    /// Iterates over the objects themselves; walks are in order of arrival.
    class Iterator
    {
    public:
        explicit Iterator(typename Storage::const_iterator start) : position(start) {}
        T& operator*() const { return **position; }
        Iterator& operator++()
        {
            ++position;
            return *this;
        }
        bool operator!=(const Iterator& other) const { return position != other.position; }

    private:
        typename Storage::const_iterator position;
    };

    Iterator begin() const { return Iterator(items.begin()); }
    Iterator end() const { return Iterator(items.end()); }
    int size() const { return static_cast<int>(items.size()); }
    bool isEmpty() const { return items.empty(); }
    /// The object at an index from 0 to `size()` - 1.
    T* at(int index) const { return items[static_cast<std::size_t>(index)].get(); }
    T* last() const { return isEmpty() ? nullptr : items.back().get(); }

    /// The first object with that id, or null.
    T* find(int id) const { return byId.value(id, nullptr); }
    /// The first object for which `matches` is true, or null.
    template <class Predicate> T* findIf(Predicate matches) const
    {
        const auto found = std::find_if(items.begin(), items.end(),
                                        [&](const auto& item) { return matches(*item); });
        return found == items.end() ? nullptr : found->get();
    }

    /// Takes the object in at the end, and gives it back for use.
    T* append(std::unique_ptr<T> item)
    {
        T* const added = item.get();
        items.push_back(std::move(item));
        if (!byId.contains(added->getId())) {
            byId.insert(added->getId(), added);
        }
        return added;
    }

    /// Destroys one object of the list; one that isn't in it is left alone.
    void remove(const T* item)
    {
        const auto found = std::find_if(items.begin(), items.end(),
                                        [item](const auto& held) { return held.get() == item; });
        if (found == items.end()) {
            return;
        }
        const int id = item->getId();
        const bool wasFound = byId.value(id) == item;
        items.erase(found);
        if (!wasFound) {
            return;
        }
        byId.remove(id);
        if (T* const next = findIf([id](const T& other) { return other.getId() == id; })) {
            byId.insert(id, next);
        }
    }

    /// Destroys all objects for which `matches` is true, in one walk.
    template <class Predicate> void removeIf(Predicate matches)
    {
        items.erase(std::remove_if(items.begin(), items.end(),
                                   [&](const auto& item) { return matches(*item); }),
                    items.end());
        byId.clear();
        for (const auto& item : items) {
            if (!byId.contains(item->getId())) {
                byId.insert(item->getId(), item.get());
            }
        }
    }

    void clear()
    {
        byId.clear();
        items.clear();
    }

private:
    Storage items;
    QHash<int, T*> byId;
};
