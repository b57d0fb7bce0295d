// The ASCII tablature export, character for character.
#include <gtest/gtest.h>

#include <sstream>

#include "formats/ascii_export.h"
#include "interchange_test_util.h"

namespace vt {
namespace {

using test::poser;

// The text's lines without their CR LF; fails on a line ending otherwise.
std::vector<std::string> lignes(const std::string& texte) {
  std::vector<std::string> out;
  std::size_t début = 0;
  while (début < texte.size()) {
    const std::size_t fin = texte.find("\r\n", début);
    if (fin == std::string::npos) {
      ADD_FAILURE() << "line without CR LF: " << texte.substr(début);
      break;
    }
    EXPECT_EQ(texte.substr(début, fin - début).find('\n'), std::string::npos);
    out.push_back(texte.substr(début, fin - début));
    début = fin + 2;
  }
  return out;
}

TEST(AsciiExport, HeadFrenchLabelsAndOneBlock) {
  CVantoroTablature doc = test::document(2);
  doc.titre = "Song";
  doc.SousTitre = "Sub";
  doc.Auteur = "Me";
  doc.Copy = "(c)";
  doc.Comments = "Hello";
  doc.tempo = 96;
  poser(doc, 1, 1, 1, 0, 3, 48, effet::kHammerOn);
  poser(doc, 1, 1, 1, 48, 5, 48, effet::kVibrato);
  poser(doc, 1, 1, 2, 96, 12, 48, effet::kLiaison);
  poser(doc, 1, 1, 6, 144, 0, 48, effet::kTrill);
  poser(doc, 1, 2, 3, 0, 7, 192, effet::kSlideDown);
  EXPECT_EQ(lignes(io_enregistrer_txt(doc, 1)),
            (std::vector<std::string>{
                "Titre: Song", "Sous-titre: Sub", "Auteur: Me", "Copyright: (c)",
                "Commentaires: Hello", "Tempo: 96", "", " 4/4              ", "|-3H-5~------|---|",
                "|------12^---|---|", "|------------|-7\\|", "|------------|---|",
                "|------------|---|", "|----------0t|---|", "                  ", ""}));
}

TEST(AsciiExport, EmptyFieldsLeftOutAndEmptyBarsTakeThreeColumns) {
  CVantoroTablature doc = test::document(2);
  // Narrower than the view mode of an empty bar: still three columns, and
  // widened to four for its label.
  doc.setMesureSignature(2, 1, 16);
  const std::string corde = "|---|----|";
  EXPECT_EQ(lignes(io_enregistrer_txt(doc, 1)),
            (std::vector<std::string>{"Tempo: 120", "", " 4/4 1/16 ", corde, corde, corde, corde,
                                      corde, corde, std::string(10, ' '), ""}));
}

TEST(AsciiExport, TwoDigitFretOverwritesTheEffectOfTheNoteBefore) {
  CVantoroTablature doc = test::document(1);
  // Durations of 8 print at 12 ticks a group: X 8 stands two columns on.
  poser(doc, 1, 1, 1, 0, 3, 8, effet::kHammerOn);
  poser(doc, 1, 1, 1, 8, 10, 8);
  poser(doc, 1, 1, 2, 0, 120, 8, effet::kPullOff);  // no fret above 99, but its effect
  poser(doc, 1, 1, 3, 0, 9, 8, effet::kLiaison);
  const auto l = lignes(io_enregistrer_txt(doc, 1));
  ASSERT_GE(l.size(), 6u);
  EXPECT_EQ(l[3].substr(0, 6), "|-310-");
  EXPECT_EQ(l[4].substr(0, 6), "|--P--");
  EXPECT_EQ(l[5].substr(0, 6), "|-9^--");
}

TEST(AsciiExport, BarLinesRepeatsAndASignatureLabelWiderThanItsBarWidensItSoColumnsStayAligned) {
  CVantoroTablature doc = test::document(3);
  doc.setGuitareNbrCordes(1, 5);
  doc.changePisteNbrCordes(1);
  doc.setMesureSignature(2, 3, 4);
  doc.setMesureLoopGaucheType(2, barre::kRepetition);
  doc.setMesureLoopDroiteType(2, barre::kRepetition);
  doc.setMesureLoopDroiteData(2, 2);
  doc.setMesureLoopGaucheType(3, barre::kDouble);
  doc.setMesureLoopDroiteType(3, barre::kFinale);
  // Five strings: the dots stand on strings 2 and 3, below the middle.
  EXPECT_EQ(lignes(io_enregistrer_txt(doc, 1)),
            (std::vector<std::string>{"Tempo: 120", "", " 4/4   3/4    4/4   ",
                                      "|---||-----|||---|||", "|---||*---*|||---|||",
                                      "|---||*---*|||---|||", "|---||-----|||---|||",
                                      "|---||-----|||---|||", std::string(20, ' '), ""}));
}

TEST(AsciiExport, BlocksBreakAtTheWidthAndAWiderBarStandsAloneWithNoEmptyBlockBeforeIt) {
  CVantoroTablature doc = test::document(4);
  for (int m = 1; m <= 4; ++m)
    poser(doc, 1, m, 1, 0, m, 48);  // 13 columns a bar
  poser(doc, 1, 3, 2, 0, 1, 12);    // 49 columns
  auto blocs = [&](int largeur) {
    std::vector<std::string> premières;
    const auto l = lignes(io_enregistrer_txt(doc, 1, largeur));
    for (std::size_t i = 2; i + 8 < l.size(); i += 9) {
      EXPECT_EQ(l[i + 8], "");
      EXPECT_EQ(l[i + 1].size(), l[i].size());
      premières.push_back(l[i + 1]);
    }
    return premières;
  };
  const std::string troisième = "|-3" + std::string(46, '-');
  EXPECT_EQ(blocs(66), (std::vector<std::string>{"|-1----------|-2----------|",
                                                 troisième + "|-4----------|"}));
  EXPECT_EQ(blocs(26), (std::vector<std::string>{"|-1----------|-2----------|", troisième + "|",
                                                 "|-4----------|"}));
  EXPECT_EQ(blocs(25).size(), 4u);
  EXPECT_EQ(blocs(10).size(), 4u);  // the first bar too wide: no empty block before it
  EXPECT_EQ(blocs(200).size(), 1u);
}

TEST(AsciiExport, OnlyTheChosenTrackAndTheFileThroughATemporary) {
  CVantoroTablature doc = test::document(1, 2);
  poser(doc, 2, 1, 1, 0, 7, 48);
  EXPECT_NE(io_enregistrer_txt(doc, 2).find("|-7-"), std::string::npos);
  EXPECT_EQ(io_enregistrer_txt(doc, 1).find('7'), std::string::npos);
  test::Temporaire t("tab.txt");
  ASSERT_TRUE(exporterTxt(doc, 2, t.chemin.string()).ok());
  const auto octets = test::lireOctets(t.chemin);
  EXPECT_EQ(std::string(octets.begin(), octets.end()), io_enregistrer_txt(doc, 2));
}

}  // namespace
}  // namespace vt
