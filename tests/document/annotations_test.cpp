// Chords, texts, tempos, the signature cut, repeats and markers.
#include <gtest/gtest.h>

#include "test_support.h"

namespace vt {
namespace {

OneBased<byt> frettes(std::initializer_list<int> v) {
  OneBased<byt> f;
  for (int x : v)
    f.push_back(static_cast<byt>(x));
  return f;
}

TEST(Chords, SortedInsertionKeepsTheOthersIntact) {
  CVantoroTablature doc;
  int n = doc.addandplaceMesureAccord(1, 1, 24);
  doc.setMesureAccord(1, 1, n, "Am", frettes({0, 1, 2, 2, 0, 255}));
  n = doc.addandplaceMesureAccord(1, 1, 96);
  doc.setMesureAccord(1, 1, n, "E", frettes({0, 0, 1, 2, 2, 0}));
  n = doc.addandplaceMesureAccord(1, 1, 48);
  EXPECT_EQ(n, 2);
  EXPECT_EQ(doc.getMesureAccordNom(1, 1, 2), "");
  for (int c = 1; c <= 6; ++c)
    EXPECT_EQ(doc.getMesureAccordCorde(1, 1, 2, c), 255);
  EXPECT_EQ(doc.getMesureAccordX(1, 1, 3), 96);
  EXPECT_EQ(doc.getMesureAccordNom(1, 1, 3), "E");
  EXPECT_EQ(doc.getMesureAccordCorde(1, 1, 3, 4), 2);
  EXPECT_EQ(doc.searchMesureAccord(1, 1, 48), 2);
  EXPECT_EQ(doc.searchMesureAccord(1, 1, 50), 0);
  doc.deleteAccord(1, 1, 1);
  EXPECT_EQ(doc.getMesureAccordLast(1, 1), 2);
  EXPECT_EQ(doc.getMesureAccordX(1, 1, 1), 48);
}

TEST(Chords, FretsCopiedUpToTheShorterOfTrackAndArray) {
  CVantoroTablature doc;
  const int n = doc.addandplaceMesureAccord(1, 1, 0);
  doc.setMesureAccord(1, 1, n, "C", frettes({0, 1}));
  EXPECT_EQ(doc.getMesureAccordCorde(1, 1, n, 2), 1);
  EXPECT_EQ(doc.getMesureAccordCorde(1, 1, n, 3), 255);  // untouched
  doc.setMesureAccord(1, 1, n, "C", frettes({0, 1, 0, 2, 3, 255, 9, 9}));
  EXPECT_EQ(doc.pisteMesure(1, 1)->tabAccords[n].tabCordes.last(), 6);
  EXPECT_FALSE(doc.setMesureAccordNom(1, 1, n, std::string(256, 'x')));
  EXPECT_EQ(doc.getMesureAccordNom(1, 1, n), "C");
}

TEST(Texts, ReplaceAtTheSameTickAndKeepTheListsApart) {
  CVantoroTablature doc;
  EXPECT_TRUE(doc.setMesureTexte(1, 1, 48, "intro", kVrai));
  EXPECT_TRUE(doc.setMesureTexte(1, 1, 0, "let ring", kVrai));
  EXPECT_TRUE(doc.setMesureTexte(1, 1, 48, "Intro", kVrai));
  EXPECT_EQ(doc.getMesureTexteUpLast(1, 1), 2);
  EXPECT_EQ(doc.getMesureTexteUpContenu(1, 1, 2), "Intro");
  EXPECT_EQ(doc.getMesureTexteUpX(1, 1, 1), 0);
  EXPECT_TRUE(doc.setMesureTexte(1, 1, 48, "bas", kFaux));
  EXPECT_TRUE(doc.setMesureTexte(1, 1, 96, "aussi bas", 1));  // anything but -1: the lower list
  EXPECT_EQ(doc.getMesureTexteDnLast(1, 1), 2);
  EXPECT_EQ(doc.getMesureTexte(1, 1, 48, kFaux), "bas");
  EXPECT_EQ(doc.getMesureTexte(1, 1, 24, kVrai), "");
  EXPECT_EQ(doc.searchMesureTexte(1, 1, 96, kFaux), 2);
  doc.deleteTexte(1, 1, 1, kVrai);
  EXPECT_EQ(doc.getMesureTexteUpContenu(1, 1, 1), "Intro");
}

TEST(Tempos, SortedReplacedAndDeleted) {
  CVantoroTablature doc;
  doc.setMesureTempo(1, 96, 140);
  doc.setMesureTempo(1, 0, 90);
  doc.setMesureTempo(1, 96, 150);
  EXPECT_EQ(doc.getMesureTempoLast(1), 2);
  EXPECT_EQ(doc.getMesureTempoX(1, 1), 0);
  EXPECT_EQ(doc.getMesureTempoContenu(1, 2), 150);
  EXPECT_EQ(doc.searchMesureTempo(1, 96), 2);
  doc.deleteTempo(1, 1);
  EXPECT_EQ(doc.getMesureTempoX(1, 1), 96);
}

TEST(Lists, RefuseTheTwoHundredAndFiftySixthEntry) {
  CVantoroTablature doc;
  for (int i = 0; i < kMaxEntrees; ++i) {
    ASSERT_NE(doc.addandplaceMesureAccord(1, 1, i), 0);
    ASSERT_TRUE(doc.setMesureTexte(1, 1, i, "t", kVrai));
    ASSERT_TRUE(doc.setMesureTempo(1, i, 100));
  }
  const CVantoroTablature avant = doc;
  EXPECT_EQ(doc.addandplaceMesureAccord(1, 1, 300), 0);
  EXPECT_FALSE(doc.setMesureTexte(1, 1, 300, "t", kVrai));
  EXPECT_FALSE(doc.setMesureTempo(1, 300, 100));
  EXPECT_EQ(doc, avant);
  EXPECT_TRUE(doc.setMesureTexte(1, 1, 10, "replaced", kVrai));  // replacing needs no room
}

TEST(Signature, NarrowerCutsContentOfEveryTrackAndTheTempos) {
  CVantoroTablature doc;
  doc.addPiste(1, tGuitare{});
  for (int p = 1; p <= 2; ++p) {
    doc.setNoteWhole(p, 1, 1, 96, 5, 96);
    doc.setNoteWhole(p, 1, 2, 144, 5, 48);
    doc.setNoteWhole(p, 1, 2, 168, 5, 24);
    doc.setMesureTexte(p, 1, 144, "up", kVrai);
    doc.setMesureTexte(p, 1, 150, "dn", kFaux);
    doc.setMesureTexte(p, 1, 100, "stays", kFaux);
    doc.addandplaceMesureAccord(p, 1, 144);
  }
  doc.setMesureTempo(1, 144, 100);
  doc.setMesureTempo(1, 143, 110);
  ASSERT_TRUE(doc.setMesureSignature(1, 3, 4));
  for (int p = 1; p <= 2; ++p) {
    EXPECT_EQ(doc.getNoteLast(p, 1, 1), 1);
    EXPECT_EQ(doc.getNoteDurée(p, 1, 1, 1), 96);  // left running past the end on purpose
    EXPECT_EQ(doc.getNoteLast(p, 1, 2), 0);
    EXPECT_EQ(doc.getMesureTexteUpLast(p, 1), 0);
    EXPECT_EQ(doc.getMesureTexteDnLast(p, 1), 1);
    EXPECT_EQ(doc.getMesureAccordLast(p, 1), 0);
  }
  EXPECT_EQ(doc.getMesureTempoLast(1), 1);
  EXPECT_EQ(doc.getMesureTempoX(1, 1), 143);
}

TEST(Signature, WiderRemovesNothing) {
  CVantoroTablature doc;
  doc.setNoteWhole(1, 1, 1, 144, 5, 48);
  doc.setMesureTexte(1, 1, 150, "t", kVrai);
  const CVantoroTablature avant = doc;
  doc.setMesureSignature(1, 5, 4);
  doc.setMesureSignature(1, 4, 4);
  EXPECT_EQ(doc, avant);
}

struct Barres {
  int m;
  int gauche;
  int droite;
};

int renvois(int mesures, std::initializer_list<Barres> barres) {
  CVantoroTablature doc;
  for (int i = 1; i < mesures; ++i)
    doc.addMesure();
  for (const Barres& b : barres) {
    doc.setMesureLoopGaucheType(b.m, static_cast<byt>(b.gauche));
    doc.setMesureLoopDroiteType(b.m, static_cast<byt>(b.droite));
  }
  return doc.checkMesureRenvois();
}

TEST(Repeats, FirstBarWithAnError) {
  EXPECT_EQ(renvois(4, {{2, 2, 0}, {3, 0, 2}}), 0);  // start 2, end 3
  EXPECT_EQ(renvois(4, {{1, 0, 2}}), 0);             // an end alone repeats from the start
  EXPECT_EQ(renvois(4, {{1, 0, 2}, {2, 0, 2}}), 2);  // the second end has nothing to go back to
  EXPECT_EQ(renvois(4, {{1, 2, 2}, {2, 0, 2}}), 2);  // a second end without a start
  EXPECT_EQ(renvois(4, {{2, 2, 0}, {3, 2, 0}}), 3);  // a start inside an open repeat
  EXPECT_EQ(renvois(6, {{5, 2, 0}}), 6);             // never closed: the last bar
  EXPECT_EQ(renvois(3, {{2, 2, 2}, {3, 2, 2}}), 0);  // one-bar repeats
  EXPECT_EQ(renvois(3, {{1, 1, 3}, {2, 0, 1}}), 0);  // double and final lines are no repeats
  // An end after a closed repeat, without a start of its own.
  EXPECT_EQ(renvois(5, {{1, 2, 0}, {2, 0, 2}, {4, 0, 2}}), 4);
}

TEST(Markers, StartAndStopStayInOrder) {
  CVantoroTablature doc;
  EXPECT_EQ(doc.isMarkerCorrect(), kFaux);
  doc.setMarqueurStop(3, 48);
  doc.setMarqueurStart(2, 24);
  EXPECT_EQ(doc.marqueurs(), (tMarqueurs{2, 24, 3, 48}));
  EXPECT_EQ(doc.isMarkerCorrect(), kVrai);
  doc.setMarqueurStart(3, 24);  // same bar, before the stop
  EXPECT_EQ(doc.marqueurs(), (tMarqueurs{3, 24, 3, 48}));
  doc.setMarqueurStart(3, 96);  // same bar, past the stop: drags it along
  EXPECT_EQ(doc.marqueurs(), (tMarqueurs{3, 96, 3, 96}));
  EXPECT_EQ(doc.isMarkerCorrect(), kFaux);
  doc.setMarqueurStart(5, 0);  // a later bar
  EXPECT_EQ(doc.marqueurs(), (tMarqueurs{5, 0, 5, 0}));
  doc.setMarqueurStop(5, 48);
  EXPECT_EQ(doc.marqueurs(), (tMarqueurs{5, 0, 5, 48}));
  doc.setMarqueurStop(5, 0);  // at the start tick: allowed
  EXPECT_EQ(doc.marqueurs(), (tMarqueurs{5, 0, 5, 0}));
  doc.setMarqueurStop(4, 100);  // before the start bar: both move
  EXPECT_EQ(doc.marqueurs(), (tMarqueurs{4, 100, 4, 100}));
  doc.setMarqueurStop(4, 50);  // same bar, before the start tick: both move
  EXPECT_EQ(doc.marqueurs(), (tMarqueurs{4, 50, 4, 50}));
  doc.setMarqueurStop(7, 0);
  EXPECT_EQ(doc.marqueurs(), (tMarqueurs{4, 50, 7, 0}));
}

TEST(TrackSettings, LimitsOfTheStringCountAndTheName) {
  CVantoroTablature doc;
  doc.setGuitareCorde(1, 7, 35);  // kept past the string count
  EXPECT_EQ(doc.getGuitareCorde(1, 7), 35);
  EXPECT_EQ(doc.getGuitareCorde(1, 8), 0);
  EXPECT_FALSE(doc.setGuitareNbrCordes(1, 8));
  EXPECT_FALSE(doc.setGuitareNbrCordes(1, 0));
  EXPECT_TRUE(doc.setGuitareNbrCordes(1, 7));
  EXPECT_EQ(doc.pisteMesure(1, 1)->tabCordes.last(), 6);  // the field only
  EXPECT_FALSE(doc.setPisteNom(1, std::string(256, 'a')));
  EXPECT_TRUE(doc.setPisteNom(1, std::string(255, 'a')));
  EXPECT_EQ(doc.getMIDIPatch(2), 0);
}

}  // namespace
}  // namespace vt
