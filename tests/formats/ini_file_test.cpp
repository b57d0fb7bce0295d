#include <gtest/gtest.h>

#include <climits>

#include "formats/ini_file.h"

namespace vt {
namespace {

TEST(IniFile, SectionsAndKeysIgnoreCaseAndLineEnds) {
  const IniFile ini = IniFile::fromText(
      "; comment\r\nstray=1\r\n[Accordeur]\r\n  NbrGuitares = 12 \r\n"
      "[1]\nnom = Guitare \n# other comment\nnomEN=\"  Quoted  \"\nempty=\n"
      "nom=second\n[accordeur]\nnbrGuitares=99\nautre=3\n");
  EXPECT_EQ(ini.getPrivateProfileInt("accordeur", "nbrguitares", 1), 12);
  EXPECT_EQ(ini.getPrivateProfileString("1", "NOM", "?"), "Guitare");  // the first key wins
  EXPECT_EQ(ini.getPrivateProfileString("1", "nomEN", "?"), "  Quoted  ");
  EXPECT_EQ(ini.getPrivateProfileString("1", "empty", "?"), "");
  EXPECT_EQ(ini.getPrivateProfileInt("1", "empty", 7), 7);
  // Only the first section of a name is read.
  EXPECT_EQ(ini.getPrivateProfileInt("Accordeur", "autre", -1), -1);
  EXPECT_FALSE(ini.hasKey("", "stray"));
  EXPECT_EQ(ini.getPrivateProfileString("2", "nom", "defaut"), "defaut");
}

TEST(IniFile, IntegersReadAsTheProfileCallsDo) {
  const IniFile ini = IniFile::fromText(
      "[s]\na=42\nb=-3\nc=0x1F\nd=12abc\ne=abc\nf=99999999999\ng=-99999999999\nh=+8\n");
  EXPECT_EQ(ini.getPrivateProfileInt("s", "a", 0), 42);
  EXPECT_EQ(ini.getPrivateProfileInt("s", "b", 0), -3);
  EXPECT_EQ(ini.getPrivateProfileInt("s", "c", 0), 31);
  EXPECT_EQ(ini.getPrivateProfileInt("s", "d", 0), 12);
  EXPECT_EQ(ini.getPrivateProfileInt("s", "e", 5), 0);
  EXPECT_EQ(ini.getPrivateProfileInt("s", "f", 0), INT_MAX);
  EXPECT_EQ(ini.getPrivateProfileInt("s", "g", 0), INT_MIN);
  EXPECT_EQ(ini.getPrivateProfileInt("s", "h", 0), 8);
  EXPECT_EQ(ini.getPrivateProfileInt("s", "absent", 6), 6);
}

TEST(IniFile, MissingFileGivesTheDefaults) {
  const IniFile ini = IniFile::load("/nonexistent/folder/vt.ini");
  EXPECT_EQ(ini.getPrivateProfileInt("Accordeur", "nbrGuitares", 1), 1);
  EXPECT_EQ(ini.getPrivateProfileString("1", "nom", "x"), "x");
}

}  // namespace
}  // namespace vt
