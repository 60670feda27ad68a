#pragma once

#include <string>

namespace vireon::adapters {

// What this account may do with a device node.
struct NodeAccess {
  bool allowed = false;               // it may read and write it
  std::string group;                  // the owning group's name, its number where it has none
  bool memberAfterNextLogin = false;  // the account is in that group, this session is not yet
};

// Nothing is allowed on a node that is not there.
NodeAccess nodeAccess(const std::string& path);

// Seconds since the node was made or its rights were last changed; a large number when it is not there.
double nodeAge(const std::string& path);

}  // namespace vireon::adapters
