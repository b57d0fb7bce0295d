// The tuner's pitch detector, listening to notes the built-in synthesizer
// renders into WAV files, read back as the command line reads them.
//
// The truth a note is held to is the pitch the synthesizer sounds: the
// SoundFont's samples lie up to 12 cents off their nominal pitch, so each note
// is measured again over its whole sustained stretch by another method (the
// peak of its fundamental in a finely stepped spectrum of 600 ms). The notes
// are rendered dry, as a microphone close to the instrument hears them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <filesystem>
#include <numbers>
#include <random>

#include "music/accordage.h"
#include "music/hauteur.h"
#include "sound/lecture_wav.h"
#include "sound/midi_out.h"
#include "sound/rendu_hors_ligne.h"

namespace vt {
namespace {

namespace fs = std::filesystem;

constexpr double kNoteMs = 900;   // each note's place in the file
constexpr double kDébutMs = 250;  // the sustained stretch measured
constexpr double kFinMs = 850;
constexpr double kTolérance = 2;  // cents

struct Note {
  int midi = 0;
  int bend = 0;  // steps of the pitch wheel from the middle; 8192 is two semitones
};

// The notes one after the other on one program, as a WAV file read back.
SonLu rendEtLit(int programme, const std::vector<Note>& notes, const std::string& nom) {
  MessagesDates m;
  for (std::size_t i = 0; i < notes.size(); ++i) {
    const double t = static_cast<double>(i) * kNoteMs;
    const int roue = 8192 + notes[i].bend;
    const auto note = static_cast<std::uint8_t>(notes[i].midi);
    m.push_back({t, midiPack(0xC0, static_cast<std::uint8_t>(programme))});
    m.push_back({t, midiPack(0xE0, roue & 0x7F, static_cast<std::uint8_t>(roue >> 7))});
    m.push_back({t + 1, midiPack(0x90, note, 100)});
    m.push_back({t + kNoteMs - 60, midiPack(0x80, note, 0)});
  }
  OptionsRendu o;
  o.traîneMs = 50;
  o.effets = false;
  const fs::path fichier = fs::temp_directory_path() / ("vantoro-hauteur-" + nom + ".wav");
  const RésultatWav w = rendreWav(m, fichier.string(), o);
  EXPECT_TRUE(w.ok) << (w.messages.empty() ? "" : w.messages.front().détail);
  SonLu lu = lireFichierWav(fichier.string());
  fs::remove(fichier);
  return lu;
}

std::span<const float> tranche(const SonLu& son, std::size_t note) {
  const auto trame = [&](double ms) {
    return std::min(son.mono.size(), static_cast<std::size_t>(ms * son.fréquence / 1000.0));
  };
  const double t = static_cast<double>(note) * kNoteMs;
  const std::size_t a = trame(t + kDébutMs), b = trame(t + kFinMs);
  return std::span<const float>(son.mono).subspan(a, b - a);
}

// The fundamental's frequency within 60 cents of `près`: the magnitude of the
// Hann-windowed spectrum, stepped every 5 cents, then narrowed down.
double partielleDeRéférence(std::span<const float> x, int fs, double près) {
  const std::size_t n = x.size();
  std::vector<double> fenêtrée(n);
  for (std::size_t i = 0; i < n; ++i)
    fenêtrée[i] = x[i] * (0.5 - 0.5 * std::cos(2 * std::numbers::pi * double(i) / double(n - 1)));
  const auto magnitude = [&](double cents) {
    const double f = près * std::exp2(cents / 1200);
    const std::complex<double> pas = std::polar(1.0, -2 * std::numbers::pi * f / fs);
    std::complex<double> rot = 1, somme = 0;
    for (double v : fenêtrée) {
      somme += v * rot;
      rot *= pas;
    }
    return std::abs(somme);
  };
  double meilleure = -60, haut = 0;
  for (double c = -60; c <= 60; c += 5)
    if (const double m = magnitude(c); m > haut) haut = m, meilleure = c;
  double a = meilleure - 5, b = meilleure + 5;
  while (b - a > 0.01) {
    const double m1 = a + (b - a) / 3, m2 = b - (b - a) / 3;
    if (magnitude(m1) < magnitude(m2)) {
      a = m1;
    } else {
      b = m2;
    }
  }
  return près * std::exp2((a + b) / 2400);
}

struct Lecture {
  double médiane = 0;    // cents from the truth
  double pireÉcart = 0;  // the largest of any voiced frame, cents
  int voisées = 0;
  int trames = 0;
};

// The detector's frames over a stretch, as the tuner takes them.
Lecture lis(std::span<const float> x, int fs, double vraie) {
  RéglagesHauteur r;
  r.fréquence = fs;
  r.taille = tailleTrameAccordeur(fs);
  DétecteurHauteur d(r);
  const auto N = static_cast<std::size_t>(r.taille);
  std::vector<double> écarts;
  Lecture l;
  for (std::size_t s = 0; s + N <= x.size(); s += N / 4) {
    ++l.trames;
    const Hauteur h = d.analyse(x.subspan(s, N));
    if (!h.voisée()) continue;
    écarts.push_back(1200 * std::log2(h.hz / vraie));
    l.pireÉcart = std::max(l.pireÉcart, std::abs(écarts.back()));
  }
  l.voisées = static_cast<int>(écarts.size());
  if (!écarts.empty()) {
    std::nth_element(écarts.begin(), écarts.begin() + long(écarts.size() / 2), écarts.end());
    l.médiane = écarts[écarts.size() / 2];
  }
  return l;
}

// White noise at `snr` dB below the stretch's own level, always the same.
std::vector<float> bruitée(std::span<const float> x, double snr) {
  double énergie = 0;
  for (float v : x)
    énergie += double(v) * v;
  std::mt19937 g(17);
  std::normal_distribution<double> bruit(
      0, std::sqrt(énergie / double(x.size())) * std::pow(10, -snr / 20));
  std::vector<float> y(x.begin(), x.end());
  for (float& v : y)
    v += static_cast<float>(bruit(g));
  return y;
}

void attendsJuste(const Lecture& l, const char* quoi) {
  SCOPED_TRACE(quoi);
  ASSERT_GT(l.trames, 0);
  EXPECT_GE(l.voisées * 10, l.trames * 8) << "frames without a pitch";
  EXPECT_NEAR(l.médiane, 0, kTolérance);
  // A note a semitone or more off would be a wrong note; an octave, an octave error.
  EXPECT_LT(l.pireÉcart, 50);
}

struct Instrument {
  const char* nom;
  int programme;
  std::vector<int> notes;
};

// Standard, drop D, DADGAD, open G and the seven-string guitar; the basses of
// four and five strings and the bass in drop D; the ukulele and the mandolin.
const std::vector<int> kGuitare = {64, 59, 55, 50, 45, 40, 38, 62, 57, 43, 35};
const std::vector<int> kGuitareUkuléléMandoline = {64, 59, 55, 50, 45, 40, 38, 62,
                                                   57, 43, 35, 69, 60, 67, 76};
const std::vector<int> kBasse = {43, 38, 33, 28, 26, 23};

class CordesAVide : public ::testing::TestWithParam<Instrument> {};

TEST_P(CordesAVide, EveryOpenStringWithinTwoCentsCleanAndUnderNoise) {
  const Instrument& ins = GetParam();
  std::vector<Note> notes;
  for (int n : ins.notes)
    notes.push_back({n, 0});
  const SonLu son = rendEtLit(ins.programme, notes, ins.nom);
  ASSERT_TRUE(son.ok());
  ASSERT_EQ(son.fréquence, kFréquenceRendu);
  for (std::size_t i = 0; i < ins.notes.size(); ++i) {
    SCOPED_TRACE(::testing::Message() << "note " << ins.notes[i]);
    const auto x = tranche(son, i);
    const double vraie = partielleDeRéférence(x, son.fréquence, hzDeMidi(ins.notes[i]));
    attendsJuste(lis(x, son.fréquence, vraie), "clean");
    attendsJuste(lis(bruitée(x, 20), son.fréquence, vraie), "white noise 20 dB below");
  }
}

INSTANTIATE_TEST_SUITE_P(
    Instruments, CordesAVide,
    ::testing::Values(Instrument{"nylon", 24, kGuitare}, Instrument{"jazz", 26, kGuitare},
                      Instrument{"clean", 27, kGuitareUkuléléMandoline},
                      Instrument{"acousticbass", 32, kBasse}, Instrument{"fretless", 35, kBasse}),
    [](const ::testing::TestParamInfo<Instrument>& i) { return std::string(i.param.nom); });

// A bent note is held to the sound and to the known bend: the bent reading
// less the straight one. The synthesizer rounds a pitch to whole cents: the
// bend heard is the bend asked for within one cent, the rest is the detector's.
TEST(HauteurBends, ABentNoteReadsTheBendWithinTwoCents) {
  for (int programme : {24, 27}) {
    std::vector<Note> notes;
    for (int midi : {40, 55, 64})
      for (int b : {0, -512, 1024, 2048})  // 0, -12.5, +25 and +50 cents
        notes.push_back({midi, b});
    const SonLu son = rendEtLit(programme, notes, "bends" + std::to_string(programme));
    ASSERT_TRUE(son.ok());
    double droite = 0;
    for (std::size_t i = 0; i < notes.size(); ++i) {
      const double cents = notes[i].bend * 200.0 / 8192.0;
      SCOPED_TRACE(::testing::Message()
                   << "program " << programme << ", note " << notes[i].midi << ", bend " << cents);
      const auto x = tranche(son, i);
      const double nominale = hzDeMidi(notes[i].midi + cents / 100);
      attendsJuste(lis(x, son.fréquence, partielleDeRéférence(x, son.fréquence, nominale)),
                   "against the sound");
      const double médiane = lis(x, son.fréquence, nominale).médiane;
      if (notes[i].bend == 0) {
        droite = médiane;
      } else {
        EXPECT_NEAR(médiane - droite, 0, kTolérance);
      }
    }
  }
}

// A harmonic tone: partials 1 to 8 falling by 1/k, the fundamental scaled by
// `fondamentale`, decaying slowly as a string does.
std::vector<float> ton(double hz, int fs, double secondes, double fondamentale = 1) {
  std::vector<float> x(static_cast<std::size_t>(secondes * fs));
  for (std::size_t i = 0; i < x.size(); ++i) {
    const double t = double(i) / fs;
    double v = 0;
    for (int k = 1; k <= 8 && k * hz < fs / 2.0; ++k)
      v += (k == 1 ? fondamentale : 1.0) / k * std::sin(2 * std::numbers::pi * k * hz * t + k);
    x[i] = static_cast<float>(0.2 * v * std::exp(-t * 0.8));
  }
  return x;
}

TEST(HauteurExacte, KnownTonesFrom30To1320HzAtCommonRates) {
  const struct {
    double hz;
    int fs;
    double fondamentale;
  } cas[] = {
      {30.87, 44100, 1},  // the low B of a five-string bass
      {41.20, 48000, 1},    {82.41, 44100, 1},  {82.41, 44100, 0.1},  // fundamental 20 dB down
      {82.41, 44100, 0.02}, {98.0, 44100, 0},  // the fundamental nearly or wholly missing
      {110.0, 22050, 1},    {146.83, 96000, 1}, {329.63, 44100, 1},
      {659.26, 48000, 0.3}, {1318.5, 44100, 1},  // the 24th fret of the high E string
      {1318.5, 8000, 1},
  };
  for (const auto& c : cas) {
    SCOPED_TRACE(::testing::Message() << c.hz << " Hz at " << c.fs << " Hz");
    const Lecture l = lis(ton(c.hz, c.fs, 1.0, c.fondamentale), c.fs, c.hz);
    EXPECT_EQ(l.voisées, l.trames);
    EXPECT_NEAR(l.médiane, 0, 0.2);
    EXPECT_LT(l.pireÉcart, 0.5);
  }

  // Silence, noise and damaged samples have no pitch.
  RéglagesHauteur r;
  DétecteurHauteur d(r);
  std::vector<float> x(static_cast<std::size_t>(r.taille), 0.0f);
  EXPECT_FALSE(d.analyse(x).voisée());
  std::mt19937 g(3);
  std::normal_distribution<float> bruit(0, 0.2f);
  for (float& v : x)
    v = bruit(g);
  EXPECT_FALSE(d.analyse(x).voisée()) << "white noise";
  x[100] = std::numeric_limits<float>::quiet_NaN();
  EXPECT_FALSE(d.analyse(x).voisée());
  EXPECT_FALSE(d.analyse(std::span<const float>(x).first(100)).voisée()) << "too short";

  // A file is measured frame by frame: half a second of silence, then a second of A2,
  // the median of the voiced frames is the note's.
  x.assign(22050, 0.0f);
  const auto a = ton(110, 44100, 1.0);
  x.insert(x.end(), a.begin(), a.end());
  const auto trames = hauteursDesTrames(x, 44100);
  ASSERT_EQ(trames.size(), 1 + (x.size() - 8192 + 2047) / 2048);
  EXPECT_DOUBLE_EQ(trames[1].secondes, 2048.0 / 44100);
  EXPECT_FALSE(trames.front().hauteur.voisée());
  EXPECT_TRUE(trames.back().hauteur.voisée());
  EXPECT_NEAR(hauteurMédiane(trames), 110, 0.02);
  // Shorter than a frame: one frame, padded with silence.
  EXPECT_EQ(hauteursDesTrames(std::span<const float>(a).first(1000), 44100).size(), 1u);
  EXPECT_EQ(hauteurMédiane(hauteursDesTrames({}, 44100)), 0);
}

}  // namespace
}  // namespace vt
