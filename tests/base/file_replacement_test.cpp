#include "base/file.h"
#include "support/system_faults.h"
#include "support/temporary_folder.h"
#include "support/testing.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <set>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <tuple>
#include <unistd.h>

namespace quillery::test {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;

const std::string kOld = "the old content, of some length";

std::set<std::string> namesIn(const TemporaryFolder& folder) {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder.path()))
    names.insert(entry.path().filename());
  return names;
}

// An access control list as the system keeps it: entries of kind, rights and who.
std::string accessList(std::initializer_list<std::array<std::uint32_t, 3>> entries) {
  const auto bytes = [](auto value) {
    return std::string(reinterpret_cast<const char*>(&value), sizeof(value));
  };
  std::string list = bytes(std::uint32_t{2});
  for (const auto& [kind, rights, who] : entries)
    list += bytes(static_cast<std::uint16_t>(kind)) + bytes(static_cast<std::uint16_t>(rights)) +
            bytes(who);
  return list;
}

constexpr std::uint32_t kNobody = 0xFFFFFFFF;
constexpr const char* kAccessList = "system.posix_acl_access";

void setAttribute(const fs::path& file, const char* name, const std::string& value) {
  ASSERT_EQ(setxattr(file.c_str(), name, value.data(), value.size(), 0), 0) << file << name;
}

std::string attribute(const fs::path& file, const char* name) {
  char value[1000];
  const ssize_t size = getxattr(file.c_str(), name, value, sizeof(value));
  return size < 0 ? "none" : std::string(value, static_cast<std::size_t>(size));
}

// A file with an attribute, in a folder that gives its new files a list of who may read them.
void arrangeAttributes(const TemporaryFolder& folder) {
  setAttribute(folder.write("file", kOld), "user.note", "of the owner");
  setAttribute(
      folder.path(), "system.posix_acl_default",
      accessList(
          {{1, 7, kNobody}, {2, 6, 4711}, {4, 5, kNobody}, {16, 7, kNobody}, {32, 5, kNobody}}));
}

// A file in one of the situations that a save can meet.
struct Situation {
  const char* name;
  std::function<void(const TemporaryFolder&)> arrange;
  bool foldersClosed = false;
};

const Situation kSituations[] = {
    {"an existing file", [](const auto& folder) { folder.write("file", kOld); }},
    {"a new file", [](const auto&) {}},
    {"a file with attributes", arrangeAttributes},
    {"a link to a file",
     [](const auto& folder) {
       folder.write("elsewhere", kOld);
       fs::create_symlink("elsewhere", folder / "file");
     }},
    {"a file with two names",
     [](const auto& folder) {
       fs::create_hard_link(folder.write("other name", kOld), folder / "file");
     }},
    {"a file in a folder that can't be written",
     [](const auto& folder) { folder.write("file", kOld); }, true}};

// Lets the first, second, third... call of a replacement fail until it gets by without a failure.
TEST(FileReplacement, LeavesTheOldContentWhicheverCallFails) {
  for (const Situation& situation : kSituations) {
    for (const int code : {EIO, ENOSPC}) {
      for (const std::string& content : {std::string(5000, 'n'), std::string()}) {
        bool reachedTheEnd = false;
        for (int n = 1; n < 100 && !reachedTheEnd; ++n) {
          const TemporaryFolder folder;
          situation.arrange(folder);
          const auto namesBefore = namesIn(folder);
          const auto before = contentOf(folder / "file");
          const auto noteBefore = attribute(folder / "file", "user.note");
          Result<void, Problem> result;
          std::string struck;
          {
            SystemFaults faults({.failNth = n,
                                 .code = code,
                                 .foldersClosed = situation.foldersClosed,
                                 .transferLimit = 2000}); // some of it is written already
            result = replaceFile(folder / "file", content);
            reachedTheEnd = faults.struck() == nullptr;
            if (!reachedTheEnd) struck = faults.struck();
          }
          SCOPED_TRACE(std::string(situation.name) + ", failing call " + std::to_string(n) + " " +
                       struck);
          const std::string after = contentOf(folder / "file");
          auto expectedNames = namesBefore;
          if (result) {
            EXPECT_EQ(after, content);
            expectedNames.insert("file");
            // What is not needed to keep the content may fail: closing what was only read, opening
            // and flushing the folder, making the sibling like the file (which is written then).
            if (!reachedTheEnd) {
              EXPECT_THAT(struck, ::testing::AnyOf("close", "open", "fsync", "fstat", "fchmod",
                                                   EndsWith("xattr")));
            }
          } else {
            EXPECT_EQ(result.error().place, (folder / "file").string());
            EXPECT_EQ(result.error().reason, std::generic_category().message(code));
            EXPECT_EQ(after, before);
          }
          EXPECT_EQ(namesIn(folder), expectedNames);
          EXPECT_EQ(attribute(folder / "file", "user.note"), noteBefore);
        }
        EXPECT_TRUE(reachedTheEnd) << situation.name;
      }
    }
  }
}

TEST(FileReplacement, WritesOnAfterShortAndInterruptedWrites) {
  const TemporaryFolder folder;
  for (const bool foldersClosed : {false, true}) {
    const auto file = folder.write("file", kOld);
    {
      const SystemFaults faults({.foldersClosed = foldersClosed, .transferLimit = 7});
      EXPECT_TRUE(replaceFile(file, std::string(100, 'x')));
    }
    EXPECT_EQ(contentOf(file), std::string(100, 'x'));
    {
      const SystemFaults faults(
          {.failNth = 1, .only = "pwrite", .code = EINTR, .foldersClosed = foldersClosed});
      EXPECT_TRUE(replaceFile(file, "after an interruption"));
    }
    EXPECT_EQ(contentOf(file), "after an interruption");
  }
}

TEST(FileReplacement, KeepsModeLinksAndNames) {
  const TemporaryFolder folder;
  const auto file = folder.write("file", kOld);
  for (const mode_t mode : {0640U, 0755U, 0600U}) {
    chmod(file.c_str(), mode);
    ASSERT_TRUE(replaceFile(file, "new"));
    EXPECT_EQ(static_cast<mode_t>(fs::status(file).permissions()), mode);
  }

  fs::create_directory(folder / "far");
  fs::create_symlink("../file", folder / "far/inner");
  fs::create_symlink("far/inner", folder / "outer");
  ASSERT_TRUE(replaceFile(folder / "outer", "through two links"));
  EXPECT_TRUE(fs::is_symlink(folder / "outer"));
  EXPECT_TRUE(fs::is_symlink(folder / "far/inner"));
  EXPECT_EQ(contentOf(file), "through two links");

  fs::create_symlink(folder / "not yet", folder / "dangling");
  ASSERT_TRUE(replaceFile(folder / "dangling", "now"));
  EXPECT_TRUE(fs::is_symlink(folder / "dangling"));
  EXPECT_EQ(contentOf(folder / "not yet"), "now");

  fs::create_hard_link(file, folder / "second name");
  ASSERT_TRUE(replaceFile(file, "short"));
  EXPECT_EQ(contentOf(folder / "second name"), "short");
  EXPECT_EQ(fs::hard_link_count(file), 2U);
}

TEST(FileReplacement, LetsTheSameUsersReadTheFileAsBefore) {
  const TemporaryFolder folder;
  arrangeAttributes(folder);
  const auto file = folder / "file";
  ASSERT_EQ(chmod(file.c_str(), 0640), 0);
  ASSERT_EQ(removexattr(file.c_str(), kAccessList) == 0 || errno == ENODATA, true);
  ASSERT_TRUE(replaceFile(file, "new"));
  EXPECT_EQ(attribute(file, kAccessList), "none") << "the folder's list is for new files";
  EXPECT_EQ(attribute(file, "user.note"), "of the owner");

  const std::string list = accessList(
      {{1, 6, kNobody}, {2, 4, 4712}, {4, 0, kNobody}, {16, 4, kNobody}, {32, 0, kNobody}});
  setAttribute(file, kAccessList, list);
  ASSERT_TRUE(replaceFile(file, "newer"));
  EXPECT_EQ(attribute(file, kAccessList), list);

  if (geteuid() != 0) GTEST_SKIP() << "another group takes a user who may choose it";
  removexattr(folder.path().c_str(), "system.posix_acl_default");
  ASSERT_EQ(chown(folder.path().c_str(), 0, 4713), 0);
  ASSERT_EQ(chmod(folder.path().c_str(), 02775), 0); // hands its group down
  struct stat before {
  }, after{};
  for (const gid_t group : {0U, 4714U}) {
    ASSERT_EQ(chown(file.c_str(), 4715, group), 0);
    ASSERT_EQ(chmod(file.c_str(), 02640), 0);
    ASSERT_EQ(stat(file.c_str(), &before), 0);
    ASSERT_TRUE(replaceFile(file, "newest"));
    ASSERT_EQ(stat(file.c_str(), &after), 0);
    EXPECT_NE(after.st_ino, before.st_ino);
    EXPECT_EQ(std::tie(after.st_uid, after.st_gid, after.st_mode),
              std::tie(before.st_uid, before.st_gid, before.st_mode));
  }
}

TEST(FileReplacement, RefusesWhatIsNoFileOfTheUser) {
  const TemporaryFolder folder;
  fs::create_directory(folder / "folder");
  mkfifo((folder / "pipe").c_str(), 0600);
  fs::create_symlink("pipe", folder / "link to pipe");
  fs::create_symlink("loop", folder / "loop");
  folder.write("file", kOld);
  const auto namesBefore = namesIn(folder);
  const std::pair<const char*, const char*> rows[] = {
      {"folder", "Is a folder, not a file"},     {"pipe", "Is not a regular file"},
      {"link to pipe", "Is not a regular file"}, {"loop", "Too many levels of symbolic links"},
      {"file/below", "Not a directory"},         {"absent/file", "No such file or directory"}};
  for (const auto& [name, reason] : rows) {
    const auto result = replaceFile(folder / name, "new");
    ASSERT_FALSE(result) << name;
    EXPECT_EQ(result.error().description(), (folder / name).string() + ": " + reason);
  }
  const SystemFaults faults({.failNth = 1, .only = "access", .code = EACCES});
  const auto result = replaceFile(folder / "file", "new");
  ASSERT_FALSE(result);
  EXPECT_EQ(result.error().reason, "Permission denied");
  EXPECT_EQ(contentOf(folder / "file"), kOld);
  EXPECT_EQ(namesIn(folder), namesBefore);
}

TEST(ReadFile, ReadsEveryByteInWhateverPieces) {
  const TemporaryFolder folder;
  FileBytes bytes;
  for (const std::size_t size : {100'000UL, 0UL, 1UL, 4096UL}) {
    const std::string content(size, '\0');
    const auto file = folder.write("file", content);
    ASSERT_TRUE(readFile(file, bytes));
    EXPECT_EQ(bytes.view(), content);
    const SystemFaults faults({.failNth = 1, .only = "read", .code = EINTR, .transferLimit = 100});
    ASSERT_TRUE(readFile(file, bytes));
    EXPECT_EQ(bytes.view(), content);
  }
}

TEST(ReadFile, RefusesWhatIsNoFileWithoutWaiting) {
  const TemporaryFolder folder;
  mkfifo((folder / "pipe").c_str(), 0600);
  FileBytes bytes;
  const std::pair<fs::path, const char*> rows[] = {
      {folder / "pipe", "Is not a regular file"},
      {"/dev/zero", "Is not a regular file"},
      {folder.path(), "Is a folder, not a file"},
      {folder / "absent", "No such file or directory"},
      {folder / std::string(300, 'n'), "File name too long"}};
  for (const auto& [file, reason] : rows) {
    const auto result = readFile(file, bytes);
    ASSERT_FALSE(result) << file;
    EXPECT_EQ(result.error().description(), file.string() + ": " + reason);
  }
  const auto file = folder.write("file", kOld);
  for (const char* call : {"open", "fstat", "read"}) {
    const SystemFaults faults({.failNth = 1, .only = call, .code = EIO});
    const auto result = readFile(file, bytes);
    ASSERT_FALSE(result) << call;
    EXPECT_EQ(result.error().reason, "Input/output error") << call;
  }
}

TEST(FileUrl, EscapesAllButTheUnreserved) {
  EXPECT_EQ(fileUrl("/a b/100%/ä\n?#~._-"), "file:///a%20b/100%25/%C3%A4%0A%3F%23~._-");
  EXPECT_EQ(fileUrl("drawing.svg"), fileUrl(fs::current_path() / "drawing.svg"));
}

} // namespace
} // namespace quillery::test
