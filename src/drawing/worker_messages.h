#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillery {

// What goes to and fro between quillery and the process that draws drawings: a list of byte
// strings, each behind its length in four bytes (little-endian), all of it behind its own length.

using Fields = std::vector<std::string>;

inline constexpr std::size_t kLengthBytes = 4;
/// More is no message of ours.
inline constexpr std::size_t kLongestMessage = 64 * 1024 * 1024;

/// The message as it is sent.
std::string encodeMessage(const Fields& fields);
/// The length of what follows, from the first four bytes of a message; nothing when it is too long.
std::optional<std::size_t> messageLength(std::string_view fourBytes);
/// The fields of what follows; nothing when it is no list of byte strings.
std::optional<Fields> decodeFields(std::string_view body);

// What is asked: the word and the content of a drawing's file.
inline constexpr const char* kAskFlatten = "flatten";
inline constexpr const char* kAskTrace = "trace"; ///< the same by tracing, when flattening failed
inline constexpr const char* kAskSheet = "sheet";
// What is answered: the word, then the fields of a FlatDrawing or of a DrawingSheet, or the reason.
inline constexpr const char* kDone = "done";
inline constexpr const char* kRefused = "refused";

} // namespace quillery
