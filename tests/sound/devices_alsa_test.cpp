// The device lists and the opening of devices by number. The test machines
// have no ALSA sequencer: there the lists hold only the built-in synthesizer,
// nothing is printed, and asking for a port gives a message and the built-in
// synthesizer instead.
#include <gtest/gtest.h>

#include "sound/peripheriques.h"
#include "sound/ports_alsa.h"
#include "sound/synthe_integre.h"

namespace vt {
namespace {

OptionsSynthé sansAudio() {
  OptionsSynthé o;
  o.pilotesAudio = {};
  return o;
}

TEST(DeviceLists, TheBuiltInSynthesizerIsOutputZeroInBothLanguages) {
  const auto en = nomsSortiesMidi(kLangAnglais);
  const auto fr = nomsSortiesMidi(kLangFrançais);
  ASSERT_FALSE(en.empty());
  EXPECT_EQ(en[0], "Built-in synthesizer");
  EXPECT_EQ(fr[0], "Synthétiseur intégré");
  EXPECT_EQ(en.size(), portsSortieAlsa().size() + 1);
  EXPECT_EQ(nomsEntréesMidi(), portsEntréeAlsa());
}

TEST(DeviceOpening, OutputsZeroAndMinusOneAreTheBuiltInSynthesizer) {
  for (int device : {0, -1}) {
    const OuvertureSortie o = ouvreSortieMidi(device, sansAudio());
    ASSERT_NE(o.sortie, nullptr);
    EXPECT_NE(dynamic_cast<SynthéIntégré*>(o.sortie.get()), nullptr) << device;
    EXPECT_TRUE(o.messages.empty()) << device;
  }
}

TEST(DeviceOpening, APortThatCannotBeOpenedGivesAMessageAndTheBuiltInSynthesizer) {
  const OuvertureSortie o = ouvreSortieMidi(5000, sansAudio());
  ASSERT_NE(o.sortie, nullptr);
  EXPECT_NE(dynamic_cast<SynthéIntégré*>(o.sortie.get()), nullptr);
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

TEST(DeviceOpening, InputsOpenNothingQuietlyWhenTheMachineHasNone) {
  if (!portsEntréeAlsa().empty()) GTEST_SKIP() << "this machine has MIDI inputs";
  const OuvertureEntrée o = ouvreEntréeMidi(0);
  EXPECT_EQ(o.entrée, nullptr);
  EXPECT_TRUE(o.messages.empty());
}

TEST(DeviceOpening, AnInputNumberPastTheListGivesAMessage) {
  if (portsEntréeAlsa().empty()) GTEST_SKIP() << "this machine has no MIDI input at all";
  const OuvertureEntrée o = ouvreEntréeMidi(5000);
  EXPECT_EQ(o.entrée, nullptr);
  ASSERT_EQ(o.messages.size(), 1u);
  EXPECT_EQ(o.messages[0].id, son::kEntréeMidiImpossible.id);
}

}  // namespace
}  // namespace vt
