// The built-in synthesizer opened on the user's instrument sounds, from its
// first note, as one told that program by a Program Change; the drums' channel
// keeps its kit.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "sound/midi_out.h"
#include "sound/synthe_integre.h"

namespace vt {
namespace {

std::vector<std::int16_t> joue(SynthéIntégré& s, int canal, int note) {
  s.shortMsg(midiPack(std::uint8_t(0x90 | canal), std::uint8_t(note), 100));
  std::vector<std::int16_t> pcm(2 * 44100 / 4);
  EXPECT_TRUE(s.rends(pcm.data(), int(pcm.size() / 2)));
  return pcm;
}

OptionsSynthé sansAudio(int programme = -1) {
  OptionsSynthé o;
  o.pilotesAudio = {};
  o.programme = programme;
  return o;
}

TEST(BuiltInSynthesizer, OpenedOnAProgramItSoundsAsAfterItsProgramChange) {
  for (const int programme : {25, 40}) {
    SCOPED_TRACE(programme);
    SynthéIntégré surLeProgramme(sansAudio(programme)), changé(sansAudio()), piano(sansAudio());
    ASSERT_FALSE(surLeProgramme.soundFont().empty()) << "no SoundFont on this machine";
    changé.shortMsg(midiPack(0xC0, std::uint8_t(programme)));
    const auto son = joue(surLeProgramme, 0, 52);
    EXPECT_EQ(son, joue(changé, 0, 52));
    EXPECT_NE(son, joue(piano, 0, 52)) << "the piano sounds otherwise";
  }
  // The drums' channel keeps its kit.
  SynthéIntégré guitare(sansAudio(25)), piano(sansAudio());
  EXPECT_EQ(joue(guitare, 9, 38), joue(piano, 9, 38));
}

}  // namespace
}  // namespace vt
