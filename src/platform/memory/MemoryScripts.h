#pragma once

#include "platform/Scripts.h"

#include <functional>
#include <map>
#include <set>
#include <vector>

namespace tavrel {

/// Whose source was run.
enum class ScriptOrigin { Application, User };

/// Scripts whose bodies are functions of a test. Ids are counted from 1 and never used twice.
class MemoryScripts final : public Scripts {
public:
  using Properties = PropertyList::Dictionary;

  /// A compiled script in a file.
  struct File {
    Properties properties{};
    /// Runs on the properties of the loaded script and answers the code; none: it just succeeds.
    std::function<OSAError(Properties&)> body{};
    OSAError loadCode = osaError::none;
    OSAError storeCode = osaError::none;
    bool storable = true;
    bool hasResult = true;
  };

  /// A source text that was run; of the application's own ones the form with the texts as they are.
  struct Source {
    std::string text;
    ScriptOrigin origin = ScriptOrigin::Application;
    friend bool operator==(const Source&, const Source&) = default;
  };

  struct Control {
    bool componentOpens = true;
    std::map<std::string, File> files;                ///< by path
    std::map<std::string, PropertyList> sourceErrors; ///< by text; every other source succeeds
    /// The scripts that are run for their result, by path; nothing from a run: it failed.
    std::map<std::string, std::function<std::optional<AppleEventDescriptor>()>> resultScripts;
    std::set<std::string> unusableSources;             ///< no script object is made of these
    std::function<void(const std::string&)> sourceRan; ///< told in the middle of every such run

    std::uint32_t componentsOpened = 0;
    std::set<OSAID> live;         ///< not disposed of yet
    std::vector<std::string> ran; ///< the paths of compiled scripts
    std::vector<Source> sources;
    std::vector<std::string> log; ///< each call on a component, as "execute 1 = 2"
  };
  Control control;

  [[nodiscard]] ComponentInstance openDefaultComponent(std::uint32_t type,
                                                       std::uint32_t subtype) override;
  [[nodiscard]] LoadedScript load(ComponentInstance component, const std::string& path) override;
  [[nodiscard]] ExecutedScript execute(ComponentInstance component, OSAID script) override;
  OSAError dispose(ComponentInstance component, OSAID id) override;
  OSAError store(ComponentInstance component, OSAID script, const std::string& path) override;
  [[nodiscard]] std::unique_ptr<NSAppleScript>
  initWithContentsOfFile(const std::string& path) override;
  std::optional<SourceRun> runSource(const std::string& source) override;
  std::optional<SourceRun> runOwnSource(const OwnSource& source) override;

private:
  struct Loaded {
    std::string path;
    File file;
  };
  std::optional<SourceRun> run(const Source& source);
  [[nodiscard]] bool isOpen(ComponentInstance component) const;
  OSAID newId();

  std::map<OSAID, Loaded> loaded_;
  OSAID lastId_ = 0;
};

} // namespace tavrel
