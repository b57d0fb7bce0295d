#include "sound_test_util.h"

#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <fstream>

namespace vt::test {

namespace fs = std::filesystem;

std::vector<float> mono(const std::vector<std::int16_t>& stéréo) {
  std::vector<float> m(stéréo.size() / 2);
  for (std::size_t i = 0; i < m.size(); ++i)
    m[i] = (float(stéréo[2 * i]) + float(stéréo[2 * i + 1])) / 65536.0f;
  return m;
}

std::vector<float> tranche(const std::vector<float>& son, int sampleRate, double débutMs,
                           double finMs) {
  auto trame = [&](double ms) {
    const double t = std::round(ms * sampleRate / 1000.0);
    return std::size_t(std::clamp(t, 0.0, double(son.size())));
  };
  const std::size_t a = trame(débutMs);
  const std::size_t b = std::max(a, trame(finMs));
  return {son.begin() + std::ptrdiff_t(a), son.begin() + std::ptrdiff_t(b)};
}

double frequenceFondamentale(const std::vector<float>& son, int sampleRate) {
  if (sampleRate <= 0) return 0;
  const std::size_t lagMin = std::size_t(sampleRate / 2000);
  const std::size_t lagMax = std::size_t(sampleRate / 40);
  if (son.size() < std::size_t(sampleRate / 20) || son.size() < 2 * lagMax + 2) return 0;
  if (rms(son) < 1e-5) return 0;
  const std::size_t fenêtre = std::min<std::size_t>(son.size() - lagMax - 1, 16384);

  // cmnd(τ): how much the signal differs from itself τ frames later, relative
  // to its mean over the shorter lags.
  std::vector<double> cmnd(lagMax + 2, 1.0);
  double cumul = 0;
  for (std::size_t tau = 1; tau <= lagMax + 1; ++tau) {
    double d = 0;
    for (std::size_t j = 0; j < fenêtre; ++j) {
      const double e = double(son[j]) - double(son[j + tau]);
      d += e * e;
    }
    cumul += d;
    cmnd[tau] = cumul > 0 ? d * double(tau) / cumul : 1.0;
  }

  // The first dip under the threshold, followed down to its bottom; failing
  // that, the deepest dip if it is deep enough to be a pitch at all.
  std::size_t choix = 0;
  for (std::size_t tau = std::max<std::size_t>(lagMin, 2); tau <= lagMax; ++tau) {
    if (cmnd[tau] < 0.15) {
      while (tau + 1 <= lagMax && cmnd[tau + 1] < cmnd[tau])
        ++tau;
      choix = tau;
      break;
    }
  }
  if (choix == 0) {
    auto it = std::min_element(cmnd.begin() + std::ptrdiff_t(std::max<std::size_t>(lagMin, 2)),
                               cmnd.begin() + std::ptrdiff_t(lagMax + 1));
    if (*it > 0.4) return 0;
    choix = std::size_t(it - cmnd.begin());
  }
  // The bottom between two frames, from the parabola through three.
  const double a = cmnd[choix - 1], b = cmnd[choix], c = cmnd[choix + 1];
  const double courbure = a - 2 * b + c;
  const double décalage = courbure > 0 ? std::clamp((a - c) / (2 * courbure), -1.0, 1.0) : 0.0;
  return sampleRate / (double(choix) + décalage);
}

double hzEntre(const std::vector<float>& son, int sampleRate, double débutMs, double finMs) {
  return frequenceFondamentale(tranche(son, sampleRate, débutMs, finMs), sampleRate);
}

double rms(const std::vector<float>& son) {
  if (son.empty()) return 0;
  double s = 0;
  for (float x : son)
    s += double(x) * x;
  return std::sqrt(s / double(son.size()));
}

double crête(const std::vector<float>& son) {
  double m = 0;
  for (float x : son)
    m = std::max(m, double(std::fabs(x)));
  return m;
}

double débutDuSon(const std::vector<float>& son, int sampleRate, float seuil) {
  for (std::size_t i = 0; i < son.size(); ++i) {
    if (std::fabs(son[i]) > seuil) return double(i) * 1000.0 / sampleRate;
  }
  return -1;
}

void Dossier::SetUp() {
  dossier =
      fs::temp_directory_path() / ("vt-son-" + std::to_string(::getpid()) + "-" +
                                   ::testing::UnitTest::GetInstance()->current_test_info()->name());
  fs::remove_all(dossier);
  fs::create_directories(dossier);
}

std::string Dossier::fichier(const std::string& nom, const std::string& contenu) const {
  std::ofstream(dossier / nom) << contenu;
  return (dossier / nom).string();
}

std::vector<std::string> Dossier::contenu() const {
  std::vector<std::string> noms;
  for (const auto& e : fs::directory_iterator(dossier))
    noms.push_back(e.path().filename().string());
  return noms;
}

}  // namespace vt::test
