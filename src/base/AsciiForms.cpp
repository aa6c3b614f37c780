#include "base/AsciiForms.h"

#include <algorithm>
#include <array>

namespace tavrel {

namespace {

constexpr char32_t firstOfLatin1 = 0xA0;

constexpr std::array<std::string_view, 96> latin1Forms{
    " ", "!",   "c", "L", "$", "Y", "|",  "",  "",  "(C)", "a", "<<", "",    "-",   "(R)", "",
    "",  "+/-", "2", "3", "'", "u", "",   ".", ",", "1",   "o", ">>", "1/4", "1/2", "3/4", "?",
    "A", "A",   "A", "A", "A", "A", "AE", "C", "E", "E",   "E", "E",  "I",   "I",   "I",   "I",
    "D", "N",   "O", "O", "O", "O", "O",  "x", "O", "U",   "U", "U",  "U",   "Y",   "TH",  "s",
    "a", "a",   "a", "a", "a", "a", "ae", "c", "e", "e",   "e", "e",  "i",   "i",   "i",   "i",
    "d", "n",   "o", "o", "o", "o", "o",  "/", "o", "u",   "u", "u",  "u",   "y",   "th",  "y"};

struct AsciiForm {
  char32_t character;
  std::string_view form;
};

constexpr auto otherForms = std::to_array<AsciiForm>(
    {{0x0110, "D"},  {0x0111, "d"},  {0x0131, "i"},  {0x0141, "L"}, {0x0142, "l"},   {0x0152, "OE"},
     {0x0153, "oe"}, {0x02C6, "^"},  {0x02DC, "~"},  {0x2010, "-"}, {0x2011, "-"},   {0x2012, "-"},
     {0x2013, "-"},  {0x2014, "-"},  {0x2015, "-"},  {0x2018, "'"}, {0x2019, "'"},   {0x201A, ","},
     {0x201C, "\""}, {0x201D, "\""}, {0x201E, ",,"}, {0x2022, "*"}, {0x2026, "..."}, {0x2039, "<"},
     {0x203A, ">"},  {0x2044, "/"},  {0x2122, "TM"}, {0x2212, "-"}, {0x2215, "/"}});

} // namespace

std::string_view asciiForm(char32_t character) {
  if (character >= firstOfLatin1 && character < firstOfLatin1 + latin1Forms.size())
    return latin1Forms.at(character - firstOfLatin1);
  const auto* found = std::ranges::find(otherForms, character, &AsciiForm::character);
  return found == otherForms.end() ? std::string_view() : found->form;
}

} // namespace tavrel
