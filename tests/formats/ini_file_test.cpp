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
  std::vector<int> lus;
  for (const char* clé : {"a", "b", "c", "d", "e", "f", "g", "h", "absent"})
    lus.push_back(ini.getPrivateProfileInt("s", clé, 6));
  EXPECT_EQ(lus, (std::vector<int>{42, -3, 31, 12, 0, INT_MAX, INT_MIN, 8, 6}));
}

TEST(IniFile, MissingFileGivesTheDefaults) {
  const IniFile ini = IniFile::load("/nonexistent/folder/vt.ini");
  EXPECT_EQ(ini.getPrivateProfileInt("Accordeur", "nbrGuitares", 1), 1);
  EXPECT_EQ(ini.getPrivateProfileString("1", "nom", "x"), "x");
}

}  // namespace
}  // namespace vt
