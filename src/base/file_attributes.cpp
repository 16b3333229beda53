#include "base/file_attributes.h"

#include <cerrno>
#include <map>
#include <optional>
#include <string>
#include <sys/xattr.h>
#include <unistd.h>

namespace quillery {
namespace {

using Attributes = std::map<std::string, std::string>;

// What a call that fills a buffer has to say; nothing when it fails.
template <typename Fill> std::optional<std::string> filled(Fill fill) {
  const ssize_t size = fill(nullptr, 0);
  if (size <= 0) return size == 0 ? std::optional<std::string>("") : std::nullopt;
  std::string buffer(static_cast<std::size_t>(size), '\0');
  const ssize_t used = fill(buffer.data(), buffer.size());
  if (used < 0) return std::nullopt;
  buffer.resize(static_cast<std::size_t>(used));
  return buffer;
}

// `list(buffer, size)` and `get(name, buffer, size)` are the system's calls for one file.
template <typename List, typename Get> std::optional<Attributes> attributes(List list, Get get) {
  const auto names = filled(list);
  if (!names) return errno == ENOTSUP ? std::optional(Attributes()) : std::nullopt;
  Attributes result;
  for (std::size_t i = 0; i < names->size();) {
    const std::string name = names->c_str() + i; // each ends in a NUL
    i += name.size() + 1;
    const auto value =
        filled([&](char* buffer, std::size_t size) { return get(name.c_str(), buffer, size); });
    if (!value) return std::nullopt;
    result[name] = *value;
  }
  return result;
}

bool takeExtendedAttributes(int descriptor, const std::filesystem::path& other) {
  const auto wanted = attributes(
      [&](char* buffer, std::size_t size) { return listxattr(other.c_str(), buffer, size); },
      [&](const char* name, void* buffer, std::size_t size) {
        return getxattr(other.c_str(), name, buffer, size);
      });
  // A folder can give its new files access control lists of its own.
  const auto own = attributes(
      [&](char* buffer, std::size_t size) { return flistxattr(descriptor, buffer, size); },
      [&](const char* name, void* buffer, std::size_t size) {
        return fgetxattr(descriptor, name, buffer, size);
      });
  if (!wanted || !own) return false;
  for (const auto& [name, value] : *own)
    if (!wanted->contains(name) && fremovexattr(descriptor, name.c_str()) != 0) return false;
  for (const auto& [name, value] : *wanted) {
    const auto has = own->find(name);
    if (has != own->end() && has->second == value) continue;
    if (fsetxattr(descriptor, name.c_str(), value.data(), value.size(), 0) != 0) return false;
  }
  return true;
}

} // namespace

bool takeAttributes(int descriptor, const std::filesystem::path& other, const struct stat& info) {
  const mode_t mode = info.st_mode & 07777;
  struct stat own {};
  if (fstat(descriptor, &own) != 0) return false;
  // Neither is a matter of who we are: a folder can hand its group down.
  if ((own.st_uid != info.st_uid || own.st_gid != info.st_gid) &&
      fchown(descriptor, info.st_uid, info.st_gid) != 0)
    return false;
  // The mode comes last: a new owner takes bits from it, and a list decides on the group's.
  if (!takeExtendedAttributes(descriptor, other) || fchmod(descriptor, mode) != 0) return false;
  return fstat(descriptor, &own) == 0 && (own.st_mode & 07777) == mode;
}

} // namespace quillery
