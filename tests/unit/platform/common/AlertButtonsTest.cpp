#include "platform/common/AlertButtons.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {

namespace {

std::vector<AlertAnswer> answersOf(const AlertPanel& panel) {
  std::vector<AlertAnswer> answers;
  for (const AlertButton& each : alertButtons(panel))
    answers.push_back(each.answer);
  return answers;
}

} // namespace

TEST(AlertButtons, StandInTheOrderInWhichTheyAreAdded) {
  EXPECT_THAT(
      answersOf({"", "", "Yes", "No", "Later"}),
      ::testing::ElementsAre(AlertAnswer::standard, AlertAnswer::alternate, AlertAnswer::other));
}

TEST(AlertButtons, WithoutATextThereIsNone) {
  EXPECT_THAT(answersOf({"", "", "Yes", "", "Later"}),
              ::testing::ElementsAre(AlertAnswer::standard, AlertAnswer::other));
  EXPECT_THAT(answersOf({"", "", "Yes"}), ::testing::ElementsAre(AlertAnswer::standard));
}

TEST(AlertButtons, ClosingIsTheAlternateAnswerOrElseTheDefaultOne) {
  EXPECT_EQ(answerWithoutButton({"", "", "Yes", "No"}), AlertAnswer::alternate);
  EXPECT_EQ(answerWithoutButton({"", "", "Yes"}), AlertAnswer::standard);
}

} // namespace tavrel
