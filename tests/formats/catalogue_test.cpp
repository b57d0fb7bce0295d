// The instrument catalogue and the profile file it is read from: profile
// defaults, languages, the shipped file, and the two ways a track finds its instrument.
#include <gtest/gtest.h>

#include <climits>
#include <filesystem>
#include <set>
#include <tuple>

#include "formats/catalogue.h"
#include "formats/string_table.h"
#include "vtb_test_util.h"

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
  // A missing file gives the defaults.
  const IniFile absent = IniFile::load("/nonexistent/folder/vt.ini");
  EXPECT_EQ(absent.getPrivateProfileInt("Accordeur", "nbrGuitares", 1), 1);
  EXPECT_EQ(absent.getPrivateProfileString("1", "nom", "x"), "x");
}

TEST(IniFile, IntegersReadAsTheProfileCallsDo) {
  const IniFile ini = IniFile::fromText(
      "[s]\na=42\nb=-3\nc=0x1F\nd=12abc\ne=abc\nf=99999999999\ng=-99999999999\nh=+8\n");
  std::vector<int> lus;
  for (const char* clé : {"a", "b", "c", "d", "e", "f", "g", "h", "absent"})
    lus.push_back(ini.getPrivateProfileInt("s", clé, 6));
  EXPECT_EQ(lus, (std::vector<int>{42, -3, 31, 12, 0, INT_MAX, INT_MIN, 8, 6}));
}

const std::filesystem::path kLivré = test::dossierDonnées() / kFichierCatalogue;

tPiste pisteDe(const tGuitare& g) {
  tPiste p;
  p.bytNbrCordes = g.nbrCordes;
  p.bytCordes = g.corde;
  p.bytNbrCases = g.nbrCases;
  p.bytCapodastre = g.capodastre;
  return p;
}

TEST(Catalogue, AbsentKeysTakeTheProfileDefaultsDamagedValuesAreHeldIn1252Names) {
  const CatalogueGuitares vide = CatalogueGuitares::load("/nonexistent/vt.ini");
  EXPECT_EQ(vide.nbrGuitares(), 1);
  tGuitare attendu;
  attendu.nom = "";
  attendu.nbrCordes = 6;
  attendu.nbrCases = 6;
  attendu.corde = {0, 50, 50, 50, 50, 50, 50, 0};
  attendu.capodastre = 6;
  EXPECT_EQ(vide.loadGuitare(1, kLangAnglais), attendu);

  const CatalogueGuitares partiel =
      CatalogueGuitares::fromText("[3]\nnbrCordes=4\ncorde2=38\nnom=Basse\n");
  attendu.nom = "Basse";
  attendu.nbrCordes = 4;
  attendu.corde = {0, 50, 38, 50, 50, 0, 0, 0};  // past the count: 0
  EXPECT_EQ(partiel.loadGuitare(3, kLangFrançais), attendu);
  EXPECT_EQ(partiel.loadGuitare(3, kLangAnglais).nom, "");  // no "nomEN"

  // Damaged values stay inside what an instrument can be.
  const CatalogueGuitares c =
      CatalogueGuitares::fromText("[1]\nnbrCordes=12\nnbrCases=-4\ncorde7=300\ncapodastre=999\n");
  const tGuitare g = c.loadGuitare(1, 0);
  EXPECT_EQ((std::vector<int>{g.nbrCordes, g.nbrCases, g.corde[7], g.capodastre}),
            (std::vector<int>{7, 0, 255, 255}));
  EXPECT_EQ(CatalogueGuitares::fromText("[1]\nnbrCordes=0\n").loadGuitare(1, 0).nbrCordes, 1);
  EXPECT_EQ(CatalogueGuitares::fromText("[1]\nnom=" + std::string(400, 'n') + "\n")
                .loadGuitare(1, 0)
                .nom.size(),
            254u);
  // Names come out in Windows-1252 from either encoding.
  const CatalogueGuitares utf8 =
      CatalogueGuitares::fromText("\xEF\xBB\xBF[1]\nnom=Guitare à 7 cordes\n");
  EXPECT_EQ(utf8.loadGuitare(1, 0).nom, "Guitare \xE0 7 cordes");
  const CatalogueGuitares ancien = CatalogueGuitares::fromText("[1]\nnom=Ukul\xE9l\xE9\n");
  EXPECT_EQ(ancien.loadGuitare(1, 0).nom, "Ukul\xE9l\xE9");
}

TEST(Catalogue, ShippedFileIsCompleteAndHasTheCommonTunings) {
  const CatalogueGuitares c = CatalogueGuitares::load(kLivré);
  const IniFile& ini = c.ini();
  std::set<std::tuple<int, int, std::array<byt, 8>>> vus;
  std::set<std::array<byt, 8>> accordages;
  for (int i = 1; i <= c.nbrGuitares(); ++i) {
    const std::string s = std::to_string(i);
    SCOPED_TRACE(s);
    for (const char* clé : {"nom", "nomEN", "nbrCordes", "nbrCases", "capodastre"})
      EXPECT_TRUE(ini.hasKey(s, clé)) << clé;
    const int cordes = ini.getPrivateProfileInt(s, "nbrCordes", 0);
    ASSERT_GE(cordes, 1);
    ASSERT_LE(cordes, 7);
    for (int k = 1; k <= cordes; ++k)
      EXPECT_TRUE(ini.hasKey(s, "corde" + std::to_string(k)));
    EXPECT_FALSE(ini.hasKey(s, "corde" + std::to_string(cordes + 1)));
    const tGuitare g = c.loadGuitare(i, kLangAnglais);
    EXPECT_FALSE(g.nom.empty());
    EXPECT_FALSE(c.loadGuitare(i, kLangFrançais).nom.empty());
    EXPECT_EQ(g.capodastre, 0);
    // No instrument hides another: each is the first with its layout.
    EXPECT_TRUE(vus.insert({g.nbrCordes, g.nbrCases, g.corde}).second);
    EXPECT_EQ(chercherGuitarePiste(c, pisteDe(g)), i);
    accordages.insert(g.corde);
  }
  const auto a = [](std::initializer_list<int> cordes) { return test::guitare(cordes).corde; };
  for (const auto& attendu :
       {a({64, 59, 55, 50, 45, 38}), a({62, 57, 55, 50, 45, 38}), a({62, 59, 55, 50, 43, 38}),
        a({62, 57, 54, 50, 45, 38}), a({64, 59, 56, 52, 47, 40}), a({63, 58, 54, 49, 44, 39}),
        a({62, 57, 53, 48, 43, 38}), a({64, 59, 55, 50, 45, 40, 35}), a({43, 38, 33, 28}),
        a({43, 38, 33, 28, 23})})
    EXPECT_TRUE(accordages.count(attendu));
}

TEST(Catalogue, FileMatchLooksAtTheStringsOnlyTrackMatchAlsoAtFretsAndCapo) {
  const CatalogueGuitares& c = test::catalogueTest();
  tPiste p = pisteDe(test::guitare({64, 59, 55, 50, 45, 38}, 12));
  p.bytCapodastre = 3;
  EXPECT_EQ(chercherGuitareAccordage(c, p), 2);
  p.bytCordes[7] = 99;  // past the string count: not compared
  EXPECT_EQ(chercherGuitareAccordage(c, p), 2);
  EXPECT_EQ(chercherGuitareAccordage(c, pisteDe(test::guitare({64, 59, 55, 50, 45, 40}, 19))), 1);
  EXPECT_EQ(chercherGuitareAccordage(c, pisteDe(test::guitare({64, 59, 55, 50, 45}))), 0);
  EXPECT_EQ(chercherGuitareAccordage(c, pisteDe(test::guitareInconnue())), 0);
  // The track match also wants the frets and the capo.
  EXPECT_EQ(chercherGuitarePiste(c, pisteDe(test::guitare({64, 59, 55, 50, 45, 40}, 19))), 5);
  EXPECT_EQ(chercherGuitarePiste(c, pisteDe(test::guitare({64, 59, 55, 50, 45, 40}, 24))), 1);
  p = pisteDe(test::guitare({43, 38, 33, 28}, 20));
  EXPECT_EQ(chercherGuitarePiste(c, p), 3);
  p.bytCapodastre = 2;
  EXPECT_EQ(chercherGuitarePiste(c, p), 0);
  EXPECT_EQ(chercherGuitarePiste(c, pisteDe(test::guitare({64, 59, 55, 50, 45, 40}, 21))), 0);
}

TEST(Catalogue, SearchEndsAfterTheLastInstrument) {
  // Section 3 exists but the count says 2: it is not looked at.
  const CatalogueGuitares c = CatalogueGuitares::fromText(
      "[Accordeur]\nnbrGuitares=2\n[3]\nnbrCordes=1\ncorde1=40\nnbrCases=6\ncapodastre=6\n");
  const tPiste p = pisteDe(test::guitare({40}, 6));
  EXPECT_EQ(chercherGuitareAccordage(c, p), 0);
  // Instruments without a section are made of the defaults, and match as such.
  tPiste défauts = pisteDe(test::guitare({50, 50, 50, 50, 50, 50}, 6));
  défauts.bytCapodastre = 6;
  EXPECT_EQ(chercherGuitarePiste(c, défauts), 1);
  EXPECT_EQ(chercherGuitareAccordage(CatalogueGuitares::fromText("[Accordeur]\nnbrGuitares=0\n"),
                                     défauts),
            0);
  // A count past the byte of the setting stops at 255.
  const CatalogueGuitares énorme = CatalogueGuitares::fromText(
      "[Accordeur]\nnbrGuitares=100000\n[256]\nnbrCordes=1\ncorde1=40\n");
  EXPECT_EQ(chercherGuitareAccordage(énorme, p), 0);
}

}  // namespace
}  // namespace vt
