#include "contract/linux/scripts/ScriptHostFixture.h"
#include "contract/linux/x11/clipboard/SelectionClient.h"
#include "platform/linux/installation/LinuxBundle.h"
#include "platform/linux/scripts/ResourceScript.h"
#include "platform/linux/scripts/ScriptFile.h"
#include "support/Desktop.h"

namespace tavrel {
namespace {

namespace fs = std::filesystem;

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

const std::vector<OwnedTarget> personsClipboard{
    plain("UTF8_STRING", "the person's"),
    plain("image/png", std::string("\x89PNG\0\xFF", 6)),
    {"COLORS", {"INTEGER", 32, {1, 2, 3, 4, 5, 6, 7, 8}}}};

/// A real file manager that shows a folder.
class ScriptSelectionTest : public ScriptHostFixture {
protected:
  void SetUp() override {
    manager("pcmanfm");
    fs::create_directory(folder);
  }
  void manager(const std::string& name) {
    (void)fakes.addEntry(name, "Exec=" + name +
                                   " %U\nMimeType=inode/directory;\nCategories=FileManager;\n"
                                   "StartupWMClass=" +
                                   name + "\n");
  }
  void isDefault(const std::string& name) const {
    std::ofstream(fakes.config() / "mimeapps.list")
        << "[Default Applications]\ninode/directory=" << name << ".desktop\n";
  }
  std::string file(const std::string& name) {
    std::ofstream(folder / name) << "x";
    return (folder / name).string();
  }

  bool isInFront(const std::string& role) {
    registry.refresh();
    const auto front = applications.active();
    return front && front->path && front->path->ends_with("/" + role + ".desktop");
  }
  void show(const std::string& role = "Finder") {
    shown.emplace("pcmanfm", QStringList{QString::fromStdString(folder.string())});
    ASSERT_TRUE(eventually([&] { return isInFront(role); }));
  }
  /// Selects all, and waits until the file manager itself copies that many.
  void selectAll(int count) {
    ASSERT_TRUE(eventually([&] {
      paster.own();
      xdotool({"key", "ctrl+a", "ctrl+c"});
      const QDeadlineTimer answer(1000);
      while (paster.owner() == paster.window && !answer.hasExpired())
        ::poll(nullptr, 0, 2);
      return paster.owner() != paster.window && copiedFiles() == count;
    }));
  }
  int copiedFiles() {
    const auto list = paster.paste("text/uri-list");
    const auto text = list ? QByteArray(reinterpret_cast<const char*>(list->bytes.data()),
                                        static_cast<int>(list->bytes.size()))
                           : QByteArray();
    return static_cast<int>(text.count("file://"));
  }
  /// What the user has on the clipboard is the same afterwards.
  template <typename Ask> auto keepingTheClipboard(Ask ask) {
    SelectionOwner owner(personsClipboard);
    EXPECT_EQ(pasteboards.general().string(pasteboardType::string), "the person's");
    auto answer = ask();
    std::vector<std::string> targets = paster.targets();
    std::erase(targets, "SAVE_TARGETS");
    EXPECT_THAT(targets, ElementsAre("UTF8_STRING", "image/png", "COLORS"));
    for (const OwnedTarget& each : personsClipboard)
      EXPECT_TRUE(paster.paste(each.name) == each.property) << each.name;
    isLeftToItsOwner = owner.isOwner();
    return answer;
  }
  std::string asked(const std::string& command, const std::string& of = "Finder") {
    return keepingTheClipboard(
        [&] { return result("tell application \"" + of + "\" to " + command); });
  }

  /// What the script of the capture gives.
  std::vector<std::string> captured(const std::string& script) {
    const auto path = bundle.resourcePath(script, "scpt");
    const auto loaded = engine.loadContainer(readScriptFile(path.value_or("")).container);
    LongRunningScripts none;
    const auto list = keepingTheClipboard(
        [&] { return ResourceScript(engine, std::get<script::ScriptId>(loaded), none).execute(); });
    EXPECT_TRUE(list && list->descriptorType == typeAEList);
    std::vector<std::string> paths;
    for (const Bytes& item : list ? list->items : std::vector<Bytes>()) {
      std::erase(paths.emplace_back(item.begin(), item.end()), '\0'); // ASCII is enough here
    }
    return paths;
  }

  fs::path folder = scratch.path() / "shown here";
  LinuxBundle bundle{TAVREL_BUILT_RESOURCES};
  SelectionPaster paster;
  std::optional<Program> shown;
  bool isLeftToItsOwner = false;
};

TEST_F(ScriptSelectionTest, OneSelectedFileIsAListOfOne) {
  const std::string path = file("a b.txt");
  show();
  selectAll(1);
  EXPECT_EQ(asked("get selection"), "{POSIX file \"" + path + "\"}");
  EXPECT_THAT(captured("CopyFinderSelection"), ElementsAre(path));
}

TEST_F(ScriptSelectionTest, ThreeSelectedFilesAreThree) {
  const std::vector<std::string> paths{file("a"), file("b"), file("c")};
  show();
  selectAll(3);
  EXPECT_THAT(captured("CopyFinderSelection"), UnorderedElementsAre(paths[0], paths[1], paths[2]));
  EXPECT_EQ(asked("count of (get selection)"), "3");
  EXPECT_EQ(asked("count selection"), "3");
  EXPECT_EQ(asked("get item 4 of selection").substr(0, 11), "error -1728");
}

TEST_F(ScriptSelectionTest, NothingSelectedIsTheEmptyListAndTheClipboardIsNotTaken) {
  (void)file("a");
  show();
  EXPECT_EQ(asked("get selection"), "{}");
  EXPECT_TRUE(isLeftToItsOwner);
  EXPECT_THAT(captured("CopyFinderSelection"), IsEmpty());
}

TEST_F(ScriptSelectionTest, AnEmptyClipboardIsEmptyAfterwards) {
  (void)file("a");
  show();
  selectAll(1);
  {
    const SelectionOwner ended({plain("UTF8_STRING", "ended")});
    ASSERT_EQ(pasteboards.general().string(pasteboardType::string), "ended");
  }
  ASSERT_TRUE(waitFor([&] { return pasteboards.general().types().empty(); }));
  EXPECT_NE(result("tell application \"Finder\" to get selection"), "{}");
  EXPECT_EQ(paster.owner(), 0U);
}

TEST_F(ScriptSelectionTest, AFileManagerThatIsNotInFrontIsNotAsked) {
  (void)file("a");
  show();
  selectAll(1);
  EXPECT_EQ(asked("get selection", "Path Finder"), "{}");
  const Program other(TAVREL_WINDOW_APPLICATION, {"ordinary"});
  ASSERT_TRUE(eventually([&] { return !isInFront("Finder"); }));
  EXPECT_EQ(asked("get selection"), "{}");
  EXPECT_TRUE(isLeftToItsOwner);
}

TEST_F(ScriptSelectionTest, TheSecondFileManagerIsAskedByItsOwnName) {
  manager("another");
  isDefault("another");
  const std::string path = file("a");
  show("Path Finder");
  selectAll(1);
  EXPECT_THAT(captured("CopyPathFinderSelection"), ElementsAre(path));
  EXPECT_EQ(asked("get selection", "Finder"), "{}");
}

} // namespace
} // namespace tavrel
