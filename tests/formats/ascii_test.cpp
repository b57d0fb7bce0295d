// ASCII tablature both ways: the export character for character, and the
// import finding the blocks and reading the columns.
#include <gtest/gtest.h>

#include <sstream>

#include "document/validate.h"
#include "formats/ascii_export.h"
#include "formats/ascii_import.h"
#include "formats/file_io.h"
#include "interchange_test_util.h"

namespace vt {
namespace {

using test::notes;
using test::poser;

InterchangeResult importer(const std::string& texte, CVantoroTablature& doc, int rythme = 24) {
  AsciiImportOptions o;
  o.rythme = rythme;
  const InterchangeResult r = convertirAscii(texte, o, doc);
  if (r.ok()) {
    EXPECT_EQ(validateDocument(doc), "");
  }
  return r;
}

TEST(AsciiImportBlocks, AnEmptyFileIsSaidToHoldNoTablatureSinceNothingInItIsDamaged) {
  const struct {
    const char* texte;
    int message;
  } kCas[] = {
      {"", kMsgAsciiVide},
      {" \r\n\t\n\n", kMsgAsciiVide},
      {"just some words\nand no dashes at all\n", kMsgAsciiCorrompue},
      {"e|---\nB|---\nG|---\nD|---\nA|---\n", kMsgAsciiCorrompue},  // five lines are no block
  };
  for (const auto& c : kCas) {
    SCOPED_TRACE(c.texte);
    CVantoroTablature doc;
    doc.titre = "kept";
    EXPECT_EQ(importer(c.texte, doc).stringId, c.message);
    EXPECT_EQ(doc.titre, "kept");  // a refusal leaves the document alone
  }
}

TEST(AsciiImportBlocks, LabelsAndTrailingTextStayOutsideButAFretBeforeTheFirstDashesIsNotLost) {
  const auto blocs = trouverBlocsAscii(
      "Intro -- slowly\n"  // holds "--" but the next line does not: no block
      "\n"
      "e|---0---|  x2\r\n"
      "B|--1----|\r\n"
      "G|-------|\r\n"
      "D|-------|\r\n"
      "A|3------|\r\n"  // a fret in the first column still lines up
      "E|-------|\r\n");
  ASSERT_EQ(blocs.size(), 1u);
  EXPECT_EQ(blocs[0].lignes[0], "|---0---|");
  EXPECT_EQ(blocs[0].lignes[4], "|3------|");
}

// The repeat signs of the bars ("1:|:" starts a repeat in bar 1, "2::|1" ends
// one with its count), then the notes; and the number of bars.
std::vector<std::string> lecture(const CVantoroTablature& doc) {
  std::vector<std::string> out;
  for (int m = 1; m <= doc.getMesureLast(); ++m) {
    if (doc.getMesureLoopGaucheType(m) == barre::kRepetition)
      out.push_back(std::to_string(m) + ":|:");
    if (doc.getMesureLoopDroiteType(m) == barre::kRepetition)
      out.push_back(std::to_string(m) + "::|" + std::to_string(doc.getMesureLoopDroiteData(m)));
  }
  for (const std::string& n : notes(doc))
    out.push_back(n);
  out.push_back(std::to_string(doc.getMesureLast()) + " bars");
  return out;
}

TEST(AsciiImportBlocks, BlocksStartAtTheDashesAndBarLinesReadSoNoFretRepeatOrBeatOfTheTextIsLost) {
  const struct {
    const char* quoi;
    const char* texte;
    std::vector<std::string> attendu;
  } kCas[] = {
      {"a label of any length stands outside",
       "High E|--0--|\nB     |--1--|\nG     |-----|\nD     |-----|\nA     |-----|\n"
       "Low E |-----|\n",
       {"1:1:48:0", "1:2:48:1", "2 bars"}},
      {"a double line before the first bar starts no repeat",
       "e ||--0--|\nB ||-----|\nG ||-----|\nD ||-----|\nA ||-----|\nE ||-----|\n",
       {"1:1:48:0", "2 bars"}},
      {"words above a tablature are not its first string",
       "Verse -- capo 2\ne|--0--|\nB|-----|\nG|-----|\nD|-----|\nA|-----|\nE|-----|\n",
       {"1:1:48:0", "2 bars"}},
      {"string numbers are a label, a chord after the bar line is not",
       "1|--0--|\n2|-----|\n3|-----|\n4|-----|\n5|-----|\n6|-----|\n"
       "|3--5|\n|3---|\n|3---|\n|3---|\n|3---|\n|3---|\n",
       {"1:1:48:0", "2:1:0:3", "2:1:72:5", "2:2:0:3", "2:3:0:3", "2:4:0:3", "2:5:0:3", "2:6:0:3",
        "3 bars"}},
      {"a double line closing a bar ends a repeat",
       "e|--0--||--1--|\nB|-----||-----|\nG|-----||-----|\nD|-----||-----|\nA|-----||-----|\n"
       "E|-----||-----|\n",
       {"1::|1", "1:1:48:0", "2:1:48:1", "3 bars"}},
      {"dots after a double line start a repeat and end none; dots take no time",
       "e|--0--||--1--||\nB|-----||-----||\nG|-----||o---o||\nD|-----||o---o||\nA|-----||-----||\n"
       "E|-----||-----||\n",
       {"2:|:", "2::|1", "1:1:48:0", "2:1:24:1", "3 bars"}},
      {"a repeat end opening the next line closes the bar before it",
       "e|--0--|\nB|-----|\nG|-----|\nD|-----|\nA|-----|\nE|-----|\n"
       "e-|--1--|\nB-|-----|\nGo|-----|\nDo|-----|\nA-|-----|\nE-|-----|\n",
       {"1::|1", "1:1:48:0", "2:1:48:1", "3 bars"}},
      {"single lines shifted by a two-digit fret are one plain bar line",
       "e|--12--|--0--|\nB|--3--|--1--|\nG|-----|-----|\nD|-----|-----|\nA|-----|-----|\n"
       "E|-----|-----|\n",
       {"1:1:48:12", "1:2:48:3", "2:1:48:0", "2:2:24:1", "3 bars"}},
      {"a two-digit fret is one step of time",
       "e|-12--3-\nB|-------\nG|-------\nD|-------\nA|-------\nE|-------\n",
       {"1:1:24:12", "1:1:96:3", "1 bars"}},
      {"notes that do not fit go to the next bar",
       "e|0--1--2--3--4--|\nB|----------------|\nG|----------------|\n"
       "D|----------------|\nA|----------------|\nE|----------------|\n",
       {"1:1:0:0", "1:1:72:1", "1:1:144:2", "2:1:0:3", "2:1:72:4", "3 bars"}},
      {"repeat signs on both sides of one bar",
       "e||--0--||-1-|\nB||-----||---|\nG||o---o||---|\nD||o---o||---|\nA||-----||---|\n"
       "E||-----||---|\n",
       {"1:|:", "1::|1", "1:1:24:0", "2:1:24:1", "3 bars"}},
  };
  for (const auto& c : kCas) {
    SCOPED_TRACE(c.quoi);
    CVantoroTablature doc;
    ASSERT_TRUE(importer(c.texte, doc).ok());
    EXPECT_EQ(lecture(doc), c.attendu);
  }
}

TEST(AsciiImportColumns, FretsTwoDigitsEffectsAndBars) {
  CVantoroTablature doc;
  ASSERT_TRUE(importer("e|-0h2-----|-12p10----|\n"
                       "B|---------|----------|\n"
                       "G|--5/7----|----------|\n"
                       "D|---------|------2b4-|\n"
                       "A|-----3\\1-|----------|\n"
                       "E|---------|----------|\n",
                       doc)
                  .ok());
  // Each column is an eighth (24 ticks); a letter column only advances time,
  // a two-digit fret is one step.
  EXPECT_EQ(notes(doc), (std::vector<std::string>{"1:1:24:0", "1:1:72:2", "1:3:48:5", "1:3:96:7",
                                                  "1:5:120:3", "1:5:168:1", "2:1:24:12",
                                                  "2:1:72:10", "2:4:96:2", "2:4:144:4"}));
  EXPECT_EQ((std::vector<int>{doc.getNoteEffet(1, 1, 1, 1), doc.getNoteEffet(1, 1, 3, 1),
                              doc.getNoteEffet(1, 1, 5, 1), doc.getNoteEffet(1, 2, 1, 1),
                              doc.getNoteEffet(1, 2, 4, 1), doc.getNoteEffet(1, 2, 4, 2)}),
            (std::vector<int>{effet::kHammerOn, effet::kSlideUp, effet::kSlideDown, effet::kPullOff,
                              effet::kBendUp, 0}));
  EXPECT_EQ(*doc.getNote(1, 1, 1, 1), (tNote{0, 24, 24, effet::kHammerOn, 0, 0, 127}));
  EXPECT_EQ(doc.getMesureLast(), 3);  // the closing bar line took the next bar at once
}

TEST(AsciiImportBlocks, SevenStringsSixReadTextBetweenBlocksSkippedLineEnds) {
  CVantoroTablature doc = test::document(2);
  doc.setGuitareNbrCordes(1, 7);
  doc.setGuitareCorde(1, 7, 35);
  doc.changePisteNbrCordes(1);
  doc.setMesureLoopGaucheType(2, barre::kRepetition);
  doc.setMesureLoopDroiteType(2, barre::kRepetition);
  doc.setMesureLoopDroiteData(2, 1);
  for (int c = 1; c <= 7; ++c)
    poser(doc, 1, 1, c, 0, c, 48);
  poser(doc, 1, 1, 1, 24, 3, 24, effet::kBendUp);     // "B" just before the dashes of string 1
  poser(doc, 1, 2, 1, 48, 10, 48, effet::kHammerOn);  // upper case: not read back
  poser(doc, 1, 2, 2, 48, 3, 48, effet::kSlideUp);
  const std::string texte = io_enregistrer_txt(doc, 1, 20) + "Outro -- fade\r\n";

  CVantoroTablature retour;
  ASSERT_TRUE(importer(texte, retour).ok());
  // Two blocks (one bar each at this width); the seventh string is text.
  std::vector<std::string> attendu;
  for (int c = 1; c <= 6; ++c) {
    attendu.push_back("1:" + std::to_string(c) + ":24:" + std::to_string(c));
    if (c == 1) attendu.push_back("1:1:96:3");
  }
  attendu.insert(attendu.end(), {"2:1:72:10", "2:2:72:3"});
  EXPECT_EQ(notes(retour), attendu);
  EXPECT_EQ(
      (std::vector<int>{retour.getNoteEffet(1, 2, 1, 1), retour.getNoteEffet(1, 2, 2, 1),
                        retour.getMesureLoopGaucheType(2), retour.getMesureLoopDroiteType(2)}),
      (std::vector<int>{0, effet::kSlideUp, barre::kRepetition, barre::kRepetition}));

  // The same text with LF line ends reads the same.
  std::string lf;
  for (char c : texte)
    if (c != '\r') lf += c;
  CVantoroTablature retourLf;
  ASSERT_TRUE(importer(lf, retourLf).ok());
  EXPECT_EQ(notes(retourLf), notes(retour));
}

TEST(AsciiImportSteps, RhythmButtonsStepsAndTheFile) {
  EXPECT_EQ((std::vector<int>{rythmeAscii(1), rythmeAscii(4), rythmeAscii(7), rythmeAscii(8)}),
            (std::vector<int>{192, 24, 3, 0}));
  std::vector<int> étapes;
  CVantoroTablature doc;
  EXPECT_EQ(convertirAscii("no tab", {}, doc, [&](int id) { étapes.push_back(id); }).stringId,
            1013);
  EXPECT_EQ(étapes, std::vector<int>{1002});
  EXPECT_EQ(importerAscii("/nonexistent/tab.txt", {}, doc).stringId, msg::kFichierIntrouvable);
}

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

TEST(AsciiExport, EmptyFieldsLeftOutEmptyBarsThreeColumnsATwoDigitFretOverwritesAnEffect) {
  CVantoroTablature doc = test::document(2);
  // Narrower than the view mode of an empty bar: still three columns, and
  // widened to four for its label.
  doc.setMesureSignature(2, 1, 16);
  const std::string corde = "|---|----|";
  EXPECT_EQ(lignes(io_enregistrer_txt(doc, 1)),
            (std::vector<std::string>{"Tempo: 120", "", " 4/4 1/16 ", corde, corde, corde, corde,
                                      corde, corde, std::string(10, ' '), ""}));
  // A two-digit fret overwrites the effect of the note before.
  doc = test::document(1);
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
