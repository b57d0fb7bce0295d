#include "music/hauteur.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "transformee_fourier.h"

namespace vt {

namespace {

// A peak is taken when it reaches this share of the highest one: the first
// period that is nearly as strong as the best wins over its multiples.
constexpr double kPartCrête = 0.9;
// The measure across several periods keeps to lags where at least half the
// frame overlaps itself, and to peaks nearly as clear as the first.
constexpr double kPartMultiple = 0.8;
// The fundamental partial is looked for this close to the period's pitch.
constexpr double kEcartPartielleCents = 30;
// A partial this far above the noise in its bin (15 dB) can be measured.
constexpr double kAuDessusDuBruit = 31.6;

double cents(double a, double b) {
  return 1200 * std::log2(a / b);
}

}  // namespace

int tailleTrameAccordeur(int fréquence) {
  // About 170 ms: the fundamental of the lowest string stands clear of its
  // second harmonic within three quarters of it.
  int n = 1024;
  while (n < 0.15 * fréquence)
    n *= 2;
  return n;
}

DétecteurHauteur::DétecteurHauteur(const RéglagesHauteur& r) : m_r(r) {
  m_r.taille = std::max(m_r.taille, 64);
  m_r.fréquence = std::max(m_r.fréquence, 1000);
  const double fs = m_r.fréquence;
  m_tauMin = std::max(2, static_cast<int>(std::floor(fs / std::max(m_r.hzMax, 1.0))) - 1);
  m_tauMax =
      std::min(static_cast<int>(std::ceil(fs / std::max(m_r.hzMin, 1.0))) + 2, m_r.taille * 3 / 4);
  m_tauMax = std::max(m_tauMax, m_tauMin + 2);
  // The measure across several periods looks as far as half the frame.
  m_tauCalcul = std::min(std::max(m_tauMax, m_r.taille / 2) + 2, m_r.taille - 1);
  const std::size_t n = puissanceDeDeux(2 * static_cast<std::size_t>(m_r.taille));
  m_fft = std::make_unique<TransforméeFourier>(n);
  m_spectre.resize(n);
  m_spectre2.resize(n);
  m_nsdf.resize(static_cast<std::size_t>(m_r.taille));
  const std::size_t L = static_cast<std::size_t>(m_r.taille - m_r.taille / 4);
  m_fenêtre.resize(L);
  // Blackman-Harris: its side lobes (-92 dB) keep a second harmonic 20 dB
  // louder than the fundamental out of the fundamental's phase.
  for (std::size_t i = 0; i < L; ++i) {
    const double a = 2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(L - 1);
    m_fenêtre[i] =
        0.35875 - 0.48829 * std::cos(a) + 0.14128 * std::cos(2 * a) - 0.01168 * std::cos(3 * a);
  }
}

DétecteurHauteur::~DétecteurHauteur() = default;

Hauteur DétecteurHauteur::analyse(std::span<const float> trame) {
  Hauteur h;
  const std::size_t N = static_cast<std::size_t>(m_r.taille);
  if (trame.size() < N) return h;
  trame = trame.subspan(trame.size() - N);

  double moyenne = 0;
  for (float v : trame)
    moyenne += v;
  moyenne /= static_cast<double>(N);
  double énergie = 0;
  for (std::size_t i = 0; i < N; ++i) {
    const double v = trame[i] - moyenne;
    m_spectre[i] = {v, 0.0};
    énergie += v * v;
  }
  std::fill(m_spectre.begin() + static_cast<std::ptrdiff_t>(N), m_spectre.end(),
            std::complex<double>{});
  h.niveau = std::sqrt(énergie / static_cast<double>(N));
  // NaN and infinity from a damaged input fail this test too.
  if (!(h.niveau >= m_r.niveauMin) || !std::isfinite(h.niveau)) return h;

  nsdf(trame, moyenne, énergie);
  const int tau = périodeMcLeod();
  if (tau == 0) return h;
  double valeur = 0;
  double période = crête(tau, valeur);
  h.clarté = std::min(valeur, 1.0);
  if (h.clarté < m_r.clartéMin) return h;
  période = affine(période, valeur);

  spectres(trame, moyenne);
  const double hz = partielle(m_r.fréquence / période);
  if (hz < m_r.hzMin * 0.97 || hz > m_r.hzMax * 1.03) return h;
  h.hz = hz;
  return h;
}

// The normalised square difference: 2 r(tau) / m(tau), r through the power
// spectrum, m (the energy of the two overlapping parts) by taking away the
// samples that leave the overlap.
void DétecteurHauteur::nsdf(std::span<const float> trame, double moyenne, double énergie) {
  const std::size_t N = static_cast<std::size_t>(m_r.taille);
  m_fft->directe(m_spectre);
  for (auto& c : m_spectre)
    c = {std::norm(c), 0.0};
  m_fft->inverse(m_spectre);
  const double échelle = 1.0 / static_cast<double>(m_fft->taille());
  const auto carré = [&](std::size_t i) {
    const double v = trame[i] - moyenne;
    return v * v;
  };
  double m = 2 * énergie;
  for (std::size_t tau = 0; tau <= static_cast<std::size_t>(m_tauCalcul); ++tau) {
    if (tau > 0) m -= carré(tau - 1) + carré(N - tau);
    const double r = m_spectre[tau].real() * échelle;
    m_nsdf[tau] = m > 1e-12 ? 2 * r / m : 0.0;
  }
}

// The highest point of each positive lobe after the one at lag 0; the first
// of them that is nearly as high as the highest. 0 when there is none.
int DétecteurHauteur::périodeMcLeod() const {
  const auto n = [&](int t) { return m_nsdf[static_cast<std::size_t>(t)]; };
  struct Clé {
    int tau;
    double valeur;
  };
  Clé clés[64];
  int nClés = 0;
  double meilleure = 0;
  int tau = 1;
  while (tau <= m_tauMax && n(tau) > 0)
    ++tau;
  while (tau <= m_tauMax && nClés < 64) {
    while (tau <= m_tauMax && n(tau) <= 0)
      ++tau;
    if (tau > m_tauMax) break;
    // A lobe that starts within the range may end past it, as far as the
    // NSDF goes; one cut off by its end has no peak to trust.
    int haut = -1;
    double hautV = 0;
    while (tau < m_tauCalcul && n(tau) > 0) {
      if (tau >= m_tauMin && tau <= m_tauMax && n(tau) > hautV) {
        hautV = n(tau);
        haut = tau;
      }
      ++tau;
    }
    if (haut > 0 && tau < m_tauCalcul && n(haut + 1) <= hautV) {
      clés[nClés++] = {haut, hautV};
      meilleure = std::max(meilleure, hautV);
    }
  }
  for (int i = 0; i < nClés; ++i)
    if (clés[i].valeur >= kPartCrête * meilleure) return clés[i].tau;
  return 0;
}

// The vertex of the parabola through the peak and its two neighbours.
double DétecteurHauteur::crête(int tau, double& valeur) const {
  const auto n = [&](int t) { return m_nsdf[static_cast<std::size_t>(t)]; };
  const double a = n(tau - 1), b = n(tau), c = n(tau + 1);
  const double d = a - 2 * b + c;
  if (d >= 0) {
    valeur = b;
    return tau;
  }
  const double delta = std::clamp(0.5 * (a - c) / d, -0.5, 0.5);
  valeur = b - 0.25 * (a - c) * delta;
  return tau + delta;
}

// The period measured again over 2, 4, 8... periods, each step from the last,
// so that the search window stays well inside one period.
double DétecteurHauteur::affine(double tau0, double valeur) const {
  const int limite = std::min(m_r.taille / 2, m_tauCalcul - 2);
  double tau = tau0;
  for (int k = 2; k * tau <= limite; k *= 2) {
    const double attendu = k * tau;
    const int largeur = std::max(2, static_cast<int>(tau / 4));
    const int début = std::max(2, static_cast<int>(std::lround(attendu)) - largeur);
    const int fin = std::min(limite, static_cast<int>(std::lround(attendu)) + largeur);
    int haut = début;
    for (int t = début; t <= fin; ++t)
      if (m_nsdf[static_cast<std::size_t>(t)] > m_nsdf[static_cast<std::size_t>(haut)]) haut = t;
    if (haut == début || haut == fin) break;
    double v = 0;
    const double tk = crête(haut, v);
    if (v < kPartMultiple * valeur) break;
    tau = tk / k;
  }
  return tau;
}

// Two Blackman-Harris windows of three quarters of the frame, at its start
// and a quarter later, into the two spectra (up to half the sampling rate):
// one transform of the first plus i times the second, taken apart by symmetry.
void DétecteurHauteur::spectres(std::span<const float> trame, double moyenne) {
  const std::size_t N = static_cast<std::size_t>(m_r.taille);
  const std::size_t L = m_fenêtre.size();
  const std::size_t M = m_fft->taille();
  auto& z = m_spectre2;
  for (std::size_t i = 0; i < L; ++i)
    z[i] = {(trame[i] - moyenne) * m_fenêtre[i], (trame[N - L + i] - moyenne) * m_fenêtre[i]};
  std::fill(z.begin() + static_cast<std::ptrdiff_t>(L), z.end(), std::complex<double>{});
  m_fft->directe(z);
  for (std::size_t k = 0; k <= M / 2; ++k) {
    const std::complex<double> a = z[k];
    const std::complex<double> b = std::conj(z[(M - k) % M]);
    m_spectre[k] = 0.5 * (a + b);
    z[k] = std::complex<double>(0, -0.5) * (a - b);
  }
}

// The loudest bin within `cents` of `hz` in the first spectrum, and its
// magnitude; 0 when the range leaves the spectrum.
std::size_t DétecteurHauteur::binPlusFort(double hz, double écartCents, double& magnitude) const {
  const double parBin = static_cast<double>(m_fft->taille()) / m_r.fréquence;
  const auto bas = static_cast<std::size_t>(
      std::max(1.0, std::floor(hz * std::exp2(-écartCents / 1200) * parBin)));
  const auto haut = static_cast<std::size_t>(std::ceil(hz * std::exp2(écartCents / 1200) * parBin));
  magnitude = 0;
  if (haut + 1 >= m_fft->taille() / 2) return 0;
  std::size_t k = 0;
  for (std::size_t j = bas; j <= haut; ++j) {
    const double a = std::abs(m_spectre[j]);
    if (a > magnitude) {
      magnitude = a;
      k = j;
    }
  }
  return k;
}

// The frequency of the fundamental partial itself, near `hz`: the advance of
// its phase between the two windows. The period of the whole waveform is
// pulled sharp by the upper partials of a string, which lie a little above
// the harmonic series; the ear, and a tuner, go by the fundamental. Only when
// the fundamental is lost in the noise (a small microphone hears little of a
// bass string) does the second partial stand in for it, halved.
double DétecteurHauteur::partielle(double hz) const {
  double m1 = 0, m2 = 0;
  const double plancher = plancherDeBruit(hz);
  const double f1 = phaseDePartielle(hz, m1);
  if (f1 > 0 && m1 * m1 >= kAuDessusDuBruit * plancher) return f1;
  const double f2 = phaseDePartielle(2 * hz, m2);
  if (f2 > 0 && m2 * m2 >= kAuDessusDuBruit * plancher) return f2 / 2;
  return f1 > 0 ? f1 : hz;
}

// The power of the noise in one bin: the median of the bins up to the eighth
// harmonic, which a harmonic sound leaves to the noise.
double DétecteurHauteur::plancherDeBruit(double hz) const {
  const std::size_t fin = std::min(
      m_fft->taille() / 2,
      static_cast<std::size_t>(8 * hz * static_cast<double>(m_fft->taille()) / m_r.fréquence) + 2);
  m_puissances.clear();
  for (std::size_t j = 1; j < fin; ++j)
    m_puissances.push_back(std::norm(m_spectre[j]));
  if (m_puissances.empty()) return 0;
  auto milieu = m_puissances.begin() + static_cast<std::ptrdiff_t>(m_puissances.size() / 2);
  std::nth_element(m_puissances.begin(), milieu, m_puissances.end());
  return *milieu;
}

// The frequency of the partial near `hz` by its phase advance, and its
// magnitude; 0 when no peak stands there.
double DétecteurHauteur::phaseDePartielle(double hz, double& magnitude) const {
  const std::size_t k = binPlusFort(hz, kEcartPartielleCents, magnitude);
  if (k < 2 || magnitude <= 0) return 0;
  const double a0 = std::abs(m_spectre[k - 1]), c0 = std::abs(m_spectre[k + 1]);
  if (a0 > magnitude || c0 > magnitude) return 0;
  // Where the peak lies between bins (a parabola through the logarithms),
  // close enough to tell which turn of the phase is the right one.
  const double a = std::log(a0 + 1e-300);
  const double b = std::log(magnitude);
  const double c = std::log(c0 + 1e-300);
  const double d = a - 2 * b + c;
  const double delta = d < 0 ? std::clamp(0.5 * (a - c) / d, -0.5, 0.5) : 0.0;
  const double fPic =
      (static_cast<double>(k) + delta) * m_r.fréquence / static_cast<double>(m_fft->taille());

  const double H = static_cast<double>(m_r.taille / 4);
  const double avance = std::arg(m_spectre2[k] * std::conj(m_spectre[k]));
  const double attendue = 2 * std::numbers::pi * fPic * H / m_r.fréquence;
  const double écart = std::remainder(avance - attendue, 2 * std::numbers::pi);
  const double f = fPic + écart * m_r.fréquence / (2 * std::numbers::pi * H);
  if (!std::isfinite(f) || std::abs(cents(f, hz)) > kEcartPartielleCents) return 0;
  return f;
}

std::vector<TrameHauteur> hauteursDesTrames(std::span<const float> son, int fréquence) {
  RéglagesHauteur r;
  r.fréquence = fréquence;
  r.taille = tailleTrameAccordeur(fréquence);
  DétecteurHauteur d(r);
  const std::size_t N = static_cast<std::size_t>(r.taille);
  const std::size_t pas = N / 4;
  std::vector<TrameHauteur> trames;
  std::vector<float> trame(N);
  for (std::size_t début = 0;; début += pas) {
    const std::size_t n = std::min(N, son.size() - std::min(début, son.size()));
    std::copy_n(son.begin() + static_cast<std::ptrdiff_t>(début), n, trame.begin());
    std::fill(trame.begin() + static_cast<std::ptrdiff_t>(n), trame.end(), 0.0f);
    trames.push_back({static_cast<double>(début) / r.fréquence, d.analyse(trame)});
    if (début + N >= son.size()) break;
  }
  return trames;
}

double hauteurMédiane(const std::vector<TrameHauteur>& trames) {
  std::vector<double> hz;
  for (const TrameHauteur& t : trames)
    if (t.hauteur.voisée()) hz.push_back(t.hauteur.hz);
  if (hz.empty()) return 0;
  std::sort(hz.begin(), hz.end());
  const std::size_t m = hz.size() / 2;
  return hz.size() % 2 == 1 ? hz[m] : (hz[m - 1] + hz[m]) / 2;
}

}  // namespace vt
