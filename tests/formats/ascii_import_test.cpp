// ASCII tablature into a document: finding the blocks, reading the columns.
#include <gtest/gtest.h>

#include "document/validate.h"
#include "formats/ascii_export.h"
#include "formats/ascii_import.h"
#include "formats/file_io.h"
#include "interchange_test_util.h"

namespace vt {
namespace {

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

// Every note of the track as "bar:string:X:fret", in bar, string, X order.
std::vector<std::string> notes(const CVantoroTablature& doc) {
  std::vector<std::string> out;
  for (int m = 1; m <= doc.getMesureLast(); ++m)
    for (int c = 1; c <= doc.getGuitareNbrCordes(1); ++c)
      for (int n = 1; n <= doc.getNoteLast(1, m, c); ++n)
        out.push_back(std::to_string(m) + ":" + std::to_string(c) + ":" +
                      std::to_string(doc.getNoteX(1, m, c, n)) + ":" +
                      std::to_string(doc.getNoteCase(1, m, c, n)));
  return out;
}

TEST(AsciiImportBlocks, NoBlockIsString1013) {
  CVantoroTablature doc;
  doc.titre = "kept";
  EXPECT_EQ(importer("", doc).stringId, kMsgAsciiCorrompue);
  EXPECT_EQ(importer("just some words\nand no dashes at all\n", doc).stringId, kMsgAsciiCorrompue);
  // Five lines are not a block.
  EXPECT_EQ(importer("e|---\nB|---\nG|---\nD|---\nA|---\n", doc).stringId, kMsgAsciiCorrompue);
  EXPECT_EQ(doc.titre, "kept");  // a refusal leaves the document alone
}

TEST(AsciiImportBlocks, LabelsAndTrailingTextStayOutside) {
  const auto blocs = trouverBlocsAscii(
      "Intro -- slowly\n"          // holds "--" but the next line does not: no block
      "\n"
      "e|---0---|  x2\r\n"
      "B|--1----|\r\n"
      "G|-------|\r\n"
      "D|-------|\r\n"
      "A|3------|\r\n"              // a fret in the first column still lines up
      "E|-------|\r\n");
  ASSERT_EQ(blocs.size(), 1u);
  EXPECT_EQ(blocs[0].lignes[0], "|---0---|");
  EXPECT_EQ(blocs[0].lignes[4], "|3------|");
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
  EXPECT_EQ(doc.getNoteEffet(1, 1, 1, 1), effet::kHammerOn);
  EXPECT_EQ(doc.getNoteEffet(1, 1, 3, 1), effet::kSlideUp);
  EXPECT_EQ(doc.getNoteEffet(1, 1, 5, 1), effet::kSlideDown);
  EXPECT_EQ(doc.getNoteEffet(1, 2, 1, 1), effet::kPullOff);
  EXPECT_EQ(doc.getNoteEffet(1, 2, 4, 1), effet::kBendUp);
  EXPECT_EQ(doc.getNoteEffet(1, 2, 4, 2), 0);
  EXPECT_EQ(doc.getNoteVolume(1, 1, 1, 1), 127);
  EXPECT_EQ(doc.getNoteDurée(1, 1, 1, 1), 24);
  EXPECT_EQ(doc.getMesureLast(), 2);  // the closing bar line leaves no empty bar
}

TEST(AsciiImportColumns, NotesThatDoNotFitGoToTheNextBar) {
  CVantoroTablature doc;
  ASSERT_TRUE(importer("e|0--1--2--3--4--|\nB|----------------|\nG|----------------|\n"
                       "D|----------------|\nA|----------------|\nE|----------------|\n",
                       doc)
                  .ok());
  EXPECT_EQ(notes(doc), (std::vector<std::string>{"1:1:0:0", "1:1:72:1", "1:1:144:2", "2:1:0:3",
                                                  "2:1:72:4"}));
}

TEST(AsciiImportColumns, RepeatSignsOnBothSides) {
  CVantoroTablature doc;
  ASSERT_TRUE(importer("e||--0--||-1-|\n"
                       "B||-----||---|\n"
                       "G||o---o||---|\n"
                       "D||o---o||---|\n"
                       "A||-----||---|\n"
                       "E||-----||---|\n",
                       doc)
                  .ok());
  EXPECT_EQ(doc.getMesureLast(), 2);
  EXPECT_EQ(doc.getMesureLoopGaucheType(1), barre::kRepetition);
  EXPECT_EQ(doc.getMesureLoopDroiteType(1), barre::kRepetition);
  EXPECT_EQ(doc.getMesureLoopDroiteData(1), 1);
  EXPECT_EQ(doc.getMesureLoopGaucheType(2), 0);
  EXPECT_EQ(doc.getMesureLoopDroiteType(2), 0);
  EXPECT_EQ(notes(doc), (std::vector<std::string>{"1:1:24:0", "2:1:24:1"}));
}

TEST(AsciiImportBlocks, SevenStringsSixReadTextBetweenBlocksSkippedLineEnds) {
  CVantoroTablature doc = test::document(2);
  doc.setGuitareNbrCordes(1, 7);
  doc.setGuitareCorde(1, 7, 35);
  doc.changePisteNbrCordes(1);
  doc.setMesureLoopGaucheType(2, barre::kRepetition);
  doc.setMesureLoopDroiteType(2, barre::kRepetition);
  doc.setMesureLoopDroiteData(2, 1);
  for (int c = 1; c <= 7; ++c) poser(doc, 1, 1, c, 0, c, 48);
  poser(doc, 1, 1, 1, 24, 3, 24, effet::kBendUp);  // "B" just before the dashes of string 1
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
  EXPECT_EQ(retour.getNoteEffet(1, 2, 1, 1), 0);
  EXPECT_EQ(retour.getNoteEffet(1, 2, 2, 1), effet::kSlideUp);
  EXPECT_EQ(retour.getMesureLoopGaucheType(2), barre::kRepetition);
  EXPECT_EQ(retour.getMesureLoopDroiteType(2), barre::kRepetition);

  // The same text with LF line ends reads the same.
  std::string lf;
  for (char c : texte)
    if (c != '\r') lf += c;
  CVantoroTablature retourLf;
  ASSERT_TRUE(importer(lf, retourLf).ok());
  EXPECT_EQ(notes(retourLf), notes(retour));
}

TEST(AsciiImportSteps, RhythmButtonsStepsAndTheFile) {
  EXPECT_EQ(rythmeAscii(1), 192);
  EXPECT_EQ(rythmeAscii(4), 24);
  EXPECT_EQ(rythmeAscii(7), 3);
  EXPECT_EQ(rythmeAscii(8), 0);
  std::vector<int> étapes;
  CVantoroTablature doc;
  EXPECT_EQ(convertirAscii("no tab", {}, doc, [&](int id) { étapes.push_back(id); }).stringId, 1013);
  EXPECT_EQ(étapes, std::vector<int>{1002});
  EXPECT_EQ(importerAscii("/nonexistent/tab.txt", {}, doc).stringId, msg::kFichierIntrouvable);
}

}  // namespace
}  // namespace vt
