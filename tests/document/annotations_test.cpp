// Chords, texts and their code page, tempos, the signature cut, repeats and markers.
#include <gtest/gtest.h>

#include "document/cp1252.h"
#include "test_support.h"

namespace vt {
namespace {

OneBased<byt> frettes(std::initializer_list<int> v) {
  OneBased<byt> f;
  for (int x : v)
    f.push_back(static_cast<byt>(x));
  return f;
}

TEST(Chords, SortedInsertionKeepsTheOthersIntactAndFretsFitTheTrack) {
  CVantoroTablature doc;
  int n = doc.addandplaceMesureAccord(1, 1, 24);
  doc.setMesureAccord(1, 1, n, "Am", frettes({0, 1, 2, 2, 0, 255}));
  n = doc.addandplaceMesureAccord(1, 1, 96);
  doc.setMesureAccord(1, 1, n, "E", frettes({0, 0, 1, 2, 2, 0}));
  EXPECT_EQ(doc.addandplaceMesureAccord(1, 1, 48), 2);
  const auto accord = [&](int k) {
    const tAccord& a = doc.pisteMesure(1, 1)->tabAccords[k];
    return std::tuple(int{a.intX}, a.strNom,
                      std::vector<byt>(a.tabCordes.begin(), a.tabCordes.end()));
  };
  EXPECT_EQ(accord(2), std::tuple(48, "", std::vector<byt>(6, 255)));
  EXPECT_EQ(accord(3), std::tuple(96, "E", std::vector<byt>{0, 0, 1, 2, 2, 0}));
  EXPECT_EQ(std::pair(doc.searchMesureAccord(1, 1, 48), doc.searchMesureAccord(1, 1, 50)),
            std::pair(2, 0));
  doc.deleteAccord(1, 1, 1);
  EXPECT_EQ(std::pair(doc.getMesureAccordLast(1, 1), doc.getMesureAccordX(1, 1, 1)),
            std::pair(2, 48));
  // Frets are copied up to the shorter of the track and the array.
  doc.setMesureAccord(1, 1, 1, "C", frettes({0, 1}));
  EXPECT_EQ(std::pair(doc.getMesureAccordCorde(1, 1, 1, 2), doc.getMesureAccordCorde(1, 1, 1, 3)),
            std::pair(1, 255));
  doc.setMesureAccord(1, 1, 1, "C", frettes({0, 1, 0, 2, 3, 255, 9, 9}));
  EXPECT_EQ(doc.pisteMesure(1, 1)->tabAccords[1].tabCordes.last(), 6);
  EXPECT_FALSE(doc.setMesureAccordNom(1, 1, 1, std::string(256, 'x')));
  EXPECT_EQ(doc.getMesureAccordNom(1, 1, 1), "C");
}

TEST(Texts, ReplaceAtTheSameTickAndKeepTheListsApartAsTemposDo) {
  CVantoroTablature doc;
  EXPECT_TRUE(doc.setMesureTexte(1, 1, 48, "intro", kVrai));
  EXPECT_TRUE(doc.setMesureTexte(1, 1, 0, "let ring", kVrai));
  EXPECT_TRUE(doc.setMesureTexte(1, 1, 48, "Intro", kVrai));
  EXPECT_TRUE(doc.setMesureTexte(1, 1, 48, "bas", kFaux));
  EXPECT_TRUE(doc.setMesureTexte(1, 1, 96, "aussi bas", 1));  // anything but -1: the lower list
  const auto textes = [&](bool haut) {
    std::vector<std::string> v;
    for (const tTexte& t :
         haut ? doc.pisteMesure(1, 1)->tabTextesUp : doc.pisteMesure(1, 1)->tabTextesDn)
      v.push_back(std::to_string(t.intX) + ":" + t.strContenu);
    return v;
  };
  EXPECT_EQ(textes(true), (std::vector<std::string>{"0:let ring", "48:Intro"}));
  EXPECT_EQ(textes(false), (std::vector<std::string>{"48:bas", "96:aussi bas"}));
  EXPECT_EQ(doc.getMesureTexte(1, 1, 48, kFaux), "bas");
  EXPECT_EQ(doc.getMesureTexte(1, 1, 24, kVrai), "");
  EXPECT_EQ(doc.searchMesureTexte(1, 1, 96, kFaux), 2);
  doc.deleteTexte(1, 1, 1, kVrai);
  EXPECT_EQ(textes(true), std::vector<std::string>{"48:Intro"});
  // Tempos: sorted, replaced at the same tick, deleted.
  doc.setMesureTempo(1, 96, 140);
  doc.setMesureTempo(1, 0, 90);
  doc.setMesureTempo(1, 96, 150);
  EXPECT_EQ((std::vector<int>{doc.getMesureTempoLast(1), doc.getMesureTempoX(1, 1),
                              doc.getMesureTempoContenu(1, 2), doc.searchMesureTempo(1, 96)}),
            (std::vector<int>{2, 0, 150, 2}));
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

TEST(Signature, NarrowerCutsContentOfEveryTrackAndTheTemposWiderRemovesNothing) {
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
  // The note at 96 is left running past the end on purpose.
  for (int p = 1; p <= 2; ++p)
    EXPECT_EQ((std::vector<int>{doc.getNoteLast(p, 1, 1), doc.getNoteDurée(p, 1, 1, 1),
                                doc.getNoteLast(p, 1, 2), doc.getMesureTexteUpLast(p, 1),
                                doc.getMesureTexteDnLast(p, 1), doc.getMesureAccordLast(p, 1)}),
              (std::vector<int>{1, 96, 0, 0, 1, 0}));
  EXPECT_EQ(std::pair(doc.getMesureTempoLast(1), doc.getMesureTempoX(1, 1)), std::pair(1, 143));
  // Wider removes nothing.
  const CVantoroTablature avant = doc;
  doc.setMesureSignature(1, 5, 4);
  doc.setMesureSignature(1, 3, 4);
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
  const struct {
    const char* quoi;
    bool start;
    int m, x;
    tMarqueurs attendu;
    vbool correct;
  } cas[] = {
      {"stop", false, 3, 48, {1, 0, 3, 48}, kVrai},
      {"start", true, 2, 24, {2, 24, 3, 48}, kVrai},
      {"start in the stop's bar, before it", true, 3, 24, {3, 24, 3, 48}, kVrai},
      {"start past the stop drags it along", true, 3, 96, {3, 96, 3, 96}, kFaux},
      {"start in a later bar", true, 5, 0, {5, 0, 5, 0}, kFaux},
      {"stop", false, 5, 48, {5, 0, 5, 48}, kVrai},
      {"stop at the start tick: allowed", false, 5, 0, {5, 0, 5, 0}, kFaux},
      {"stop before the start bar: both move", false, 4, 100, {4, 100, 4, 100}, kFaux},
      {"stop before the start tick: both move", false, 4, 50, {4, 50, 4, 50}, kFaux},
      {"stop in a later bar", false, 7, 0, {4, 50, 7, 0}, kVrai},
  };
  for (const auto& k : cas) {
    SCOPED_TRACE(k.quoi);
    k.start ? doc.setMarqueurStart(k.m, k.x) : doc.setMarqueurStop(k.m, k.x);
    EXPECT_EQ(doc.marqueurs(), k.attendu);
    EXPECT_EQ(doc.isMarkerCorrect(), k.correct);
  }
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

TEST(Cp1252, EveryByteSurvivesATripThroughUtf8WithTheCharactersOfTheCodePage) {
  std::string tous;
  for (int b = 0; b < 256; ++b)
    tous += static_cast<char>(b);
  const std::string utf8 = cp1252ToUtf8(tous);
  EXPECT_TRUE(isValidUtf8(utf8));
  EXPECT_EQ(utf8ToCp1252(utf8), tous);
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
