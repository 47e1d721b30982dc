#pragma once

#include "simulator/state/Access.h"

#include <algorithm>

namespace simulator
{

/// A kind of what the server keeps for its users to play: presets, tasks. The roles list which of
/// them they see.
struct Definitions {
    const char* kind; ///< as refusals call it
    Level Role::*right;
    QVector<int> Role::*ids;
};

constexpr Definitions presetDefinitions{"Preset", &Role::presets, &Role::presetIds};
constexpr Definitions taskDefinitions{"Task", &Role::tasks, &Role::taskIds};

/// What a role doesn't see of a folder and where that is to be played, as the word of the refusal;
/// empty for nothing.
QString lackOf(const Installation& installation, const Role& role, const Definitions& of,
               int playlist, const Targets& targets);
/// The same for all roles: everybody who administers such has to see what one plays, and where.
QString administratorsLack(const Installation& installation, const Definitions& of, int playlist,
                           const Targets& targets);
/// Who administers such sees a new one.
void grant(Installation& installation, const Definitions& of, int id);
/// One that goes leaves all roles.
void withdraw(Installation& installation, const Definitions& of, int id);

/// The id of a new one, above all others.
template <class List> int nextId(const List& list)
{
    int highest = 0;
    for (const auto& one : list) {
        highest = std::max(highest, one.id);
    }
    return highest + 1;
}

/// Whether another one is called so.
template <class List, class Item> bool isTitleTaken(const List& list, const Item& item)
{
    return std::any_of(list.begin(), list.end(), [&item](const Item& other) {
        return other.id != item.id && other.title == item.title;
    });
}

} // namespace simulator
