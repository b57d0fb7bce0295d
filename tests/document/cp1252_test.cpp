#include <gtest/gtest.h>

#include "document/cp1252.h"

namespace vt {
namespace {

TEST(Cp1252, EveryByteSurvivesATripThroughUtf8) {
  std::string tous;
  for (int b = 0; b < 256; ++b)
    tous += static_cast<char>(b);
  const std::string utf8 = cp1252ToUtf8(tous);
  EXPECT_TRUE(isValidUtf8(utf8));
  EXPECT_EQ(utf8ToCp1252(utf8), tous);
}

TEST(Cp1252, CharactersOfTheCodePage) {
  EXPECT_EQ(cp1252ToUtf8("Caf\xE9"), "Café");
  EXPECT_EQ(cp1252ToUtf8("\x80"), "€");
  EXPECT_EQ(cp1252ToUtf8("\x9F\x8A\x85\x96"), "ŸŠ…–");
  EXPECT_EQ(cp1252ToUtf8("\x81\x8D\x8F\x90\x9D"), "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D");
  EXPECT_EQ(utf8ToCp1252("Œuvre à Noël — «1»"),
            "\x8Cuvre \xE0 No\xEBl \x97 \xAB"
            "1\xBB");
}

TEST(Cp1252, WhatTheCodePageLacksBecomesAQuestionMark) {
  EXPECT_EQ(utf8ToCp1252("漢字"), "??");
  EXPECT_EQ(utf8ToCp1252("a🎸b"), "a?b");
  EXPECT_EQ(utf8ToCp1252("\xC2\x80"), "?");  // a C1 control the code page gives to "€"
  // Malformed: a cut sequence, an overlong slash, a surrogate, a stray continuation.
  EXPECT_EQ(utf8ToCp1252("x\xE2\x82"), "x??");
  EXPECT_EQ(utf8ToCp1252("\xC0\xAF"), "??");
  EXPECT_EQ(utf8ToCp1252("\xED\xA0\x80"), "???");
  EXPECT_EQ(utf8ToCp1252("\x80z"), "?z");
  EXPECT_FALSE(isValidUtf8("\xC0\xAF"));
  EXPECT_FALSE(isValidUtf8("\xF4\x90\x80\x80"));  // past U+10FFFF
  EXPECT_TRUE(isValidUtf8("plain \xF0\x9F\x8E\xB8"));
}

}  // namespace
}  // namespace vt
