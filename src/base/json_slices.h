#pragma once

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillery {

/// A large JSON object taken apart for parsing in pieces: a parser needs several times the memory
/// of the text that it is given, and a piece that fits the processor's cache parses faster.
struct JsonSlices {
  /// A run of whole items of one array. The first and the last byte are the brackets or commas
  /// that bound the run; between them stands what an array holds.
  struct Slice {
    std::size_t member = 0; // which of the sliced members
    std::size_t begin = 0;
    std::size_t end = 0;
  };

  /// The object with the sliced arrays empty.
  std::string skeleton;
  /// In the order of the text.
  std::vector<Slice> slices;
};

/// Cuts the arrays that are the named members of the object `text` into runs of about `sliceSize`
/// bytes. Nothing for text that is not plainly such an object (malformed, a member twice, escapes
/// in names): then it is to be parsed whole. What is cut is not checked beyond its brackets.
std::optional<JsonSlices> sliceJsonObject(std::string_view text,
                                          std::initializer_list<std::string_view> members,
                                          std::size_t sliceSize);

} // namespace quillery
