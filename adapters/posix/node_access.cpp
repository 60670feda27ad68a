#include "adapters/posix/node_access.h"

#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <limits>
#include <string_view>
#include <vector>

namespace vireon::adapters {
namespace {

constexpr std::size_t kEntryBytes = 1 << 16;  // of one line of the account files

bool sessionHasGroup(gid_t group) {
  const int count = ::getgroups(0, nullptr);
  std::vector<gid_t> groups(static_cast<std::size_t>(std::max(count, 0)));
  const int got = ::getgroups(static_cast<int>(groups.size()), groups.data());
  groups.resize(static_cast<std::size_t>(std::max(got, 0)));
  return ::getegid() == group || std::ranges::find(groups, group) != groups.end();
}

bool listsMember(const group& entry, std::string_view account) {
  for (char** member = entry.gr_mem; *member != nullptr; ++member) {
    if (account == *member) {
      return true;
    }
  }
  return false;
}

std::string accountName() {
  std::vector<char> buffer(kEntryBytes);
  passwd entry{};
  passwd* found = nullptr;
  ::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found);
  return found == nullptr ? std::string() : std::string(found->pw_name);
}

}  // namespace

NodeAccess nodeAccess(const std::string& path) {
  struct stat node {};
  if (::stat(path.c_str(), &node) != 0) {
    return {};
  }
  NodeAccess access{::access(path.c_str(), R_OK | W_OK) == 0, std::to_string(node.st_gid), false};
  std::vector<char> buffer(kEntryBytes);
  group entry{};
  group* found = nullptr;
  ::getgrgid_r(node.st_gid, &entry, buffer.data(), buffer.size(), &found);
  if (found != nullptr) {
    access.group = found->gr_name;
    access.memberAfterNextLogin =
        !access.allowed && !sessionHasGroup(node.st_gid) && listsMember(*found, accountName());
  }
  return access;
}

double nodeAge(const std::string& path) {
  struct stat node {};
  timespec now{};
  if (::stat(path.c_str(), &node) != 0 || ::clock_gettime(CLOCK_REALTIME, &now) != 0) {
    return std::numeric_limits<double>::infinity();
  }
  return static_cast<double>(now.tv_sec - node.st_ctim.tv_sec) +
         static_cast<double>(now.tv_nsec - node.st_ctim.tv_nsec) * 1e-9;
}

}  // namespace vireon::adapters
