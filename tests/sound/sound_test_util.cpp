#include "sound_test_util.h"

#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <fstream>

#include "music/hauteur.h"

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

double hzEntre(const std::vector<float>& son, int sampleRate, double débutMs, double finMs) {
  return hauteurMédiane(hauteursDesTrames(tranche(son, sampleRate, débutMs, finMs), sampleRate));
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
