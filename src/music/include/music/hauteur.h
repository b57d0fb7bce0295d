// The tuner's pitch detector: the fundamental frequency of a frame of sound.
//
// The period comes from the normalised square difference of the frame with
// itself (the McLeod pitch method): the first lag that repeats nearly as well
// as the best one, so that neither a multiple of the period (an octave low)
// nor a strong second harmonic (an octave high) is taken for the note. It is
// measured again across as many periods as half the frame holds. Then the
// fundamental partial itself is found near that pitch, and its frequency read
// from the advance of its phase between two windows of the frame: a plucked
// string's upper partials lie a little above the harmonic series and pull the
// period sharp, while the ear and a tuner go by the fundamental.
//
// One detector holds its buffers: analyse() allocates nothing.
#pragma once

#include <complex>
#include <memory>
#include <span>
#include <vector>

namespace vt {

class TransforméeFourier;

struct RéglagesHauteur {
  int fréquence = 44100;  // samples per second
  int taille = 4096;      // samples a frame
  double hzMin = 30;      // the low B of a five-string bass is 30.9 Hz
  double hzMax = 1400;    // the 24th fret of the high E string is 1,318.5 Hz
  // A frame is voiced when its normalised peak reaches this (1 is a perfectly
  // periodic sound) and it is louder than `niveauMin` (root mean square,
  // full scale 1).
  double clartéMin = 0.6;
  double niveauMin = 0.001;
};

// The frame length the tuner analyses at a sample rate: the power of two
// nearest to 85 ms, enough for three periods of the lowest note.
int tailleTrameAccordeur(int fréquence);

struct Hauteur {
  double hz = 0;      // 0 when the frame has no pitch
  double clarté = 0;  // the normalised peak, up to 1
  double niveau = 0;  // root mean square
  bool voisée() const { return hz > 0; }
};

class DétecteurHauteur {
 public:
  explicit DétecteurHauteur(const RéglagesHauteur& r = {});
  ~DétecteurHauteur();
  DétecteurHauteur(const DétecteurHauteur&) = delete;
  DétecteurHauteur& operator=(const DétecteurHauteur&) = delete;

  const RéglagesHauteur& réglages() const { return m_r; }
  // The last taille() samples of `trame` are analysed; a shorter frame has no pitch.
  Hauteur analyse(std::span<const float> trame);

 private:
  void nsdf(std::span<const float> trame, double moyenne, double énergie);
  int périodeMcLeod() const;
  double crête(int tau, double& valeur) const;
  double affine(double tau, double valeur) const;
  void spectres(std::span<const float> trame, double moyenne);
  std::size_t binPlusFort(double hz, double écartCents, double& magnitude) const;
  double partielle(double hz) const;
  double phaseDePartielle(double hz, double& magnitude) const;
  double plancherDeBruit(double hz) const;

  RéglagesHauteur m_r;
  int m_tauMin = 2;
  int m_tauMax = 2;
  int m_tauCalcul = 2;  // the NSDF is computed up to here
  std::unique_ptr<TransforméeFourier> m_fft;
  std::vector<std::complex<double>> m_spectre;
  std::vector<std::complex<double>> m_spectre2;
  std::vector<double> m_nsdf;
  std::vector<double> m_fenêtre;
  mutable std::vector<double> m_puissances;
};

// A whole recording through the tuner's detector: frames of
// tailleTrameAccordeur(fréquence) samples every quarter frame (about 21 a
// second), the last one padded with silence; a recording shorter than a frame
// is one frame.
struct TrameHauteur {
  double secondes = 0;  // where the frame starts
  Hauteur hauteur;
};
std::vector<TrameHauteur> hauteursDesTrames(std::span<const float> son, int fréquence);

// The median frequency of the voiced frames; 0 when none is voiced.
double hauteurMédiane(const std::vector<TrameHauteur>& trames);

}  // namespace vt
