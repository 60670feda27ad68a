#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <string>
#include <thread>

#include "adapters/posix/posix_file_store.h"
#include "tests/adapters/posix/faulty_calls.h"
#include "tests/fakes/temporary_folder.h"
#include "tests/fakes/unprivileged.h"

namespace vireon::tests {
namespace {

using adapters::PosixFileStore;
using platform::FileReadError;
using platform::FileReadResult;

constexpr std::size_t kLimit = 1 << 20;

class FileReadingTest : public testing::Test {
 protected:
  FileReadError errorOf(const std::string& path, std::size_t limit = kLimit) {
    const FileReadResult result = store_.read(path, limit);
    EXPECT_TRUE(result.error == FileReadError::kNone || result.bytes.empty()) << path;
    return result.error;
  }

  TemporaryFolder folder_;
  FaultyCalls faults_;
  PosixFileStore store_{faults_.calls()};
};

TEST_F(FileReadingTest, AnOrdinaryFileExistsAndReadsByteForByte) {
  std::string bytes;
  for (int value = 0; value < 200'000; ++value) bytes += static_cast<char>(value * 7 + value / 256);
  const std::string path = folder_.file("Gr\xC3\xBC\xC3\x9F 1.ini");
  writeFile(path, bytes);

  EXPECT_TRUE(store_.exists(path));
  const FileReadResult result = store_.read(path, kLimit);

  EXPECT_EQ(result.error, FileReadError::kNone);
  EXPECT_TRUE(result.bytes == bytes);
  EXPECT_EQ(faults_.openFiles, 0);
}

TEST_F(FileReadingTest, ALinkIsFollowed) {
  writeFile(folder_.file("file"), "text");
  std::filesystem::create_symlink("file", folder_.file("link"));
  std::filesystem::create_symlink("missing", folder_.file("broken"));

  EXPECT_TRUE(store_.exists(folder_.file("link")));
  EXPECT_EQ(store_.read(folder_.file("link"), kLimit).bytes, "text");
  EXPECT_FALSE(store_.exists(folder_.file("broken")));
  EXPECT_EQ(errorOf(folder_.file("broken")), FileReadError::kNotFound);
}

TEST_F(FileReadingTest, WhatIsNoOrdinaryFileIsNotThere) {
  writeFile(folder_.file("file"), "text");
  ASSERT_EQ(::mkfifo(folder_.file("pipe").c_str(), 0600), 0);
  const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::strncpy(address.sun_path, folder_.file("socket").c_str(), sizeof address.sun_path - 1);
  ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  ::close(socket);

  for (const std::string& path :
       {std::string(), folder_.path().string(), folder_.file("missing"), folder_.file("missing/deeper"),
        folder_.file("file/below"), folder_.file("pipe"), folder_.file("socket"), std::string("/dev/null"),
        folder_.file("file") + '\0' + "x"}) {
    EXPECT_FALSE(store_.exists(path)) << path;
    EXPECT_EQ(errorOf(path), FileReadError::kNotFound) << path;
  }
  EXPECT_EQ(faults_.openFiles, 0);
}

TEST_F(FileReadingTest, TheLimitCountsBytes) {
  writeFile(folder_.file("file"), "12345");
  writeFile(folder_.file("empty"), "");

  EXPECT_EQ(errorOf(folder_.file("file"), 5), FileReadError::kNone);
  EXPECT_EQ(errorOf(folder_.file("file"), SIZE_MAX), FileReadError::kNone);
  EXPECT_EQ(errorOf(folder_.file("file"), 4), FileReadError::kTooLarge);
  EXPECT_EQ(errorOf(folder_.file("empty"), 0), FileReadError::kNone);
}

TEST_F(FileReadingTest, AFileThatGrowsOverTheLimitWhileItIsReadIsTooLarge) {
  adapters::PosixCalls calls;
  const std::string path = folder_.file("file");
  writeFile(path, "12345");
  calls.fstat = [&](int file, struct stat* status) {
    const int result = ::fstat(file, status);
    writeFile(path, "1234567");
    return result;
  };

  EXPECT_EQ(PosixFileStore(calls).read(path, 6).error, FileReadError::kTooLarge);
  EXPECT_EQ(PosixFileStore(calls).read(path, 7).bytes, "1234567");
}

TEST_F(FileReadingTest, AFileThatIsClosedToThisAccountExistsWithoutPermission) {
  const std::string path = folder_.file("file");
  writeFile(path, "text");
  std::filesystem::permissions(path, std::filesystem::perms::none);

  const Unprivileged account;

  EXPECT_TRUE(store_.exists(path));
  EXPECT_EQ(errorOf(path), FileReadError::kNoPermission);
}

TEST_F(FileReadingTest, AFileThatVanishesBehindTheLookIsNotFound) {
  const std::string path = folder_.file("file");
  writeFile(path, "text");

  EXPECT_TRUE(store_.exists(path));
  std::filesystem::remove(path);

  EXPECT_EQ(errorOf(path), FileReadError::kNotFound);
}

TEST_F(FileReadingTest, ASignalEndsNoCallAndAnyOtherFailureEndsTheReading) {
  const std::string path = folder_.file("file");
  writeFile(path, "text");
  for (const char* name : {"open", "read"}) {
    faults_.forget();
    faults_.failAt = 1;
    faults_.failName = name;
    faults_.error = EINTR;
    EXPECT_EQ(store_.read(path, kLimit).bytes, "text") << name;
  }
  for (const char* name : {"open", "fstat", "read"}) {
    faults_.forget();
    faults_.failName = name;
    faults_.error = EIO;
    EXPECT_EQ(errorOf(path), FileReadError::kFailed) << name;
  }
  faults_.forget();
  faults_.failName = "stat";
  EXPECT_FALSE(store_.exists(path));
  EXPECT_EQ(faults_.openFiles, 0);
}

TEST_F(FileReadingTest, AReaderSeesTheOldFileOrTheNewOneWhole) {
  const std::string path = folder_.file("file");
  const std::string one(100'000, '1');
  const std::string other(150'000, '2');
  writeFile(path, one);
  std::atomic<bool> done = false;
  bool replaced = true;
  std::thread writer([&] {
    PosixFileStore store;
    for (int turn = 0; turn < 50; ++turn) {
      replaced &= store.replace(path, turn % 2 == 0 ? other : one) == platform::FileReplace::kDone;
    }
    done = true;
  });

  bool whole = true;
  PosixFileStore reader;
  while (!done) {
    const FileReadResult result = reader.read(path, kLimit);
    whole &= reader.exists(path) && (result.bytes == one || result.bytes == other);
  }
  writer.join();

  EXPECT_TRUE(replaced);
  EXPECT_TRUE(whole);
}

}  // namespace
}  // namespace vireon::tests
