#include "base/AsciiForms.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace tavrel {
namespace {

using Forms = std::vector<std::pair<std::string_view, std::u32string_view>>;

void expectForms(const Forms& forms) {
  for (const auto& [form, characters] : forms)
    for (const char32_t character : characters)
      EXPECT_EQ(asciiForm(character), form) << "U+" << std::hex << std::uint32_t{character};
}

TEST(AsciiForms, LettersLoseTheirAccents) {
  expectForms({{"A", U"ÀÁÂÃÄÅ"},  {"C", U"Ç"}, {"D", U"ÐĐ"},      {"E", U"ÈÉÊË"},  {"I", U"ÌÍÎÏ"},
               {"L", U"Ł"},       {"N", U"Ñ"}, {"O", U"ÒÓÔÕÖØ"},  {"U", U"ÙÚÛÜ"},  {"Y", U"Ý"},
               {"a", U"ªàáâãäå"}, {"c", U"ç"}, {"d", U"ðđ"},      {"e", U"èéêë"},  {"i", U"ìíîïı"},
               {"l", U"ł"},       {"n", U"ñ"}, {"o", U"ºòóôõöø"}, {"u", U"µùúûü"}, {"y", U"ýÿ"}});
}

TEST(AsciiForms, LettersInOneBecomeTwo) {
  expectForms({{"AE", U"Æ"},
               {"ae", U"æ"},
               {"OE", U"Œ"},
               {"oe", U"œ"},
               {"TH", U"Þ"},
               {"th", U"þ"},
               {"s", U"ß"}});
}

TEST(AsciiForms, PunctuationBecomesPlain) {
  expectForms({{" ", U"\u00A0"},
               {"!", U"¡"},
               {"?", U"¿"},
               {"-", U"\u00AD‐‑‒–—―−"},
               {"'", U"´‘’"},
               {",", U"¸‚"},
               {",,", U"„"},
               {"\"", U"“”"},
               {"<<", U"«"},
               {">>", U"»"},
               {"<", U"‹"},
               {">", U"›"},
               {".", U"·"},
               {"...", U"…"},
               {"*", U"•"},
               {"^", U"ˆ"},
               {"~", U"˜"},
               {"|", U"¦"}});
}

TEST(AsciiForms, SignsAreSpelled) {
  expectForms({{"c", U"¢"},
               {"L", U"£"},
               {"$", U"¤"},
               {"Y", U"¥"},
               {"(C)", U"©"},
               {"(R)", U"®"},
               {"TM", U"™"},
               {"+/-", U"±"},
               {"1", U"¹"},
               {"2", U"²"},
               {"3", U"³"},
               {"1/4", U"¼"},
               {"1/2", U"½"},
               {"3/4", U"¾"},
               {"x", U"×"},
               {"/", U"÷⁄∕"}});
}

TEST(AsciiForms, WhatHasNoFormIsLeftOut) {
  expectForms({{"", U"§¨¬¯°¶\u009F\u0100я漢"}});
}

} // namespace
} // namespace tavrel
