#include "platform/memory/MemoryFiles.h"

#include "base/PathString.h"
#include "base/Url.h"

namespace tavrel {

namespace {
using Node = MemoryFiles::Node;
constexpr int mostLinks = 40; // as many as a kernel follows before it speaks of a loop
constexpr std::string_view bookmarkPrefix = "memory bookmark ";

std::uint32_t flagsOfKind(Node::Kind kind) {
  switch (kind) {
  case Node::Kind::folder:
    return itemFlag::container;
  case Node::Kind::package:
    return itemFlag::container | itemFlag::package;
  case Node::Kind::application:
    return itemFlag::container | itemFlag::package | itemFlag::nativeApplication;
  case Node::Kind::symlink:
    return itemFlag::symlink;
  case Node::Kind::alias:
    return itemFlag::plainFile | itemFlag::aliasFile;
  case Node::Kind::file:
  case Node::Kind::script:
    break;
  }
  return itemFlag::plainFile;
}

ItemInformation informationOf(const Node& node) {
  const std::uint32_t invisible = node.invisible ? itemFlag::invisible : 0;
  const std::uint32_t typeCode = node.kind == Node::Kind::script ? scriptTypeCode : 0;
  return {node.typeCode.value_or(typeCode),
          node.flags.value_or(flagsOfKind(node.kind)) | invisible};
}

FileKind fileKind(const Node& node) {
  const std::uint32_t flags = node.flags.value_or(flagsOfKind(node.kind));
  if (flags & itemFlag::package)
    return FileKind::package;
  return flags & itemFlag::container ? FileKind::directory : FileKind::plain;
}

bool isInside(std::string_view path, const std::string& folder) {
  return path.size() > folder.size() && path.starts_with(folder) && path[folder.size()] == '/';
}

Bytes bookmarkData(std::uint64_t identity) {
  const std::string text = std::string(bookmarkPrefix) + std::to_string(identity);
  return {text.begin(), text.end()};
}

std::string joined(const std::string& folder, const std::string& rest) {
  return rest.starts_with('/') ? rest : appendingPathComponent(folder, rest);
}

/// False when nothing else follows.
bool skipSeparators(std::string& rest) {
  rest.erase(0, rest.find_first_not_of('/'));
  return !rest.empty();
}

std::string takeName(std::string& rest) {
  const std::string name = rest.substr(0, rest.find('/'));
  rest.erase(0, name.size());
  return name;
}

/// One name further from a folder without links on the way to it.
std::string stepped(const std::string& folder, const std::string& name) {
  if (name == "..")
    return folder == "/" ? folder : deletingLastPathComponent(folder);
  return name == "." ? folder : appendingPathComponent(folder, name);
}

} // namespace

MemoryFiles::Control::Control() {
  addFolder("/");
  addFolder(home);
}

void MemoryFiles::Control::addFile(const std::string& path) {
  add(path, Node::Kind::file);
}
void MemoryFiles::Control::addFolder(const std::string& path) {
  add(path, Node::Kind::folder);
}
void MemoryFiles::Control::addPackage(const std::string& path) {
  add(path, Node::Kind::package);
}
void MemoryFiles::Control::addScript(const std::string& path) {
  add(path, Node::Kind::script);
}

void MemoryFiles::Control::addApplication(const std::string& path) {
  add(path, Node::Kind::application);
}

void MemoryFiles::Control::addSymlink(const std::string& path, const std::string& target) {
  add(path, Node::Kind::symlink).target = target;
}

void MemoryFiles::Control::addAlias(const std::string& path, const std::string& target) {
  add(path, Node::Kind::alias).target = target;
}

MemoryFiles::Node& MemoryFiles::Control::add(const std::string& path, Node::Kind kind) {
  const std::string folder = deletingLastPathComponent(path);
  if (path != "/" && !nodes.contains(folder))
    addFolder(folder);
  Node node;
  node.kind = kind;
  node.identity = ++lastIdentity_;
  return nodes.insert_or_assign(path, std::move(node)).first->second;
}

void MemoryFiles::Control::remove(const std::string& path) {
  std::erase_if(
      nodes, [&](const auto& entry) { return entry.first == path || isInside(entry.first, path); });
}

void MemoryFiles::Control::move(const std::string& from, const std::string& to) {
  const std::string folder = deletingLastPathComponent(to);
  if (!nodes.contains(folder))
    addFolder(folder);
  std::map<std::string, Node, std::less<>> moved;
  for (const auto& [path, node] : nodes)
    if (path == from || isInside(path, from))
      moved.emplace(to + path.substr(from.size()), node);
  remove(from);
  remove(to);
  nodes.merge(moved);
}

const MemoryFiles::Entry* MemoryFiles::find(const std::string& path, FinalLink link) const {
  if (!path.starts_with('/'))
    return nullptr;
  std::string done = "/";
  std::string rest = path;
  for (int links = 0; skipSeparators(rest);) {
    const std::string name = takeName(rest);
    const auto found = control.nodes.find(stepped(done, name));
    if (found == control.nodes.end())
      return nullptr;
    const bool kept = rest.empty() && link == FinalLink::keep;
    if (found->second.kind != Node::Kind::symlink || kept) {
      done = found->first;
      continue;
    }
    if (++links > mostLinks)
      return nullptr;
    rest = joined(done, found->second.target) + rest;
    done = "/";
  }
  const auto found = control.nodes.find(done);
  return found == control.nodes.end() ? nullptr : &*found;
}

bool MemoryFiles::exists(const std::string& path) {
  return find(path, FinalLink::follow);
}

FileKind MemoryFiles::kind(const std::string& path) {
  const Entry* entry = find(path, FinalLink::follow);
  return entry ? fileKind(entry->second) : FileKind::none;
}

std::vector<std::string> MemoryFiles::list(const std::string& path) {
  control.listed.push_back(path);
  const Entry* folder = find(path, FinalLink::follow);
  std::vector<std::string> names;
  if (!folder || folder->second.listingFails)
    return names;
  for (const auto& [inside, node] : control.nodes)
    if (inside != "/" && deletingLastPathComponent(inside) == folder->first)
      names.push_back(lastPathComponent(inside));
  return names;
}

std::vector<ListedFile> MemoryFiles::browse(const std::string& path, FinalLink link) {
  std::vector<ListedFile> files;
  for (std::string& name : list(path)) {
    const std::string inside = appendingPathComponent(path, name);
    const auto told = information(inside, link);
    const std::string resolved = resolveSymlinks(inside);
    files.push_back({std::move(name), displayName(inside),
                     told && (told->flags & itemFlag::invisible) != 0,
                     kind(resolveAlias(resolved).value_or(resolved))});
  }
  return files;
}

std::string MemoryFiles::displayName(const std::string& path) {
  const Entry* entry = find(path, FinalLink::keep);
  const bool named = entry && entry->second.displayName;
  return named ? *entry->second.displayName : lastPathComponent(path);
}

std::string MemoryFiles::resolveSymlinks(const std::string& path) {
  const std::string expanded = expandingTilde(path, control.home);
  const Entry* entry = find(expanded, FinalLink::follow);
  return entry ? entry->first : expanded;
}

std::optional<std::string> MemoryFiles::resolveAlias(const std::string& path) {
  const Entry* entry = find(path, FinalLink::follow);
  if (!entry || entry->second.kind != Node::Kind::alias)
    return std::nullopt;
  std::set<std::string> seen;
  while (entry && entry->second.kind == Node::Kind::alias) {
    if (!seen.insert(entry->first).second)
      return std::nullopt;
    const std::string& target = entry->second.target;
    entry = find(target, FinalLink::follow);
    if (entry && entry->second.kind != Node::Kind::alias)
      return target;
  }
  return std::nullopt;
}

std::optional<ItemInformation> MemoryFiles::information(const std::string& path, FinalLink link) {
  control.informationAsked.emplace_back(path, link);
  const Entry* entry = find(path, link);
  if (!entry || entry->second.informationFails)
    return std::nullopt;
  return informationOf(entry->second);
}

std::optional<Bytes> MemoryFiles::bookmark(const std::string& path) {
  const Entry* entry = find(path, FinalLink::keep);
  return entry ? std::optional(bookmarkData(entry->second.identity)) : std::nullopt;
}

std::optional<std::string> MemoryFiles::resolveBookmark(const Bytes& bookmark,
                                                        BookmarkResolution how) {
  control.bookmarksResolved.push_back(how);
  if (const auto url = control.bookmarkUrls.find(bookmark); url != control.bookmarkUrls.end())
    return url->second;
  for (const auto& [path, node] : control.nodes)
    if (bookmarkData(node.identity) == bookmark)
      return fileUrlOfPath(path,
                           fileKind(node) == FileKind::plain ? PathIs::file : PathIs::directory);
  return std::nullopt;
}

std::optional<std::string> MemoryFiles::resolveAliasRecord(const Bytes& record,
                                                           AliasResolution how) {
  control.aliasRecordsResolved.push_back(how);
  const auto known = control.aliasRecords.find(record);
  return known != control.aliasRecords.end() && exists(known->second) ? std::optional(known->second)
                                                                      : std::nullopt;
}

} // namespace tavrel
