#pragma once

#include "contract/FilesContract.h"
#include "platform/linux/files/LinuxFiles.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace tavrel {

class LinuxWorld {
public:
  ~LinuxWorld() { std::filesystem::remove_all(root_); } // names of any bytes, too
  Files& files() { return files_; }
  std::string root() const { return root_; }
  std::string home() const { return std::getenv("HOME"); }

  void addFile(const std::string& path) { write(path, "text"); }
  void addFolder(const std::string& path) { std::filesystem::create_directories(path); }
  void addPackage(const std::string& path) { addFolder(path); }
  void addApplication(const std::string& path) { addFolder(path); }
  void addScript(const std::string& path) { addFile(path); }
  void addSymlink(const std::string& path, const std::string& target) {
    std::filesystem::create_symlink(target, path);
  }
  void addAlias(const std::string& path, const std::string& target) {
    write(path,
          "[Desktop Entry]\nType=Link\nName=x\nURL=" + fileUrlOfPath(target, PathIs::file) + "\n");
  }
  void write(const std::string& path, const std::string& content) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << content;
  }
  void remove(const std::string& path) { std::filesystem::remove_all(path); }
  void move(const std::string& from, const std::string& to) { std::filesystem::rename(from, to); }

private:
  QTemporaryDir folder_;
  std::string root_ = QFileInfo(folder_.path()).canonicalFilePath().toStdString();
  LinuxFiles files_;
};

class LinuxFilesTest : public FilesContract<LinuxWorld> {
protected:
  std::string write(const std::string& name, const std::string& content) {
    world.write(at(name), content);
    return at(name);
  }
  std::string writeExecutable(const std::string& name, const std::string& content) {
    const std::string path = write(name, content);
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    return path;
  }
  std::string writeEntry(const std::string& name, const std::string& lines) {
    return write(name, "[Desktop Entry]\n" + lines);
  }
};

/// A position-independent program as the kernel sees its start.
inline const std::string program("\x7F"
                                 "ELF\2\1\1\0\0\0\0\0\0\0\0\0\3\0",
                                 18);

} // namespace tavrel
