// The editor's clipboards of notes and bars and the commands on whole bars, on documents alone.
#include <array>
#include <tuple>

#include "dialogs_support.h"
#include "editor/presse_papiers.h"

namespace vt::essai {
namespace {

using Notes = std::vector<Note>;
using Rapport = std::array<int, 5>;

void note(CVantoroTablature& doc, int p, int m, int c, int x, int fret, int durée,
          byt effet = effet::kAucun, byt attaque = attaque::kStandard, byt volume = nuance::kFFF) {
  const int n = doc.setNoteWhole(p, m, c, x, fret, durée);
  ASSERT_NE(n, 0);
  doc.setNoteEffet(p, m, c, n, effet);
  doc.setNoteAttaque(p, m, c, n, attaque);
  doc.setNoteVolume(p, m, c, n, volume);
}

// The note at a tick; an empty note (length 0) when none stands there.
tNote noteÀ(const CVantoroTablature& doc, int p, int m, int c, int x) {
  const tNote* n = doc.getNote(p, m, c, doc.searchNote(p, m, c, x));
  return n == nullptr ? tNote{} : *n;
}

void sélectionne(CVantoroTablature& doc, int m0, int x0, int c0, int m1, int x1, int c1) {
  doc.intSelStartMesure = static_cast<i16>(m0);
  doc.intSelStartX = static_cast<i16>(x0);
  doc.bytSelStartCorde = static_cast<byt>(c0);
  doc.intSelStopMesure = static_cast<i16>(m1);
  doc.intSelStopX = static_cast<i16>(x1);
  doc.bytSelStopCorde = static_cast<byt>(c1);
}

void curseur(CVantoroTablature& doc, int p, int m, int x, int c) {
  doc.setCurseurPiste(static_cast<byt>(p));
  doc.setCurseurMesure(static_cast<i16>(m));
  doc.setCurseurX(static_cast<i16>(x));
  doc.setCurseurCorde(static_cast<byt>(c));
}

int notes(const CVantoroTablature& doc, int p) {
  int total = 0;
  for (int m = 1; m <= doc.getMesureLast(); ++m)
    for (int c = 1; c <= doc.getGuitareNbrCordes(p); ++c)
      total += doc.getNoteLast(p, m, c);
  return total;
}

// What a change reports: changed, length changed, cursor brought back, first and last bars.
Rapport rapport(const Changement& ch) {
  return {ch.modifié, ch.longueurChangée, ch.curseurRamené, ch.premièreMesure, ch.dernièreMesure};
}

// The bars of a track, in order.
std::vector<tPisteMesure> barres(const CVantoroTablature& doc, int p) {
  std::vector<tPisteMesure> l;
  for (int m = 1; m <= doc.piste(p).tabMesures.last(); ++m)
    l.push_back(*doc.pisteMesure(p, m));
  return l;
}
// Bars of a track of `avant` by number, 0 for an empty bar of that track.
std::vector<tPisteMesure> depuis(const CVantoroTablature& avant, int p,
                                 std::initializer_list<int> mesures) {
  std::vector<tPisteMesure> l;
  for (int m : mesures)
    l.push_back(m == 0 ? tPisteMesure::vide(avant.getGuitareNbrCordes(p))
                       : *avant.pisteMesure(p, m));
  return l;
}

TEST(Selection, IsPutInOrderByTimeAndByStringApart) {
  CVantoroTablature doc = document(1, 3);
  const auto sélection = [&doc] {
    return std::array<int, 6>{doc.intSelStartMesure, doc.intSelStartX, doc.bytSelStartCorde,
                              doc.intSelStopMesure,  doc.intSelStopX,  doc.bytSelStopCorde};
  };
  sélectionne(doc, 2, 48, 1, 1, 96, 5);  // dragged back in time, down the strings
  normaliseSélection(doc);
  EXPECT_EQ(sélection(), (std::array<int, 6>{1, 96, 1, 2, 48, 5}));
  sélectionne(doc, 2, 96, 4, 2, 24, 2);  // same bar, back in time, up the strings
  normaliseSélection(doc);
  EXPECT_EQ(sélection(), (std::array<int, 6>{2, 24, 2, 2, 96, 4}));
}

TEST(NoteClipboard, WithoutASelectionNothingIsCopiedCutOrPasted) {
  CVantoroTablature doc = document(1, 2);
  note(doc, 1, 1, 1, 0, 3, 48);
  const CVantoroTablature avant = doc;
  PressePapierNotes pp;
  EXPECT_FALSE(aUneSélection(doc));
  EXPECT_FALSE(pp.copier(doc));
  EXPECT_FALSE(pp.couper(doc).modifié);
  EXPECT_FALSE(pp.aDuContenu());
  EXPECT_FALSE(pp.coller(doc).modifié);  // paste with nothing copied: no undo step either
  EXPECT_TRUE(doc == avant);
}

// Track 1: a selection from bar 1 tick 144 to bar 2 tick 48 on strings 2 and 3,
// with notes just outside it on every side.
CVantoroTablature pièceÀCopier() {
  CVantoroTablature doc = document(1, 4);
  doc.setMesureSignature(3, 3, 4);
  note(doc, 1, 1, 2, 144, 5, 48, effet::kHammerOn, attaque::kTap, nuance::kMF);
  note(doc, 1, 1, 3, 168, 2, 24, effet::kVibrato, attaque::kPalmMute, nuance::kP);
  note(doc, 1, 2, 2, 0, 7, 24);
  note(doc, 1, 2, 2, 48, 8, 12, effet::kLiaison, attaque::kStandard, nuance::kPP);
  note(doc, 1, 1, 2, 96, 1, 48);          // before the start
  note(doc, 1, 2, 2, 72, 9, 24);          // after the stop
  note(doc, 1, 1, 4, 144, 4, 48);         // below the strings
  sélectionne(doc, 2, 48, 3, 1, 144, 2);  // made from its end
  return doc;
}

// The copy keeps each note at its distance from the selection's start, with
// its effect, attack and nuance; pasted, they cross a bar line of another width.
TEST(NoteClipboard, CopyAndPasteKeepEachNoteAtItsDistanceOverABarLineOfAnotherWidthCutLeavesRests) {
  CVantoroTablature doc = pièceÀCopier();
  CVantoroTablature avant = doc;
  PressePapierNotes pp;
  ASSERT_TRUE(pp.copier(doc));
  EXPECT_TRUE(doc.pistes() == avant.pistes());
  EXPECT_EQ(std::tuple(doc.modifi, doc.getUndoDepth()), std::tuple(kFaux, 0));
  ASSERT_EQ(pp.cordes().last(), 2);
  ASSERT_EQ(std::pair(pp.cordes()[1].last(), pp.cordes()[2].last()), std::pair(3, 1));
  EXPECT_EQ(pp.cordes()[1][2].intX, 48);  // over the bar line: 192 - 144 + 0
  curseur(doc, 1, 3, 96, 5);              // bar 3 is 3/4: 144 ticks, then bar 4 in 4/4
  avant = doc;
  EXPECT_EQ(rapport(pp.coller(doc)), (Rapport{true, false, false, 3, 4}));
  EXPECT_EQ(doc.getMesureLast(), 4);
  // String 5: distances 0, 48, 96 from bar 3 tick 96; string 6: distance 24.
  EXPECT_EQ(noteÀ(doc, 1, 3, 5, 96),
            (tNote{5, 48, 96, effet::kHammerOn, 0, attaque::kTap, nuance::kMF}));
  EXPECT_EQ(noteÀ(doc, 1, 3, 6, 120),
            (tNote{2, 24, 120, effet::kVibrato, 0, attaque::kPalmMute, nuance::kP}));
  EXPECT_EQ(noteÀ(doc, 1, 4, 5, 48),
            (tNote{8, 12, 48, effet::kLiaison, 0, attaque::kStandard, nuance::kPP}));
  EXPECT_EQ(corde(doc, 1, 4, 5), (Notes{{0, 7, 24}, {48, 8, 12}}));
  EXPECT_EQ(notes(doc, 1), notes(avant, 1) + 4);
  ASSERT_EQ(doc.getUndoDepth(), 1);
  doc.makeUndo();
  EXPECT_TRUE(doc.pistes() == avant.pistes());
  // A cut leaves rests: nothing closes up, the other notes keep their ticks.
  EXPECT_EQ(rapport(pp.couper(doc)), (Rapport{true, false, false, 1, 2}));
  EXPECT_EQ(std::pair(corde(doc, 1, 1, 2), corde(doc, 1, 2, 2)),
            std::pair(Notes{{96, 1, 48}}, Notes{{72, 9, 24}}));
  EXPECT_EQ(std::pair(corde(doc, 1, 1, 3), corde(doc, 1, 1, 4)),
            std::pair(Notes{}, Notes{{144, 4, 48}}));
}

TEST(NoteClipboard, PastingNearTheEndAddsBars) {
  CVantoroTablature doc = document(2, 2);
  doc.setMesureSignature(2, 3, 4);
  note(doc, 1, 1, 1, 0, 3, 48);
  note(doc, 1, 2, 1, 96, 5, 48);
  sélectionne(doc, 1, 0, 1, 2, 96, 1);  // 288 ticks long
  PressePapierNotes pp;
  ASSERT_TRUE(pp.copier(doc));
  curseur(doc, 1, 2, 96, 1);
  const CVantoroTablature avant = doc;
  // 96 + 288 = 384: past bar 2 (144) and bar 3 (3/4 as the bar it follows).
  EXPECT_EQ(rapport(pp.coller(doc)), (Rapport{true, true, false, 2, 4}));
  ASSERT_EQ(doc.getMesureLast(), 4);
  EXPECT_EQ(doc.getMesureSignatureUp(3), 3);
  EXPECT_EQ(corde(doc, 1, 2, 1), (Notes{{96, 3, 48}}));
  EXPECT_EQ(corde(doc, 1, 4, 1), (Notes{{96, 5, 48}}));
  EXPECT_EQ(doc.piste(2).tabMesures.last(), 4);  // every track has the new bars
  // The track comes back; the added bars stay, empty.
  doc.makeUndo();
  EXPECT_EQ(barres(doc, 1), depuis(avant, 1, {1, 2, 0, 0}));
}

TEST(NoteClipboard, ListsPastTheLastStringAreLeftOut) {
  CVantoroTablature doc = document(1, 2);
  for (int c = 1; c <= 6; ++c)
    note(doc, 1, 1, c, 0, c, 48);
  sélectionne(doc, 1, 0, 1, 1, 0, 6);
  PressePapierNotes pp;
  ASSERT_TRUE(pp.copier(doc));
  curseur(doc, 1, 2, 48, 4);
  pp.coller(doc);
  for (int c = 1; c <= 6; ++c)
    EXPECT_EQ(corde(doc, 1, 2, c), c < 4 ? Notes{} : (Notes{{48, c - 3, 48}})) << c;
  // And onto a four-string track from its top string.
  ASSERT_TRUE(doc.addPiste(1, test::basse4()));
  curseur(doc, 2, 1, 0, 1);
  pp.coller(doc);
  for (int c = 1; c <= 4; ++c)
    EXPECT_EQ(corde(doc, 2, 1, c), (Notes{{0, c, 48}})) << c;
  EXPECT_EQ(doc.pisteMesure(2, 1)->tabCordes.last(), 4);
}

// Track 1 of three tracks (the third with four strings), bars 2 and 3 with
// notes, a chord and texts; bar 2 is in 3/4.
CVantoroTablature pièceDeMesures() {
  CVantoroTablature doc = document(2, 5);
  doc.addPiste(2, test::basse4());
  doc.setMesureSignature(2, 3, 4);
  doc.setMesureSignature(3, 4, 4);
  note(doc, 1, 2, 1, 0, 3, 48, effet::kSlideUp, attaque::kSlap, nuance::kF);
  note(doc, 1, 2, 6, 96, 12, 48);
  note(doc, 1, 2, 5, 0, kCaseVide, 48, effet::kVibrato);  // a blank note travels too
  OneBased<byt> am(6, kCaseVide);
  am[2] = 1;
  am[3] = am[4] = 2;
  am[5] = 0;
  am[6] = 5;
  doc.setMesureAccord(1, 2, doc.addandplaceMesureAccord(1, 2, 48), "Am", am);
  doc.setMesureAccord(1, 2, doc.addandplaceMesureAccord(1, 2, 0), "E", OneBased<byt>(6, 0));
  doc.setMesureTexte(1, 2, 0, "intro", kVrai);
  doc.setMesureTexte(1, 2, 96, "la la", kFaux);
  doc.setMesureTexte(1, 3, 24, "verse", kVrai);
  note(doc, 1, 3, 2, 24, 7, 24);
  for (int m : {1, 4, 5})
    note(doc, 1, m, 1, 0, m, 48);
  for (int m = 1; m <= 5; ++m)
    note(doc, 2, m, 3, 0, 10 + m, 48);
  curseur(doc, 1, 1, 0, 1);
  return doc;
}

TEST(BarClipboard, CopyTakesTheCursorsTrackWithChordsAndTexts) {
  CVantoroTablature doc = pièceDeMesures();
  const CVantoroTablature avant = doc;
  PressePapierMesures pp;
  ASSERT_TRUE(pp.copier(doc, {2, 2, false}));
  EXPECT_TRUE(doc == avant);
  ASSERT_EQ(pp.nombre(), 2);
  EXPECT_EQ(pp.mesures()[1], *doc.pisteMesure(1, 2));
  EXPECT_EQ(pp.mesures()[2], *doc.pisteMesure(1, 3));
  // Pasted at bar 4, the copies open room: the bars that stood there move on by
  // two; the other tracks get empty bars at the end; the bar headers don't move.
  curseur(doc, 1, 4, 0, 1);
  EXPECT_EQ(rapport(pp.coller(doc)), (Rapport{true, true, false, 4, 7}));
  EXPECT_EQ(barres(doc, 1), depuis(avant, 1, {1, 2, 3, 2, 3, 4, 5}));
  EXPECT_EQ(barres(doc, 3), depuis(avant, 3, {1, 2, 3, 4, 5, 0, 0}));
  EXPECT_EQ(std::pair(doc.getMesureSignatureUp(2), doc.getMesureSignatureUp(4)), std::pair(3, 4));
  doc.makeUndo();
  EXPECT_EQ(barres(doc, 1), depuis(avant, 1, {1, 2, 3, 4, 5, 0, 0}));
  doc = avant;
  // The range stops at the document's end; a range outside it copies nothing.
  ASSERT_TRUE(pp.copier(doc, {4, 10, true}));
  EXPECT_EQ(pp.nombre(), 2);
  EXPECT_FALSE(pp.copier(doc, {6, 1, false}));
  EXPECT_FALSE(pp.copier(doc, {1, 0, false}));
  EXPECT_EQ(pp.nombre(), 2);
}

TEST(BarClipboard, CutCopiesThenRemovesWithOneUndoStep) {
  CVantoroTablature doc = pièceDeMesures();
  const CVantoroTablature avant = doc;
  PressePapierMesures pp;
  EXPECT_EQ(rapport(pp.couper(doc, {2, 2, false})), (Rapport{true, false, false, 2, 5}));
  ASSERT_EQ(pp.nombre(), 2);
  EXPECT_EQ(pp.mesures()[1], *avant.pisteMesure(1, 2));
  EXPECT_EQ(barres(doc, 1), depuis(avant, 1, {1, 4, 5, 0, 0}));
  EXPECT_EQ(doc.getUndoDepth(), 1);
  doc.makeUndo();
  EXPECT_TRUE(doc.pistes() == avant.pistes());
  // With every track the document shrinks, and the clipboard pastes them back.
  doc = avant;
  pp.couper(doc, {2, 2, true});
  EXPECT_EQ(barres(doc, 2), depuis(avant, 2, {1, 4, 5}));
  curseur(doc, 1, 2, 0, 1);
  pp.coller(doc);
  EXPECT_EQ(barres(doc, 1), barres(avant, 1));
  // Onto a four-string track: what fits of the notes and the chords, one undo step of that track.
  curseur(doc, 3, 1, 0, 1);
  pp.coller(doc);
  const tPisteMesure& m = *doc.pisteMesure(3, 1);
  EXPECT_EQ(std::tuple(m.tabCordes.last(), corde(doc, 3, 1, 1), m.tabCordes[2].last()),
            std::tuple(4, Notes{{0, 3, 48}}, 0));
  ASSERT_EQ(m.tabAccords.last(), 2);
  EXPECT_EQ(std::tuple(m.tabAccords[2].strNom, m.tabAccords[2].tabCordes.last(),
                       m.tabAccords[2].tabCordes[4], m.tabTextesUp.last()),
            std::tuple("Am", 4, 2, 1));
  doc.makeUndo();
  EXPECT_EQ(*doc.pisteMesure(3, 1), *avant.pisteMesure(3, 1)) << "the undo step is the track's";
}

TEST(BarCommands, InsertOnTheCurrentTrackOrOnEveryTrack) {
  CVantoroTablature doc = pièceDeMesures();
  curseur(doc, 2, 1, 0, 1);
  const CVantoroTablature avant = doc;
  EXPECT_EQ(rapport(insèreMesures(doc, {2, 3, false})), (Rapport{true, true, false, 2, 8}));
  EXPECT_EQ(doc.modifi, kVrai);
  // Another track and the headers do not move.
  EXPECT_EQ(barres(doc, 2), depuis(avant, 2, {1, 0, 0, 0, 2, 3, 4, 5}));
  EXPECT_EQ(barres(doc, 1), depuis(avant, 1, {1, 2, 3, 4, 5, 0, 0, 0}));
  EXPECT_EQ(doc.getMesureSignatureUp(2), 3);
  doc.makeUndo();
  EXPECT_EQ(barres(doc, 2), depuis(avant, 2, {1, 2, 3, 4, 5, 0, 0, 0}));
  // Every track: all move together and the document grows by the bars asked.
  doc = avant;
  insèreMesures(doc, {1, 2, true});
  for (int p = 1; p <= 3; ++p)
    EXPECT_EQ(barres(doc, p), depuis(avant, p, {0, 0, 1, 2, 3, 4, 5})) << p;
  // The bar count the document can't pass is kept: nothing changes.
  EXPECT_FALSE(insèreMesures(doc, {1, kMaxMesures, false}).modifié);
  EXPECT_FALSE(insèreMesures(doc, {9, 1, false}).modifié);
  EXPECT_FALSE(insèreMesures(doc, {1, 0, true}).modifié);
  EXPECT_EQ(doc.getMesureLast(), 7);
  EXPECT_EQ(doc.getUndoDepth(), 1);
}

// On the current track, deleting leaves empty bars at its end and the document
// long; on every track, it shortens the document and brings the cursor back.
TEST(BarCommands, DeletingOnTheCurrentTrackOrOnEveryTrack) {
  CVantoroTablature doc = pièceDeMesures();
  curseur(doc, 1, 5, 96, 1);
  const CVantoroTablature avant = doc;
  EXPECT_EQ(rapport(supprimeMesures(doc, {1, 5, false})), (Rapport{true, false, false, 1, 5}));
  EXPECT_EQ(barres(doc, 1), depuis(avant, 1, {0, 0, 0, 0, 0}));
  EXPECT_TRUE(doc.piste(2) == avant.piste(2));
  EXPECT_TRUE(doc.mesures() == avant.mesures());
  doc.makeUndo();
  supprimeMesures(doc, {2, 2, false});
  EXPECT_EQ(barres(doc, 1), depuis(avant, 1, {1, 4, 5, 0, 0}));

  doc = avant;
  EXPECT_EQ(rapport(supprimeMesures(doc, {2, 2, true})), (Rapport{true, true, true, 2, 3}));
  EXPECT_EQ(std::tuple(doc.CurseurMesure(), doc.CurseurX()), std::tuple(3, 0));
  for (int p = 1; p <= 3; ++p)
    EXPECT_EQ(barres(doc, p), depuis(avant, p, {1, 4, 5})) << p;
  // Headers are not moved: the bars at the end of the document go.
  EXPECT_EQ(doc.getMesureSignatureUp(2), 3);
  // Undo gives back the cursor's track as far as the document still reaches.
  doc.makeUndo();
  EXPECT_EQ(barres(doc, 1), depuis(avant, 1, {1, 2, 3}));
  // Everything: one empty bar remains; a range past the end is cut to it.
  doc = avant;
  supprimeMesures(doc, {1, 99, true});
  EXPECT_EQ(std::tuple(doc.CurseurMesure(), doc.CurseurX()), std::tuple(1, 0));
  for (int p = 1; p <= 3; ++p)
    EXPECT_EQ(barres(doc, p), depuis(avant, p, {0})) << p;
  EXPECT_FALSE(supprimeMesures(doc, {2, 1, true}).modifié);
}

}  // namespace
}  // namespace vt::essai
