// Listening to rendered sound in tests: the PCM of the offline renderer
// (interleaved 16-bit stereo) made mono, cut to a stretch, and measured: its
// pitch, its loudness, where the sound starts.
//
//   const RenduPcm pcm = rendrePcm(messages);
//   const auto son = test::mono(pcm.échantillons);
//   double hz = test::frequenceFondamentale(test::tranche(son, pcm.fréquence, 200, 800),
//                                           pcm.fréquence);
#pragma once

#include <cstdint>
#include <vector>

namespace vt::test {

// Left and right averaged, on the scale -1..1.
std::vector<float> mono(const std::vector<std::int16_t>& stéréo);

// The frames from `débutMs` to `finMs`, held to what there is.
std::vector<float> tranche(const std::vector<float>& son, int sampleRate, double débutMs,
                           double finMs);

// The fundamental frequency of a steady stretch in Hz, between 40 and 2000 Hz,
// found by the normalised difference of the signal with itself (a method that
// does not take the octave above for the note, as a plain peak of the
// autocorrelation can on a bright guitar sound). 0 when the stretch has no
// pitch: silence, noise, or too short (under 50 ms).
double frequenceFondamentale(const std::vector<float>& son, int sampleRate);

// Root mean square on the scale 0..1.
double rms(const std::vector<float>& son);
// The largest absolute value on the scale 0..1.
double crête(const std::vector<float>& son);

// Time in ms of the first frame louder than `seuil` (0..1); -1 when none is.
double débutDuSon(const std::vector<float>& son, int sampleRate, float seuil);

}  // namespace vt::test
