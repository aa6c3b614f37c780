#include "ApplicationsContract.h"

#include "FakeApplications.h"
#include "platform/linux/applications/LinuxApplications.h"
#include "platform/linux/applications/WindowMatch.h"

#include <QCoreApplication>
#include <QProcess>
#include <QWidget>
#include <gmock/gmock.h>
#include <unistd.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

/// Real windows of real processes.
class LinuxWorld {
public:
  LinuxWorld() {
    EXPECT_TRUE(eventually([&] { return windows_.windows().empty(); }));
  }
  ~LinuxWorld() {
    for (const auto& process : processes_) {
      process->kill();
      process->waitForFinished();
    }
  }

  Applications& applications() { return applications_; }

  RunningApplication start(const std::string& name) {
    addEntry(name);
    run(name, {"ordinary"});
    EXPECT_TRUE(eventually([&] { return find(name).has_value(); })) << name;
    const RunningApplication application = find(name).value_or(RunningApplication());
    // A window manager may keep a window behind that appears right after another one.
    applications_.bringToFront(application.serialNumber);
    EXPECT_TRUE(eventually([&] { return isInFront(name); })) << name;
    return application;
  }

  void end(const RunningApplication& application) {
    for (const auto& process : processes_)
      if (process->processId() == application.processIdentifier) {
        process->kill();
        process->waitForFinished();
      }
    EXPECT_TRUE(eventually(
        [&] { return !applications_.processInformation(application.serialNumber).has_value(); }));
  }

  bool eventually(const std::function<bool()>& condition) {
    return waitFor(condition, [] { QCoreApplication::processEvents(); });
  }

  void addEntry(const std::string& name, const std::string& lines = {}) {
    fakes.addEntry(name, "Exec=" + (fakes.programs() / name).string() + " %U\n" + lines);
  }

  /// Starts a program of that name with such windows.
  std::int32_t run(const std::string& name, const QStringList& kinds) {
    const fs::path program = fakes.programs() / name;
    if (!fs::exists(program))
      fs::create_symlink(TAVREL_WINDOW_APPLICATION, program);
    processes_.push_back(std::make_unique<QProcess>());
    processes_.back()->start(QString::fromStdString(program.string()), kinds);
    EXPECT_TRUE(processes_.back()->waitForStarted());
    return static_cast<std::int32_t>(processes_.back()->processId());
  }

  bool isInFront(const std::string& name) {
    const auto active = applications_.active();
    return active && active->name == name;
  }

  std::optional<RunningApplication> find(const std::string& name) {
    for (const RunningApplication& each : applications_.launched())
      if (each.name == name)
        return each;
    return std::nullopt;
  }

  /// Without those that the window manager lists still, though they are gone.
  std::ptrdiff_t liveWindows() {
    return std::ranges::count_if(windows_.windows(),
                                 [&](WindowId each) { return windows_.facts(each).has_value(); });
  }

  FakeApplications fakes;

private:
  DesktopWindows windows_;
  ApplicationRegistry registry_{fakes.folders()};
  LinuxApplications applications_{registry_, windows_, "/roles"};
  std::vector<std::unique_ptr<QProcess>> processes_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, ApplicationsContract, LinuxWorld);

class LinuxApplicationsTest : public ::testing::Test {
protected:
  /// "a", "b" and "c", in this order.
  void runThreeFileManagers() {
    std::size_t count = 0;
    for (const char* name : {"a", "b", "c"}) {
      world.addEntry(name, "MimeType=inode/directory;\nCategories=System;FileManager;\n");
      world.run(name, {"ordinary"});
      ++count;
      EXPECT_TRUE(world.eventually([&] { return applications.launched().size() == count; }));
    }
  }

  LinuxWorld world;
  Applications& applications = world.applications();
};

TEST_F(LinuxApplicationsTest, AnApplicationIsKnownByTheNameAndPathOfItsEntry) {
  world.addEntry("alpha", "Name[en]=Ignored\n");
  const RunningApplication alpha = world.start("alpha");
  EXPECT_EQ(alpha.path, world.fakes.data() / "applications/alpha.desktop");
}

TEST_F(LinuxApplicationsTest, AnApplicationWithoutAnEntryIsKnownByItsProgram) {
  const std::int32_t pid = world.run("nobody", {"ordinary"});
  EXPECT_TRUE(world.eventually([&] { return applications.active().has_value(); }));
  const RunningApplication active = applications.active().value_or(RunningApplication());
  EXPECT_EQ(active.processIdentifier, pid);
  EXPECT_EQ(active.path, TAVREL_WINDOW_APPLICATION);
  EXPECT_EQ(active.name, fs::path(TAVREL_WINDOW_APPLICATION).filename());
}

// The core captures nothing from the application of this very name.
TEST_F(LinuxApplicationsTest, ThisProgramIsInFrontUnderTheNameThatTheCoreKnowsItBy) {
  QWidget window;
  window.show();
  const ProcessSerialNumber self{0, static_cast<std::uint32_t>(::getpid())};
  ASSERT_TRUE(world.eventually([&] { return world.applications().bringToFront(self); }));
  ASSERT_TRUE(world.eventually([&] {
    const auto active = world.applications().active();
    return active && active->serialNumber == self;
  }));
  const auto active = world.applications().active();
  EXPECT_EQ(active->name, "Tavrel");
  EXPECT_EQ(fs::path(active->path.value_or("")).stem(), "Tavrel");
  EXPECT_TRUE(fs::exists(TAVREL_RESOURCES "/roles/Tavrel.desktop"));
}

TEST_F(LinuxApplicationsTest, TheOneInFrontIsMeantByItsEntryAndItsProgram) {
  world.start("Größe 2.0");
  const RunningApplication front = applications.active().value_or(RunningApplication());
  for (const std::string& text :
       {std::string("Größe 2.0"), std::string("Größe 2.0.desktop"), front.path.value_or("none"),
        std::string(TAVREL_WINDOW_APPLICATION)})
    EXPECT_EQ(applications.nameMeant(text, front), "Größe 2.0") << text;
  EXPECT_EQ(applications.nameMeant("Größe 2.1", front), std::nullopt);
}

TEST_F(LinuxApplicationsTest, AfterItsEntryHasGoneTheProgramIsKnownByItsFile) {
  world.start("alpha");
  fs::remove(world.fakes.data() / "applications/alpha.desktop");
  const RunningApplication front = applications.active().value_or(RunningApplication());
  const std::string program = fs::path(TAVREL_WINDOW_APPLICATION).filename();
  EXPECT_EQ(front.name, program);
  EXPECT_EQ(applications.nameMeant(program, front), program);
  EXPECT_EQ(applications.nameMeant(TAVREL_WINDOW_APPLICATION, front), program);
  EXPECT_EQ(applications.nameMeant("alpha", front), std::nullopt);
}

TEST_F(LinuxApplicationsTest, FileManagersAreMeantByTheirOwnNamesUnderThatOfTheirRole) {
  runThreeFileManagers();
  const std::vector<RunningApplication> all = applications.launched();
  EXPECT_EQ(applications.nameMeant("a", all.at(0)), "Finder");
  EXPECT_EQ(applications.nameMeant(*all.at(0).path, all.at(0)), "Finder");
  EXPECT_EQ(applications.nameMeant("Finder", all.at(0)), "Finder");
  EXPECT_EQ(applications.nameMeant("b", all.at(0)), std::nullopt);
  EXPECT_EQ(applications.nameMeant("b", all.at(1)), "Path Finder");
  EXPECT_EQ(applications.nameMeant("c", all.at(2)), "Finder");
  EXPECT_EQ(applications.nameMeant("a", all.at(2)), std::nullopt);
}

TEST_F(LinuxApplicationsTest, AnApplicationOfManyWindowsIsListedOnce) {
  world.addEntry("alpha");
  world.run("alpha", {"ordinary", "ordinary", "ordinary"});
  EXPECT_TRUE(world.eventually([&] { return world.liveWindows() == 3; }));
  EXPECT_EQ(applications.launched().size(), 1U);
}

// As under a window manager of the old kind, which says nothing.
TEST_F(LinuxApplicationsTest, WhereNoWindowIsNamedActiveTheOneWithTheKeysIsInFront) {
  world.start("Editor");
  QProcess::execute("xprop", {"-root", "-remove", "_NET_ACTIVE_WINDOW"});
  EXPECT_TRUE(world.isInFront("Editor"));
}

TEST_F(LinuxApplicationsTest, DocksAndBareDesktopsAreNoApplications) {
  world.addEntry("panel");
  world.addEntry("wallpaper");
  world.run("panel", {"dock"});
  world.run("wallpaper", {"desktop"});
  EXPECT_TRUE(world.eventually([&] { return world.liveWindows() == 2; }));
  EXPECT_TRUE(applications.launched().empty());
}

TEST_F(LinuxApplicationsTest, TheFileManagerIsTheFinderAlsoByItsDesktop) {
  world.addEntry("manager", "MimeType=inode/directory;\n");
  const std::int32_t pid = world.run("manager", {"desktop"});
  EXPECT_TRUE(world.eventually([&] { return applications.launched().size() == 1; }));
  const RunningApplication finder = applications.launched().at(0);
  EXPECT_EQ(finder.name, "Finder");
  EXPECT_EQ(finder.path, "/roles/Finder.desktop");
  EXPECT_EQ(finder.processIdentifier, pid);
  applications.bringToFront(finder.serialNumber);
  EXPECT_TRUE(world.eventually([&] { return world.isInFront("Finder"); }));
}

TEST_F(LinuxApplicationsTest, TheSecondFileManagerIsPathFinderAndOthersAreTheFinder) {
  runThreeFileManagers();
  std::vector<std::string> names;
  for (const RunningApplication& each : applications.launched())
    names.push_back(each.name.value_or(""));
  EXPECT_THAT(names, ::testing::ElementsAre("Finder", "Path Finder", "Finder"));
}

TEST_F(LinuxApplicationsTest, InformationTellsOfTheProcess) {
  const RunningApplication alpha = world.start("alpha");
  const auto information = applications.processInformation(alpha.serialNumber);
  ASSERT_TRUE(information);
  EXPECT_EQ(information->find("pid")->integer(), alpha.processIdentifier);
  EXPECT_EQ(*information->stringFor("BundlePath"), *alpha.path);
  EXPECT_EQ(*information->stringFor("CFBundleExecutable"), TAVREL_WINDOW_APPLICATION);
}

TEST_F(LinuxApplicationsTest, ANumberThatNobodyHasIsRefused) {
  EXPECT_FALSE(applications.bringToFront({0, 0}));
  EXPECT_FALSE(applications.bringToFront({7, 7}));
  EXPECT_FALSE(applications.processInformation({0, 1}));
}

/// What windows tell, matched with entries.
class WindowMatch : public ::testing::Test {
protected:
  std::string match(const WindowFacts& window, const std::string& executable = {}) {
    registry.refresh();
    const InstalledApplication* found = applicationOf(window, executable, registry);
    return found == nullptr ? "" : found->id;
  }
  static WindowFacts window(const std::string& windowClass, const std::string& id = {}) {
    WindowFacts facts;
    facts.windowClass = windowClass;
    facts.applicationId = id;
    return facts;
  }
  void add(const std::string& name, const std::string& exec, const std::string& lines = {}) {
    fakes.addEntry(name, "Exec=" + exec + "\n" + lines);
  }

  FakeApplications fakes;
  ApplicationRegistry registry{fakes.folders()};
};

TEST_F(WindowMatch, TheIdThatTheWindowNamesCountsFirst) {
  add("org.example.Editor", "x");
  add("editor", "x");
  EXPECT_EQ(match(window("editor", "org.example.Editor")), "org.example.Editor.desktop");
  EXPECT_EQ(match(window("", "org.example.Editor.desktop")), "org.example.Editor.desktop");
  EXPECT_EQ(match(window("", (fakes.data() / "applications/editor.desktop").string())),
            "editor.desktop");
}

TEST_F(WindowMatch, TheClassOfTheEntryCountsBeforeItsId) {
  add("editor", "x");
  add("other", "x", "StartupWMClass=Editor\n");
  EXPECT_EQ(match(window("Editor")), "other.desktop");
}

TEST_F(WindowMatch, TheClassMayBeTheId) {
  add("Editor", "x");
  EXPECT_EQ(match(window("editor")), "Editor.desktop");
}

TEST_F(WindowMatch, TheClassOrTheProgramMayBeTheEntrysProgram) {
  add("one", "/usr/bin/editor %F");
  EXPECT_EQ(match(window("Editor")), "one.desktop");
  EXPECT_EQ(match(window("Something"), "/opt/bin/editor"), "one.desktop");
}

TEST_F(WindowMatch, TheClassMayBeTheEndOfTheId) {
  add("org.example.Editor", "x");
  EXPECT_EQ(match(window("editor")), "org.example.Editor.desktop");
}

TEST_F(WindowMatch, AnInterpreterIsNobodysProgram) {
  add("python3.11", "/usr/bin/python3.11");
  EXPECT_EQ(match(window("Something"), "/usr/bin/python3.11"), "");
}

TEST_F(WindowMatch, AnEntryOfMenusIsPreferredToAHelper) {
  add("a-helper", "editor --setup", "NoDisplay=true\n");
  add("b", "editor");
  EXPECT_EQ(match(window("editor")), "b.desktop");
}

TEST_F(WindowMatch, NothingFitsAWindowThatTellsNothing) {
  add("a", "");
  EXPECT_EQ(match(window("")), "");
}

} // namespace
} // namespace tavrel
