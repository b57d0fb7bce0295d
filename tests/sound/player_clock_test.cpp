// The real-time clocks through the logging output at tempo 255 (a 4/4 bar in
// 0.94 s): nothing is sent before its time, in the offline walk's order.
#include <gtest/gtest.h>

#include <set>
#include <thread>

#include "player/metronome.h"
#include "player/play_timing.h"
#include "player/player.h"
#include "player_test_util.h"
#include "sound/midi_handles.h"

namespace vt {
namespace {

using namespace std::chrono_literals;
using test::poser;

CVantoroTablature rapide(int mesures) {
  CVantoroTablature doc = test::document(mesures);
  doc.tempo = 255;
  return doc;
}
DemandeJeu demande(const CVantoroTablature& doc, std::int32_t handle) {
  DemandeJeu d;
  d.périodeTick = périodeTickMs(doc.tempo);
  d.midiOut = handle;
  return d;
}
template <class L>
std::vector<std::uint32_t> octets(const L& l) {
  std::vector<std::uint32_t> r;
  for (const auto& m : l)
    r.push_back(m.message);
  return r;
}
int noteOns(const MessagesDates& l) {
  return int(std::count_if(l.begin(), l.end(), [](auto& m) { return test::estNoteOn(m.message); }));
}
bool fini() {
  return test::attendreQue([] { return GetPlayTabX() == -1; });
}

class PlayerClock : public ::testing::Test {
 protected:
  void TearDown() override {
    StopTab();
    StopMetronome();
  }
  bool attendsNotes(const std::shared_ptr<SortieJournal>& s, int n) {
    return test::attendreQue([&] { return noteOns(s->messages()) >= n; });
  }
  test::JournalOuvert journal;
  PlayArrays tableaux;
};

TEST_F(PlayerClock, PlaysWhatTheOfflineWalkGivesNeverEarlyThenEnds) {
  CVantoroTablature doc = rapide(1);
  poser(doc, 1, 1, 1, 0, 0, 48);
  poser(doc, 1, 1, 2, 48, 1, 48, effet::kBendUp);
  poser(doc, 1, 1, 2, 96, 3, 48);
  const DemandeJeu d = demande(doc, journal.handle);
  const std::vector<MessageJoué> idéal = test::horsLigne(doc, d);

  const auto début = SortieJournal::Horloge::now();
  journal.sortie->setDébut(début);
  playStart(doc, tableaux, {}, d);
  EXPECT_NE(GetPlayTabX(), -1);  // the editor's first poll must not see an end
  bool noteVue = false;
  std::set<int> x;
  ASSERT_TRUE(test::attendreQue([&] {
    if (GetMIDINote(1) == 64 && GetMIDINoteDuree(1) > 0) noteVue = true;
    x.insert(GetPlayTabX());
    return GetPlayTabX() == -1;
  }));
  EXPECT_GE(SortieJournal::Horloge::now() - début, 940ms);  // the bar, not less
  EXPECT_TRUE(noteVue);
  EXPECT_GT(x.size(), 10u);          // the cursor moved through the bar
  EXPECT_EQ(GetPlayTabMesure(), 2);  // past the last bar

  const MessagesDates reçu = journal.sortie->messages();
  EXPECT_EQ(octets(reçu), octets(idéal));
  ASSERT_EQ(reçu.size(), idéal.size());
  for (std::size_t i = 0; i < reçu.size(); ++i)
    EXPECT_GE(reçu[i].ms, idéal[i].ms - 1e-3) << i;
  EXPECT_EQ(GetMIDINoteDuree(1), 0);
}

TEST_F(PlayerClock, StopOrStartWhilePlayingReleasesEveryNoteAtOnceStopTwiceStopIdle) {
  StopTab();  // idle
  EXPECT_EQ(GetPlayTabX(), -1);
  CVantoroTablature doc = rapide(8);
  for (int m = 1; m <= 8; ++m)
    for (int c = 1; c <= 6; ++c)
      poser(doc, 1, m, c, 0, c, 192, c == 3 ? effet::kVibrato : 0);
  playStart(doc, tableaux, {}, demande(doc, journal.handle));
  ASSERT_TRUE(test::attendreQue([] { return GetPlayTabX() > 20; }));
  const auto avant = std::chrono::steady_clock::now();
  StopTab();
  EXPECT_LT(std::chrono::steady_clock::now() - avant, 500ms);
  EXPECT_EQ(GetPlayTabX(), -1);
  const MessagesDates reçu = journal.sortie->messages();
  EXPECT_EQ(noteOns(reçu), 6);
  EXPECT_TRUE(test::toutRelâché(reçu));
  StopTab();
  EXPECT_EQ(journal.sortie->messages().size(), reçu.size());

  // A start while playing stops the first piece cleanly.
  journal.sortie->efface();
  CVantoroTablature long_ = rapide(4);
  poser(long_, 1, 1, 1, 0, 0, 192);
  playStart(long_, tableaux, {}, demande(long_, journal.handle));
  ASSERT_TRUE(attendsNotes(journal.sortie, 1));
  CVantoroTablature court = rapide(1);
  court.setMesureSignature(1, 1, 4);
  poser(court, 1, 1, 2, 0, 0, 24);
  playStart(court, tableaux, {}, demande(court, journal.handle));
  ASSERT_TRUE(fini());
  EXPECT_EQ(noteOns(journal.sortie->messages()), 2);
  EXPECT_TRUE(test::toutRelâché(journal.sortie->messages()));
}

TEST_F(PlayerClock, LoopBetweenMarkersRunsUntilStopped) {
  CVantoroTablature doc = rapide(1);
  poser(doc, 1, 1, 1, 0, 5, 96);
  doc.setMarqueurStart(1, 0);
  doc.setMarqueurStop(1, 48);  // one beat, 235 ms
  DemandeJeu d = demande(doc, journal.handle);
  d.marker = true;
  d.loop = true;
  playStart(doc, tableaux, {}, d);
  ASSERT_TRUE(attendsNotes(journal.sortie, 3));
  EXPECT_NE(GetPlayTabX(), -1);
  EXPECT_EQ(GetPlayTabMesure(), 1);
  StopTab();
  const MessagesDates reçu = journal.sortie->messages();
  EXPECT_TRUE(test::toutRelâché(reçu));
  // Each round releases the note that the stop marker cut short, then strikes it again.
  bool premier = true;
  for (std::size_t i = 1; i < reçu.size(); ++i) {
    if (!test::estNoteOn(reçu[i].message)) continue;
    if (!premier) {
      EXPECT_EQ(reçu[i - 1].message, midiPack(0x80, 69, 0x7F)) << i;
    }
    premier = false;
  }
}

TEST_F(PlayerClock, RepeatJumpReportedOnceEmptyDocumentEndsByItself) {
  CVantoroTablature doc = rapide(2);
  doc.setMesureSignature(1, 1, 4);  // 235 ms a bar
  doc.setMesureSignature(2, 1, 4);
  doc.setMesureLoopGaucheType(1, barre::kRepetition);
  doc.setMesureLoopDroiteType(1, barre::kRepetition);
  doc.setMesureLoopDroiteData(1, 1);
  DemandeJeu d = demande(doc, journal.handle);
  d.renvois = true;
  GetPlayTabRenvoiHasOccured();  // forget an earlier run's
  playStart(doc, tableaux, {}, d);
  int sauts = 0;
  std::set<int> mesures;
  ASSERT_TRUE(test::attendreQue([&] {
    if (GetPlayTabRenvoiHasOccured() != 0) ++sauts;
    mesures.insert(GetPlayTabMesure());
    return GetPlayTabX() == -1;
  }));
  EXPECT_EQ(sauts, 1);
  EXPECT_TRUE(mesures.count(2));
  EXPECT_EQ(GetPlayTabRenvoiHasOccured(), 0);
}

TEST_F(PlayerClock, NoOutputOrAnOutputClosedDuringPlayNeverCrashes) {
  CVantoroTablature doc = rapide(1);
  doc.setMesureSignature(1, 2, 4);
  poser(doc, 1, 1, 1, 0, 0, 48);
  poser(doc, 1, 1, 1, 48, 0, 48);
  playStart(doc, tableaux, {}, demande(doc, 0));
  ASSERT_TRUE(fini());

  auto propre = std::make_shared<SortieJournal>();
  const std::int32_t h = midiHandleOuvrir(propre);
  playStart(doc, tableaux, {}, demande(doc, h));
  ASSERT_TRUE(attendsNotes(propre, 1));
  midiHandleFermer(h);
  propre.reset();
  ASSERT_TRUE(fini());
  playStart(doc, tableaux, {}, demande(doc, h));  // a handle no longer open
  ASSERT_TRUE(fini());
}

TEST_F(PlayerClock, MetronomeCountsAndClicksStrongThenWeakBesideAPiece) {
  OptionsMétronome o;
  o.setMétronomeMIDICanal10 = 1;
  o.setMIDIvolume = 80;
  journal.sortie->setDébut(SortieJournal::Horloge::now());
  StartMetronome(métronomeParams(240, 2, o, journal.handle), 240);  // a beat of 250 ms

  // A piece at the same time, into an output of its own.
  test::JournalOuvert piece;
  CVantoroTablature doc = rapide(1);
  poser(doc, 1, 1, 1, 0, 0, 48);
  playStart(doc, tableaux, {}, demande(doc, piece.handle));

  std::set<int> compteurs;
  ASSERT_TRUE(test::attendreQue([&] {
    compteurs.insert(GetCompteur());
    return noteOns(journal.sortie->messages()) >= 3;
  }));
  StopMetronome();
  StopMetronome();
  EXPECT_EQ(GetCompteur(), 0);
  EXPECT_GT(compteurs.size(), 10u);
  EXPECT_GE(*compteurs.begin(), 0);
  EXPECT_LE(*compteurs.rbegin(), 35);

  const MessagesDates reçu = journal.sortie->messages();
  ASSERT_GE(reçu.size(), 4u);
  EXPECT_EQ(reçu[0].message, midiPack(0xC9, 0));
  MessagesDates clics;
  std::copy_if(reçu.begin(), reçu.end(), std::back_inserter(clics),
               [](const MessageDate& m) { return test::estNoteOn(m.message); });
  ASSERT_GE(clics.size(), 3u);
  clics.resize(3);
  EXPECT_EQ(octets(clics),
            (std::vector<std::uint32_t>{midiPack(0x99, 33, 80), midiPack(0x99, 34, 80),
                                        midiPack(0x99, 33, 80)}));
  EXPECT_GE(clics[1].ms, 250.0 - 1e-3);
  EXPECT_GE(clics[2].ms, 500.0 - 1e-3);
  EXPECT_TRUE(test::toutRelâché(reçu));

  ASSERT_TRUE(fini());
  EXPECT_EQ(noteOns(piece.sortie->messages()), 1);
}

}  // namespace
}  // namespace vt
