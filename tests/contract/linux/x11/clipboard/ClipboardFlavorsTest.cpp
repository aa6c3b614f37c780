#include "platform/linux/x11/clipboard/ClipboardFlavors.h"
#include "platform/Pasteboards.h"
#include "platform/linux/x11/clipboard/ClipboardTargets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

Bytes bytesOf(const std::string& text) {
  return {text.begin(), text.end()};
}

/// A clipboard with one name and its data.
ClipboardContents contentsOf(const std::string& name, const std::string& data) {
  return {{name}, {{name, sharedBytes(bytesOf(data))}}};
}

struct FlavorSample {
  std::string data;
  std::vector<std::string> targets; ///< that other programs are offered
};

const std::map<std::string, FlavorSample> offered{
    {pasteboardType::string,
     {"text", {"UTF8_STRING", "text/plain;charset=utf-8", "text/plain", "STRING", "TEXT"}}},
    {pasteboardType::rtf, {"{\\rtf1}", {"text/rtf", "application/rtf"}}},
    {pasteboardType::html, {"<b>", {"text/html"}}},
    {pasteboardType::pdf, {"%PDF", {"application/pdf"}}},
    {pasteboardType::url, {"https://a.example/", {"text/uri-list"}}},
    {pasteboardType::filenames, {"", {"x-special/gnome-copied-files", "text/uri-list"}}},
    {pasteboardType::tiff, {"II*", {"image/tiff"}}}};

TEST(ClipboardTargets, EachFlavorIsOfferedUnderTheNamesThatProgramsKnow) {
  for (const auto& [flavor, sample] : offered)
    EXPECT_THAT(servedTargets(contentsOf(flavor, sample.data)), ElementsAreArray(sample.targets))
        << flavor;
}

TEST(ClipboardTargets, AnImageIsOfferedByTheFormatThatItsFirstBytesTell) {
  const std::map<std::string, std::string> formats{{"\x89PNG\r\n\x1A\n", "image/png"},
                                                   {"\xFF\xD8\xFF\xE0", "image/jpeg"},
                                                   {"GIF89a", "image/gif"},
                                                   {"BM......", "image/bmp"},
                                                   {"II*", "image/tiff"},
                                                   {"", "image/tiff"}};
  for (const auto& [bytes, target] : formats)
    EXPECT_THAT(servedTargets(contentsOf(pasteboardType::tiff, bytes)), ElementsAre(target));
}

TEST(ClipboardTargets, FlavorsWithoutACounterpartAreNotOffered) {
  for (const char* flavor : {pasteboardType::rtfd, pasteboardType::pict, pasteboardType::concealed})
    EXPECT_THAT(servedTargets(contentsOf(flavor, "x")), IsEmpty()) << flavor;
}

/// Which flavor the platform's programs find in a target of another program.
TEST(ClipboardFlavors, EachTargetIsReadAsItsFlavor) {
  const std::map<std::string, const char*> flavors{
      {"text/plain;charset=utf-8", pasteboardType::string},
      {"UTF8_STRING", pasteboardType::string},
      {"text/plain", pasteboardType::string},
      {"STRING", pasteboardType::string},
      {"TEXT", pasteboardType::string},
      {"text/rtf", pasteboardType::rtf},
      {"application/rtf", pasteboardType::rtf},
      {"text/richtext", pasteboardType::rtf},
      {"text/html", pasteboardType::html},
      {"Text/HTML", pasteboardType::html},
      {"application/pdf", pasteboardType::pdf},
      {"image/tiff", pasteboardType::tiff},
      {"image/png", pasteboardType::tiff},
      {"image/bmp", pasteboardType::tiff},
      {"image/jpeg", pasteboardType::tiff},
      {"image/gif", pasteboardType::tiff},
      {"image/webp", pasteboardType::tiff}};
  for (const auto& [target, flavor] : flavors) {
    const ClipboardContents contents = contentsOf("x11:" + target, "data");
    EXPECT_THAT(flavorsOf(contents), ElementsAre(flavor)) << target;
    EXPECT_EQ(flavorData(contents, flavor), bytesOf("data")) << target;
  }
}

TEST(ClipboardFlavors, AddressesAreFilesOrAUrl) {
  for (const char* target : {"text/uri-list", "x-special/gnome-copied-files"}) {
    const std::string name = std::string("x11:") + target;
    EXPECT_THAT(flavorsOf(contentsOf(name, "file:///a")), ElementsAre(pasteboardType::filenames))
        << target;
    EXPECT_THAT(flavorsOf(contentsOf(name, "https://a.example/")), ElementsAre(pasteboardType::url))
        << target;
  }
  const std::string title("h\0:\0/\0/\0a\0\n\0t\0", 14);
  const ClipboardContents link = contentsOf("x11:text/x-moz-url", title);
  EXPECT_THAT(flavorsOf(link), ElementsAre(pasteboardType::url));
  EXPECT_EQ(flavorData(link, pasteboardType::url), bytesOf("h://a"));
}

TEST(ClipboardFlavors, TargetsOfPasswordManagersAreConcealed) {
  for (const char* target :
       {"application/x-nspasteboard-concealed-type", pasteboardType::concealed})
    EXPECT_THAT(flavorsOf(contentsOf(std::string("x11:") + target, "")),
                ElementsAre(pasteboardType::concealed))
        << target;
}

TEST(ClipboardFlavors, OtherTargetsAreNoFlavor) {
  EXPECT_THAT(flavorsOf(contentsOf("x11:application/x-private", "data")), IsEmpty());
  EXPECT_THAT(flavorsOf(contentsOf("x11:image/tiff;type=image/tiff;format=16", "data")), IsEmpty());
}

} // namespace
} // namespace tavrel
