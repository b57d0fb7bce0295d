// Listening to rendered sound in tests: the PCM of the offline renderer
// (interleaved 16-bit stereo) made mono, cut to a stretch, and measured.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "sound/synthe_integre.h"

namespace vt::test {

// Left and right averaged, on the scale -1..1.
std::vector<float> mono(const std::vector<std::int16_t>& stéréo);

// The frames from `débutMs` to `finMs`, held to what there is.
std::vector<float> tranche(const std::vector<float>& son, int sampleRate, double débutMs,
                           double finMs);

// The pitch of the stretch from `débutMs` to `finMs` in Hz, as the tuner hears
// it (the median of its frames); 0 when it has none.
double hzEntre(const std::vector<float>& son, int sampleRate, double débutMs, double finMs);

double rms(const std::vector<float>& son);    // on the scale 0..1
double crête(const std::vector<float>& son);  // the largest absolute value, 0..1

// Time in ms of the first frame louder than `seuil` (0..1); -1 when none is.
double débutDuSon(const std::vector<float>& son, int sampleRate, float seuil);

// The built-in synthesizer with no audio driver: the tests pull the sound.
inline OptionsSynthé sansAudio(int programme = -1) {
  OptionsSynthé o;
  o.pilotesAudio = {};
  o.programme = programme;
  return o;
}

// A fresh folder of the test's own, removed afterwards.
class Dossier : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override { std::filesystem::remove_all(dossier); }
  std::string fichier(const std::string& nom, const std::string& contenu = "x") const;
  std::vector<std::string> contenu() const;  // the names in it
  std::filesystem::path dossier;
};

}  // namespace vt::test
