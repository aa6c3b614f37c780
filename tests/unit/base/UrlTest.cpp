#include "base/Url.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(Url, AFileUrlNamesItsPath) {
  EXPECT_EQ(pathOfUrl("file://localhost/Users/a%20b"), "/Users/a b");
  EXPECT_EQ(pathOfUrl("file:///a/b/"), "/a/b");
  EXPECT_EQ(pathOfUrl("file:///"), "/");
  EXPECT_EQ(pathOfUrl("file:///a%2Fb"), "/a/b");
  EXPECT_EQ(pathOfUrl("file:///a;b?c"), "/a;b");
  EXPECT_EQ(pathOfUrl("file:///caf%C3%A9"), "/caf\xC3\xA9");
  EXPECT_EQ(pathOfUrl("file:///a/../b"), "/a/../b");
  EXPECT_EQ(pathOfUrl("/plain"), "/plain");
}

TEST(Url, EscapesThatAreNoUtf8NameNoPath) {
  EXPECT_EQ(pathOfUrl("file:///%E9"), std::nullopt);
  EXPECT_EQ(pathOfUrl("file:///%C0%AF"), std::nullopt);
}

TEST(Url, WhatHoldsForeignCharactersIsNoUrl) {
  for (const char* text : {"", "%ZZ", "a b", "caf\xC3\xA9", "Look Up in Dictionary", "a%2", "<a>"})
    EXPECT_FALSE(isUrl(text)) << text;
  EXPECT_EQ(pathOfUrl("file:///a b"), std::nullopt);
}

TEST(Url, EveryCharacterThatMayStandInAUrlDoes) {
  std::string allowed = "-._~:/?#[]@!$&'()*+,;=";
  for (char c = 'a'; c <= 'z'; ++c)
    allowed.append({c, static_cast<char>(c - 'a' + 'A')});
  allowed.append("0123456789%");
  for (int c = 1; c < 256; ++c) {
    const char text[] = {static_cast<char>(c), '4', '1', '\0'};
    EXPECT_EQ(isUrl(text), allowed.find(text[0]) != std::string::npos) << c;
  }
}

TEST(Url, AnEscapeIsTwoHexadecimalDigitsOfEitherCase) {
  EXPECT_EQ(pathOfUrl("/%30%39%3a%3A%4f%4F%6a%7E"), "/09::OOj~");
  for (const char* text :
       {"%", "%4", "%4g", "%g4", "%4G", "%/0", "%0/", "%:0", "%0:", "%`0", "%@0"})
    EXPECT_FALSE(isUrl(text)) << text;
}

TEST(Url, AuthorityQueryAndFragmentAreNoPartOfThePath) {
  EXPECT_EQ(pathOfUrl("http://x.com?q"), "");
  EXPECT_EQ(pathOfUrl("http://x.com#f"), "");
  EXPECT_EQ(pathOfUrl("http://x.com/a#f"), "/a");
  EXPECT_EQ(pathOfUrl("//x.com/a"), "/a");
  EXPECT_EQ(pathOfUrl("a/b"), "a/b");
}

TEST(Url, OnlyAHierarchyHasAPath) {
  EXPECT_EQ(pathOfUrl("http://x.com"), "");
  EXPECT_EQ(pathOfUrl("http://x.com/Applications"), "/Applications");
  EXPECT_EQ(pathOfUrl("mailto:a@b.c"), std::nullopt);
}

TEST(Url, TheSchemeIsToldInLowerCase) {
  EXPECT_EQ(urlScheme("HTTPS://x.com"), "https");
  EXPECT_EQ(urlScheme("/a:b"), "");
  EXPECT_EQ(urlScheme("1a:b"), "");
  EXPECT_EQ(urlScheme("a:b"), "a");
  EXPECT_EQ(urlScheme("Z39.50+s-X:b"), "z39.50+s-x");
  for (const char* text : {"", "a", "a b:c", "a/b:c", "a_b:c", "+a:b", ":b"})
    EXPECT_EQ(urlScheme(text), "") << text;
}

TEST(Url, APathIsEscapedAsThePlatformDoes) {
  EXPECT_EQ(fileUrlOfPath("/a b", PathIs::file), "file:///a%20b");
  EXPECT_EQ(fileUrlOfPath("/#?%;[]^\\{|}\"<>`", PathIs::file),
            "file:///%23%3F%25%3B%5B%5D%5E%5C%7B%7C%7D%22%3C%3E%60");
  EXPECT_EQ(fileUrlOfPath("/&=+,@:!$'()*~-._azAZ09", PathIs::file),
            "file:///&=+,@:!$'()*~-._azAZ09");
  EXPECT_EQ(fileUrlOfPath("/e\xCC\x81", PathIs::file), "file:///e%CC%81");
}

TEST(Url, ADirectoryEndsInASlash) {
  EXPECT_EQ(fileUrlOfPath("/a", PathIs::directory), "file:///a/");
  EXPECT_EQ(fileUrlOfPath("/", PathIs::directory), "file:///");
}

TEST(Url, EveryPathComesBackFromItsUrl) {
  for (const char* path : {"/a b", "/%41", "/;?#", "/caf\xC3\xA9", "/\x01\x7F", "/a:b"})
    EXPECT_EQ(pathOfUrl(fileUrlOfPath(path, PathIs::file)), path);
}

} // namespace
} // namespace tavrel
