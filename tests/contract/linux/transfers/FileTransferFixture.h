#pragma once

#include "platform/linux/transfers/FileTransfer.h"
#include "support/ScratchFolders.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace tavrel {

namespace fs = std::filesystem;

inline constexpr auto move = FileOperation::move;
inline constexpr auto copy = FileOperation::copy;

/// Two folders on one file system.
class FileTransfer : public ::testing::Test {
protected:
  FileTransfer() {
    fs::create_directory(from);
    fs::create_directory(to);
  }

  [[nodiscard]] std::string transfer(FileOperation operation,
                                     const std::vector<std::string>& names) const {
    return transferFiles(operation, from.string(), to.string(), names).value_or("");
  }

  /// Fails, and leaves both folders as they were.
  void expectRefused(FileOperation operation, const std::vector<std::string>& names) const {
    const auto source = listing(from);
    const auto destination = listing(to);
    EXPECT_NE(transfer(operation, names), "");
    EXPECT_EQ(listing(from), source);
    EXPECT_EQ(listing(to), destination);
  }

  ScratchFolder scratch;
  fs::path from = scratch.path() / "from";
  fs::path to = scratch.path() / "to";
};

/// The destination is a small disk of its own.
class FileTransferBetweenDisks : public FileTransfer {
protected:
  void SetUp() override {
    if (!disk.isMounted())
      GTEST_SKIP() << "file systems cannot be mounted here";
    ::chmod(to.c_str(), 0777);
  }

  SmallDisk disk{to, "size=1m,nr_inodes=100"};
};

/// A tree with one of everything that can be copied by anybody.
inline void fillWithEverything(const fs::path& folder) {
  fs::create_directories(folder / "tree/deep/deeper");
  write(folder / "tree/text", "text");
  write(folder / "tree/deep/empty", "");
  write(folder / "tree/deep/deeper/line\nfeed", "odd name");
  fs::create_symlink("nowhere", folder / "tree/dangling");
  fs::create_directory_symlink("deep", folder / "tree/link");
  fs::create_hard_link(folder / "tree/text", folder / "tree/deep/same");
  ::mkfifo((folder / "tree/pipe").c_str(), 0640);
  ::chmod((folder / "tree/text").c_str(), 0604);
  ::chmod((folder / "tree/deep").c_str(), 0710);
  write(folder / "second", std::string(100'000, 'x'));
}

} // namespace tavrel
