// Captures from a program that copies in every way that programs do, as often as it is told:
//   capture_soak [COUNT]
// and tells how often the clipboard of the user was lost, and what has grown meanwhile.
#include "contract/linux/x11/selection/SelectionFixture.h"

#include <QApplication>

#include <filesystem>
#include <iostream>

namespace tavrel {
namespace {

int count = 100'000;

// In kB.
long residentMemory() {
  std::ifstream file("/proc/self/status");
  std::string word;
  while (file >> word)
    if (word == "VmRSS:")
      return file >> word ? std::stol(word) : 0;
  return 0;
}

long openDescriptors() {
  const std::filesystem::directory_iterator all("/proc/self/fd");
  return std::distance(begin(all), end(all));
}

TEST_F(SelectionFixture, NoClipboardIsLost) {
  front({QStringLiteral("selected=Words"), QStringLiteral("answer=mixed"),
         QStringLiteral("delay=60")});
  ASSERT_FALSE(HasFatalFailure());
  int lost = 0, taken = 0;
  long memoryBefore = 0, descriptorsBefore = 0;
  for (int each = 0; each < count; ++each) {
    taken += captureText() == "Words" ? 1 : 0;
    QCoreApplication::processEvents(); // or those of the toolkit pile up
    if (!waitFor([&] { return clipboardIsAsBefore(); })) {
      ++lost;
      std::cout << "lost in capture " << each << ": " << keys().back() << std::endl;
      clipboardOwner.copy(theirs);
    }
    if (each == count / 10) {
      memoryBefore = residentMemory();
      descriptorsBefore = openDescriptors();
    }
    if (count >= 10 && each % (count / 10) == 0)
      std::cout << each << " captures, " << lost << " clipboards lost" << std::endl;
  }
  EXPECT_EQ(lost, 0);
  EXPECT_TRUE(eventually([&] { return clipboardIsAsBefore(); }));
  std::cout << count << " captures: text in " << taken << ", clipboards lost: " << lost
            << "; memory " << memoryBefore << " to " << residentMemory() << " kB, descriptors "
            << descriptorsBefore << " to " << openDescriptors() << std::endl;
  EXPECT_LT(residentMemory(), memoryBefore * 11 / 10 + 1024) << "memory grows";
  EXPECT_LE(openDescriptors(), descriptorsBefore + 2);
}

} // namespace
} // namespace tavrel

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  if (argc > 1)
    tavrel::count = std::atoi(argv[1]);
  return RUN_ALL_TESTS();
}
