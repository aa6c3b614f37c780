#include "contract/linux/transfers/FileTransferFixture.h"
#include "platform/linux/system/FileDescriptor.h"

#include <fcntl.h>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <sys/xattr.h>
#include <thread>

namespace tavrel {
namespace {

using ::testing::IsEmpty;

TEST_F(FileTransfer, MovesFilesAndFolders) {
  fillWithEverything(from);
  const auto before = listing(from);
  EXPECT_EQ(transfer(move, {"tree", "second"}), "");
  EXPECT_THAT(listing(from), IsEmpty());
  EXPECT_EQ(listing(to), before);
}

TEST_F(FileTransfer, CopiesFilesAndFolders) {
  fillWithEverything(from);
  const auto before = listing(from);
  EXPECT_EQ(transfer(copy, {"tree", "second"}), "");
  EXPECT_EQ(listing(from), before);
  EXPECT_EQ(listing(to, Compare::contents), listing(from, Compare::contents));
}

TEST_F(FileTransferBetweenDisks, MovesFilesAndFolders) {
  fillWithEverything(from);
  const auto before = listing(from, Compare::contents);
  EXPECT_EQ(transfer(move, {"tree", "second"}), "");
  EXPECT_THAT(listing(from), IsEmpty());
  EXPECT_EQ(listing(to, Compare::contents), before);
}

TEST_F(FileTransferBetweenDisks, CopiesFilesAndFolders) {
  fillWithEverything(from);
  const auto before = listing(from);
  EXPECT_EQ(transfer(copy, {"tree", "second"}), "");
  EXPECT_EQ(listing(from), before);
  EXPECT_EQ(listing(to, Compare::contents), listing(from, Compare::contents));
}

TEST_F(FileTransfer, NeverOverwrites) {
  write(from / "first", "1");
  write(from / "name", "new");
  write(to / "name", "old");
  expectRefused(move, {"first", "name"});
  expectRefused(copy, {"first", "name"});
}

TEST_F(FileTransfer, ADanglingLinkAtTheDestinationIsNotOverwrittenEither) {
  write(from / "name", "new");
  fs::create_symlink("nowhere", to / "name");
  expectRefused(move, {"name"});
  expectRefused(copy, {"name"});
}

TEST_F(FileTransfer, AFolderIsNotMergedIntoAnother) {
  fs::create_directory(from / "folder");
  write(from / "folder/a", "a");
  fs::create_directory(to / "folder");
  expectRefused(move, {"folder"});
  expectRefused(copy, {"folder"});
}

TEST_F(FileTransfer, AFileStaysWhenItIsMovedOrCopiedOntoItself) {
  write(from / "name", "text");
  const auto before = listing(from);
  for (const FileOperation operation : {move, copy})
    EXPECT_TRUE(transferFiles(operation, from.string(), from.string(), {"name"}));
  EXPECT_EQ(listing(from), before);
}

TEST_F(FileTransfer, AFileStaysWhenItsFolderIsNamedInAnotherWay) {
  write(from / "name", "text");
  fs::create_directory_symlink(from, scratch.path() / "alias");
  const auto before = listing(from);
  for (const FileOperation operation : {move, copy})
    EXPECT_TRUE(
        transferFiles(operation, from.string(), (scratch.path() / "alias/").string(), {"name"}));
  EXPECT_EQ(listing(from), before);
}

TEST_F(FileTransfer, AFolderDoesNotGoIntoItselfOrBelow) {
  fs::create_directories(from / "folder/below/lower");
  const auto before = listing(from);
  for (const char* destination : {"folder", "folder/below", "folder/below/lower"})
    for (const FileOperation operation : {move, copy})
      EXPECT_TRUE(
          transferFiles(operation, from.string(), (from / destination).string(), {"folder"}))
          << destination;
  EXPECT_EQ(listing(from), before);
}

TEST_F(FileTransfer, AFolderDoesNotGoIntoItselfThroughALink) {
  fs::create_directories(from / "folder/below");
  fs::create_directory_symlink(from / "folder/below", scratch.path() / "alias");
  const auto before = listing(from);
  for (const FileOperation operation : {move, copy})
    EXPECT_TRUE(
        transferFiles(operation, from.string(), (scratch.path() / "alias").string(), {"folder"}));
  EXPECT_EQ(listing(from), before);
}

TEST_F(FileTransfer, OneMissingNameStopsAll) {
  write(from / "here", "text");
  expectRefused(move, {"here", "missing"});
  expectRefused(copy, {"here", "missing"});
}

TEST_F(FileTransfer, WhatIsNoPlainNameIsRefused) {
  fs::create_directory(from / "folder");
  write(from / "folder/inside", "text");
  for (const char* name : {"", ".", "..", "folder/inside", "../from/folder", "/etc/passwd"})
    expectRefused(move, {name});
  expectRefused(move, {std::string("folder\0x", 8)});
}

TEST_F(FileTransfer, ANameGivenTwiceIsRefused) {
  write(from / "name", "text");
  expectRefused(move, {"name", "name"});
  expectRefused(copy, {"name", "name"});
}

TEST_F(FileTransfer, NoNamesIsNothingDone) {
  expectRefused(move, {});
}

TEST_F(FileTransfer, AFolderThatIsMissingOrAFileIsRefused) {
  write(from / "name", "text");
  for (const fs::path& destination : {scratch.path() / "missing", from / "name", fs::path("to")})
    for (const FileOperation operation : {move, copy})
      EXPECT_TRUE(transferFiles(operation, from.string(), destination.string(), {"name"}));
  EXPECT_EQ(read(from / "name"), "text");
  EXPECT_TRUE(transferFiles(move, (scratch.path() / "missing").string(), to.string(), {"name"}));
}

TEST_F(FileTransfer, NamesWithLineFeedsBlanksAndForeignBytesGoThrough) {
  const std::vector<std::string> names = {"line\nfeed", " blank ", "-rf",
                                          "caf\xE9",    "*",       std::string(255, 'n')};
  for (const std::string& name : names)
    write(from / name, "of " + name);
  EXPECT_EQ(transfer(copy, names), "");
  for (const std::string& name : names)
    EXPECT_EQ(read(to / name), "of " + name);
}

TEST_F(FileTransfer, TheReasonIsOneLine) {
  const std::string reason = transfer(move, {"line\nfeed"});
  EXPECT_NE(reason, "");
  EXPECT_EQ(reason.find('\n'), std::string::npos);
}

TEST_F(FileTransfer, ALinkIsCopiedAsALink) {
  write(scratch.path() / "target", "text");
  fs::create_symlink(scratch.path() / "target", from / "link");
  EXPECT_EQ(transfer(copy, {"link"}), "");
  EXPECT_EQ(fs::read_symlink(to / "link"), scratch.path() / "target");
}

TEST_F(FileTransferBetweenDisks, ALinkToAFolderIsMovedAndTheFolderStays) {
  fs::create_directory(scratch.path() / "folder");
  write(scratch.path() / "folder/inside", "text");
  fs::create_directory_symlink(scratch.path() / "folder", from / "link");
  EXPECT_EQ(transfer(move, {"link"}), "");
  EXPECT_TRUE(fs::is_symlink(to / "link"));
  EXPECT_EQ(read(scratch.path() / "folder/inside"), "text");
}

TEST_F(FileTransferBetweenDisks, HardLinksStayTogetherAcrossNames) {
  write(from / "one", "text");
  fs::create_hard_link(from / "one", from / "two");
  EXPECT_EQ(transfer(move, {"one", "two"}), "");
  EXPECT_EQ(fs::hard_link_count(to / "one"), 2U);
  EXPECT_TRUE(fs::equivalent(to / "one", to / "two"));
}

TEST_F(FileTransferBetweenDisks, HolesStayHoles) {
  write(from / "sparse", "head");
  fs::resize_file(from / "sparse", 1'000'000'000);
  std::fstream(from / "sparse", std::ios::in | std::ios::out).seekp(500'000'000) << "middle";
  EXPECT_EQ(transfer(move, {"sparse"}), "");
  EXPECT_EQ(fs::file_size(to / "sparse"), 1'000'000'000U);
  struct stat status = {};
  ::stat((to / "sparse").c_str(), &status);
  EXPECT_LT(status.st_blocks * 512, 1'000'000);
  std::string middle(6, ' ');
  std::ifstream(to / "sparse").seekg(500'000'000).read(middle.data(), 6);
  EXPECT_EQ(middle, "middle");
}

TEST_F(FileTransferBetweenDisks, ExtendedAttributesGoAlong) {
  write(from / "file", "text");
  if (::setxattr((from / "file").c_str(), "user.tag", "red", 3, 0) != 0)
    GTEST_SKIP() << "no extended attributes here";
  write(to / "probe", "");
  if (::setxattr((to / "probe").c_str(), "user.tag", "red", 3, 0) != 0)
    GTEST_SKIP() << "no extended attributes in a file system in memory";
  ::chmod((from / "file").c_str(), 0444);
  EXPECT_EQ(transfer(move, {"file"}), "");
  char value[8] = {};
  EXPECT_EQ(::getxattr((to / "file").c_str(), "user.tag", value, sizeof value), 3);
  EXPECT_STREQ(value, "red");
}

TEST_F(FileTransferBetweenDisks, PipesAndSocketsAreMovedWithoutBeingOpened) {
  ::mkfifo((from / "pipe").c_str(), 0600);
  const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  sockaddr_un address{AF_UNIX, {}};
  (from / "socket").string().copy(address.sun_path, sizeof address.sun_path - 1);
  ASSERT_EQ(::bind(socket.get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  EXPECT_EQ(transfer(move, {"pipe", "socket"}), "");
  EXPECT_TRUE(fs::is_fifo(to / "pipe"));
  EXPECT_TRUE(fs::is_socket(to / "socket"));
}

TEST_F(FileTransferBetweenDisks, ADeviceIsRefusedWholeWhenItMayNotBeMade) {
  ::chmod(from.c_str(), 0777);
  write(from / "file", "text");
  if (::mknod((from / "device").c_str(), S_IFCHR | 0666, makedev(1, 3)) != 0)
    GTEST_SKIP() << "only an administrator makes devices";
  const AsPlainPerson person;
  expectRefused(copy, {"file", "device"});
}

TEST_F(FileTransferBetweenDisks, ReadOnlyFoldersOfOurOwnAreMovedWithTheirPermissions) {
  fs::create_directories(from / "closed/inner");
  write(from / "closed/inner/file", "text");
  ::chmod((from / "closed/inner").c_str(), 0555);
  for (const char* name : {"", "closed", "closed/inner", "closed/inner/file"})
    AsPlainPerson::give(from / name);
  const auto before = listing(from, Compare::contents);
  {
    const AsPlainPerson person;
    EXPECT_EQ(transfer(move, {"closed"}), "");
  }
  EXPECT_THAT(listing(from), IsEmpty());
  EXPECT_EQ(listing(to, Compare::contents), before);
}

TEST_F(FileTransferBetweenDisks, AReadOnlyFolderIsCopied) {
  fs::create_directory(from / "closed");
  write(from / "closed/file", "text");
  ::chmod((from / "closed").c_str(), 0555);
  AsPlainPerson::give(from / "closed");
  {
    const AsPlainPerson person;
    EXPECT_EQ(transfer(copy, {"closed"}), "");
  }
  EXPECT_EQ(listing(to, Compare::contents), listing(from, Compare::contents));
}

TEST_F(FileTransfer, AFolderWithoutPermissionTakesNothing) {
  write(from / "name", "text");
  AsPlainPerson::give(from);
  AsPlainPerson::give(from / "name");
  ::chmod(to.c_str(), 0555);
  const AsPlainPerson person;
  expectRefused(move, {"name"});
  expectRefused(copy, {"name"});
}

TEST_F(FileTransferBetweenDisks, AFolderWithoutPermissionGivesNothingAway) {
  fs::create_directory(from / "tree");
  write(from / "tree/file", "text");
  write(from / "name", "text");
  const AsPlainPerson person;
  expectRefused(move, {"name", "tree"});
}

TEST_F(FileTransfer, WhatWasMovedGoesBackWhenALaterFileCannotBeMoved) {
  write(from / "first", "1");
  fs::create_directory(from / "second");
  ::chmod((from / "second").c_str(), 0555); // its owner may not give it another parent
  for (const fs::path& path : {from, from / "first", from / "second", to})
    AsPlainPerson::give(path);
  const AsPlainPerson person;
  expectRefused(move, {"first", "second"});
}

TEST_F(FileTransferBetweenDisks, CopiesInPlaceAreWithdrawnWhenTheOriginalsCannotBeRemoved) {
  fillWithEverything(from);
  for (const char* name : {"", "tree", "tree/deep", "tree/deep/deeper", "tree/text", "second"})
    AsPlainPerson::give(from / name);
  ::chmod((from / "tree").c_str(), 0555);
  ::chmod(from.c_str(), 0555);
  const AsPlainPerson person;
  expectRefused(move, {"tree", "second"});
}

TEST_F(FileTransferBetweenDisks, OriginalsGoBackWhenALaterOneCannotBeSetAside) {
  write(from / "first", "1");
  fs::create_directory(from / "second");
  ::chmod((from / "second").c_str(), 0555); // its owner may not give it another parent
  for (const char* name : {"", "first", "second"})
    AsPlainPerson::give(from / name);
  const AsPlainPerson person;
  expectRefused(move, {"first", "second"});
}

TEST_F(FileTransferBetweenDisks, AFolderThatHoldsAnotherDiskIsNotMoved) {
  fs::create_directory(from / "tree");
  write(from / "tree/before", "text");
  const SmallDisk inner(from / "tree/disk", "size=64k");
  write(from / "tree/disk/file", "text");
  expectRefused(move, {"tree"});
}

TEST_F(FileTransferBetweenDisks, AFileThatDoesNotFitTakesTheOthersBack) {
  write(from / "first", "1");
  ::mkfifo((from / "pipe").c_str(), 0600);
  write(from / "name", std::string(2'000'000, 'x'));
  expectRefused(move, {"first", "pipe", "name"});
  expectRefused(copy, {"first", "pipe", "name"});
}

} // namespace
} // namespace tavrel
