// Writing a plain property on behalf of a host: what is told after the member is stored.
#pragma once

#include <utility>

#include "grid/GridStore.h"

namespace veygrid {

// The group of properties that a member belongs to.
constexpr GridProperties& PropertyGroup(GridStore& store, const GridProperties*) {
    return store.Properties;
}
constexpr GridSwitches& PropertyGroup(GridStore& store, const GridSwitches*) {
    return store.Switches;
}

// Stores and notifies; nothing is repainted, scrolled or checked. For a table of properties, bind
// the member: WriteNotify(store, &GridProperties::MaxRow, 100).
template <class Group, class Member, class Given>
void WriteNotify(GridStore& store, Member Group::*member, Given&& value) {
    PropertyGroup(store, static_cast<const Group*>(nullptr)).*member = std::forward<Given>(value);
    store.SetModifiedAndNotify(true);
}

// Stores, has the whole control repainted, then notifies.
template <class Group, class Member, class Given>
void WriteRepaint(GridStore& store, Member Group::*member, Given&& value) {
    PropertyGroup(store, static_cast<const Group*>(nullptr)).*member = std::forward<Given>(value);
    store.Watcher().InvalidateControl();
    store.SetModifiedAndNotify(true);
}

}  // namespace veygrid
