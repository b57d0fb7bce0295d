// The device lists and the opening of devices by number (the test machines have
// no ALSA sequencer: the lists hold only the built-in synthesizer, and asking
// for a port gives a message and the built-in synthesizer instead); the MIDI
// out handles of the player's records; the logging output and its lines.
#include <gtest/gtest.h>

#include <thread>

#include "sound/midi_handles.h"
#include "sound/peripheriques.h"
#include "sound/ports_alsa.h"
#include "sound/sortie_journal.h"
#include "sound/synthe_integre.h"
#include "sound_test_util.h"

namespace vt {
namespace {

using test::sansAudio;

bool intégré(const OuvertureSortie& o) {
  return dynamic_cast<SynthéIntégré*>(o.sortie.get()) != nullptr;
}

TEST(DeviceLists, TheBuiltInSynthesizerIsOutputZeroInBothLanguages) {
  const auto en = nomsSortiesMidi(kLangAnglais);
  ASSERT_FALSE(en.empty());
  EXPECT_EQ(en[0], "Built-in synthesizer");
  EXPECT_EQ(nomsSortiesMidi(kLangFrançais)[0], "Synthétiseur intégré");
  EXPECT_EQ(en.size(), portsSortieAlsa().size() + 1);
  EXPECT_EQ(nomsEntréesMidi(), portsEntréeAlsa());
}

TEST(DeviceOpening, OutputsZeroAndMinusOneAreTheBuiltInSynthesizerAPortThatFailsToo) {
  for (int device : {0, -1}) {
    const OuvertureSortie o = ouvreSortieMidi(device, sansAudio());
    EXPECT_TRUE(intégré(o)) << device;
    EXPECT_TRUE(o.messages.empty()) << device;
  }
  const OuvertureSortie o = ouvreSortieMidi(5000, sansAudio());
  EXPECT_TRUE(intégré(o));
  ASSERT_FALSE(o.messages.empty());
  EXPECT_EQ(o.messages[0].id, son::kSortieMidiImpossible.id);
  EXPECT_FALSE(o.messages[0].détail.empty());
  o.sortie->shortMsg(midiPack(0x90, 60, 100));
}

TEST(DeviceOpening, AnAlsaPortThatIsNotThereStaysClosedAndTakesMessagesSilently) {
  PortAlsaSortie sortie(5000);
  EXPECT_FALSE(sortie.ouvert());
  EXPECT_FALSE(sortie.erreur().empty());
  sortie.shortMsg(midiPack(0x90, 60, 100));
  sortie.reset();
  PortAlsaEntrée entrée(5000);
  EXPECT_FALSE(entrée.ouvert());
  EXPECT_FALSE(entrée.erreur().empty());
  entrée.démarre([](std::uint32_t) {});
  entrée.arrête();
}

// With no input on the machine, nothing opens, quietly; with some, a number past the list says so.
TEST(DeviceOpening, InputsOpenNothingQuietlyWhenTheMachineHasNone) {
  const bool aucune = portsEntréeAlsa().empty();
  const OuvertureEntrée o = ouvreEntréeMidi(aucune ? 0 : 5000);
  EXPECT_EQ(o.entrée, nullptr);
  EXPECT_EQ(o.messages.size(), aucune ? 0u : 1u);
  if (!aucune) {
    EXPECT_EQ(o.messages[0].id, son::kEntréeMidiImpossible.id);
  }
}

TEST(MidiHandles, ZeroUnknownAndClosedHandlesGiveNoOutputEachOpenOneItsOwn) {
  EXPECT_EQ(midiHandleSortie(0), nullptr);
  EXPECT_EQ(midiHandleSortie(-5), nullptr);
  EXPECT_EQ(midiHandleOuvrir(nullptr), 0);
  auto a = std::make_shared<SortieJournal>();
  auto b = std::make_shared<SortieJournal>();
  const std::int32_t ha = midiHandleOuvrir(a);
  const std::int32_t hb = midiHandleOuvrir(b);
  EXPECT_NE(ha, 0);
  EXPECT_NE(ha, hb);
  EXPECT_EQ(midiHandleSortie(ha), a);
  EXPECT_EQ(midiHandleSortie(hb), b);
  EXPECT_EQ(midiHandleSortie(hb + 1000), nullptr);
  midiHandleFermer(ha);
  EXPECT_EQ(midiHandleSortie(ha), nullptr);
  EXPECT_EQ(midiHandleSortie(hb), b);
  midiHandleFermer(ha);  // twice is harmless
  midiHandleFermer(hb);
}

TEST(MidiHandles, AClosedHandleKeepsARunningHolderAlive) {
  std::weak_ptr<SortieJournal> témoin;
  std::shared_ptr<MidiOut> tenue;
  {
    auto sortie = std::make_shared<SortieJournal>();
    témoin = sortie;
    const std::int32_t h = midiHandleOuvrir(sortie);
    sortie.reset();
    tenue = midiHandleSortie(h);  // what the player takes at its start
    midiHandleFermer(h);
  }
  ASSERT_FALSE(témoin.expired());
  tenue->shortMsg(midiPack(0x90, 60, 100));  // still plays
  EXPECT_EQ(témoin.lock()->messages().size(), 1u);
  tenue.reset();
  EXPECT_TRUE(témoin.expired()) << "the table keeps nothing after the close";
}

TEST(LogLine, TimeWithThreeDecimalsThenOnlyTheBytesTheMessageHas) {
  EXPECT_EQ(ligneJournal({1041.6666, midiPack(0x90, 0x45, 0x7F)}), "1041.667 90 45 7F");
  EXPECT_EQ(ligneJournal({0, midiPack(0xC0, 25)}), "0.000 C0 19");      // program: 2 bytes
  EXPECT_EQ(ligneJournal({2.5, midiPack(0xD3, 0x40)}), "2.500 D3 40");  // pressure: 2 bytes
  EXPECT_EQ(ligneJournal({12, midiPack(0xEF, 0x00, 0x60)}), "12.000 EF 00 60");
  EXPECT_EQ(ligneJournal({-0.0001, midiPack(0x80, 0x3C, 0x00)}), "0.000 80 3C 00");
  EXPECT_EQ(ligneJournal({0.0005, midiPack(0x90, 1, 2)}), "0.001 90 01 02");
}

TEST(LogOutput, TimesCountFromTheFirstMessageOrFromTheStartGivenResetsAreNotListed) {
  SortieJournal j;
  j.reset();
  j.shortMsg(midiPack(0x90, 60, 100));
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  j.shortMsg(midiPack(0x90, 60, 0));
  j.reset();
  EXPECT_EQ(j.resets(), 2);
  MessagesDates m = j.messages();
  ASSERT_EQ(m.size(), 2u);
  EXPECT_EQ(m[0].ms, 0.0);
  EXPECT_GE(m[1].ms, 19.0);
  EXPECT_EQ(m[1].message, midiPack(0x90, 60, 0));
  j.efface();
  j.setDébut(SortieJournal::Horloge::now() - std::chrono::milliseconds(100));
  j.shortMsg(midiPack(0xC0, 25));
  m = j.messages();
  ASSERT_EQ(m.size(), 1u);
  EXPECT_GE(m[0].ms, 100.0);
}

TEST(LogOutput, TwoThreadsAtOnceLoseNothingAndTheListenerSeesTheListsOrder) {
  SortieJournal j;
  MessagesDates vus;
  j.setEcouteur([&vus](const MessageDate& m) { vus.push_back(m); });
  auto envoie = [&j](std::uint8_t canal) {
    for (int i = 0; i < 1000; ++i)
      j.shortMsg(
          midiPack(std::uint8_t(0x90 | canal), std::uint8_t(i % 128), std::uint8_t(i / 128)));
  };
  std::thread a(envoie, 0), b(envoie, 1);
  a.join();
  b.join();
  const MessagesDates m = j.messages();
  ASSERT_EQ(m.size(), 2000u);
  EXPECT_EQ(vus, m);
  // Each thread's messages keep their order, and time never goes back.
  int suivant[2] = {0, 0};
  for (std::size_t i = 0; i < m.size(); ++i) {
    const int canal = midiStatus(m[i].message) & 0x0F;
    EXPECT_EQ(midiData1(m[i].message) + 128 * midiData2(m[i].message), suivant[canal]++);
    if (i > 0) {
      EXPECT_GE(m[i].ms, m[i - 1].ms);
    }
  }
}

}  // namespace
}  // namespace vt
