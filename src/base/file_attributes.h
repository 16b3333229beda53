#pragma once

#include <filesystem>
#include <sys/stat.h>

namespace quillery {

/// Gives the open file `descriptor` what another file has beside its content: owner, group, mode
/// and extended attributes, among them access control lists. `info` is what `stat` says of the
/// other. False when the two can't be made alike.
bool takeAttributes(int descriptor, const std::filesystem::path& other, const struct stat& info);

} // namespace quillery
