#include <cassert>

#include "formats/file_io.h"
#include "music/gammes.h"

namespace vt {

namespace {

std::string octetsTexte(std::span<const std::uint8_t> octets) {
  return std::string(octets.begin(), octets.end());
}

bool commencePar(const std::string& texte, std::string_view début) {
  return texte.compare(0, début.size(), début) == 0;
}

}  // namespace

FichierGammes FichierGammes::depuisOctets(std::span<const std::uint8_t> octets) {
  FichierGammes f;
  const std::size_t n = octets.size() / kTailleGamme;
  f.m_gammes.reserve(n);
  for (std::size_t i = 0; i < n; ++i) {
    const auto r = octets.subspan(i * kTailleGamme, kTailleGamme);
    tGamme g;
    for (std::size_t k = 0; k < g.demitons.size(); ++k)
      g.demitons[k] = r[k];
    g.nom = octetsTexte(r.subspan(12, kTailleNomGamme));
    g.nomEN = octetsTexte(r.subspan(12 + kTailleNomGamme, kTailleNomGamme));
    f.m_gammes.push_back(std::move(g));
  }
  f.m_reste = octets.size() % kTailleGamme;
  return f;
}

FichierGammes FichierGammes::load(const std::filesystem::path& fichier) {
  const FileRead lu = readWholeFile(fichier);
  if (!lu.ok()) {
    FichierGammes f;
    f.m_message = lu.message;
    return f;
  }
  return depuisOctets(lu.octets);
}

const tGamme& FichierGammes::gamme(int n) const {
  assert(n >= 1 && n <= count());
  return m_gammes[static_cast<std::size_t>(n - 1)];
}

std::string nomGamme(const tGamme& g, int setLang) {
  std::string s = setLang == 0 ? g.nom : g.nomEN;
  const auto blanc = [](char c) { return c == ' ' || c == '\0'; };
  while (!s.empty() && blanc(s.back()))
    s.pop_back();
  std::size_t début = 0;
  while (début < s.size() && s[début] == ' ')
    ++début;
  s.erase(0, début);
  for (char& c : s) {
    const auto u = static_cast<unsigned char>(c);
    if (u < 0x20 || u == 0x7F) c = '?';
  }
  return s;
}

bool estMode(const tGamme& g) {
  return commencePar(g.nom, "Mode");
}

bool estAccord(const tGamme& g, int setLang) {
  const std::string& nom = setLang == 0 ? g.nom : g.nomEN;
  return commencePar(nom, "Accord") || commencePar(nom, "Chord");
}

}  // namespace vt
