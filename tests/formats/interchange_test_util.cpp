#include "interchange_test_util.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>
#include <array>
#include <atomic>
#include <cstdio>
#include <fstream>
#include <memory>
#include <sstream>

namespace vt::test {

int poser(CVantoroTablature& doc, int p, int m, int c, int x, int frette, int durée, int effet,
          int attaque, int volume) {
  const int n = doc.setNoteWhole(p, m, c, x, frette, durée);
  if (n == 0) {
    ADD_FAILURE() << "note refused at " << p << "/" << m << "/" << c << "/" << x;
    return 0;
  }
  doc.setNoteEffet(p, m, c, n, static_cast<byt>(effet));
  doc.setNoteAttaque(p, m, c, n, static_cast<byt>(attaque));
  doc.setNoteVolume(p, m, c, n, static_cast<byt>(volume));
  return n;
}

CVantoroTablature document(int mesures, int pistes) {
  CVantoroTablature doc;
  for (int m = 2; m <= mesures; ++m)
    doc.addMesure();
  for (int p = 2; p <= pistes; ++p)
    doc.addPiste(p - 1, tGuitare{});
  return doc;
}

std::vector<std::string> notes(const CVantoroTablature& doc, int p) {
  std::vector<std::string> out;
  for (int m = 1; m <= doc.getMesureLast(); ++m)
    for (int c = 1; c <= doc.getGuitareNbrCordes(p); ++c)
      for (int n = 1; n <= doc.getNoteLast(p, m, c); ++n)
        out.push_back(std::to_string(m) + ":" + std::to_string(c) + ":" +
                      std::to_string(doc.getNoteX(p, m, c, n)) + ":" +
                      std::to_string(doc.getNoteCase(p, m, c, n)));
  return out;
}

std::vector<Enregistreur::Evt> Enregistreur::deType(WalkEventType t) const {
  std::vector<Evt> r;
  for (const Evt& e : evts)
    if (e.e.type == t) r.push_back(e);
  return r;
}

Enregistreur marcher(const CVantoroTablature& doc, WalkOptions o) {
  WalkInput in = walkInputFromDocument(doc);
  MidiWalk w(in, o);
  Enregistreur r;
  w.run(r);
  return r;
}

std::vector<std::uint8_t> octets(std::initializer_list<int> l) {
  std::vector<std::uint8_t> v;
  for (int b : l)
    v.push_back(static_cast<std::uint8_t>(b));
  return v;
}

std::string hex(std::span<const std::uint8_t> o) {
  static const char* k = "0123456789ABCDEF";
  std::string s;
  for (std::uint8_t b : o) {
    if (!s.empty()) s += ' ';
    s += k[b >> 4];
    s += k[b & 15];
  }
  return s;
}

std::vector<std::uint8_t> deHex(const std::string& s) {
  std::vector<std::uint8_t> v;
  std::istringstream in(s);
  for (std::string paire; in >> paire;)
    v.push_back(static_cast<std::uint8_t>(std::stoi(paire, nullptr, 16)));
  return v;
}

Temporaire::Temporaire(const std::string& nom) {
  static std::atomic<int> compteur{0};
  chemin = std::filesystem::temp_directory_path() /
           ("vt_" + std::to_string(::getpid()) + "_" + std::to_string(compteur++) + "_" + nom);
}

Temporaire::~Temporaire() {
  std::error_code ec;
  std::filesystem::remove(chemin, ec);
}

std::string exécuter(const std::string& commande, int* code) {
  std::string sortie;
  FILE* f = ::popen(commande.c_str(), "r");
  if (f == nullptr) {
    if (code != nullptr) *code = -1;
    return sortie;
  }
  std::array<char, 4096> tampon;
  std::size_t n;
  while ((n = std::fread(tampon.data(), 1, tampon.size(), f)) > 0)
    sortie.append(tampon.data(), n);
  const int statut = ::pclose(f);
  if (code != nullptr) *code = WIFEXITED(statut) ? WEXITSTATUS(statut) : -1;
  return sortie;
}

namespace {
std::string rogner(const std::string& s) {
  const auto a = s.find_first_not_of(' ');
  if (a == std::string::npos) return {};
  return s.substr(a, s.find_last_not_of(' ') - a + 1);
}
}  // namespace

std::vector<std::vector<std::string>> midicsv(std::span<const std::uint8_t> fichier) {
  Temporaire t("listing.mid");
  {
    std::ofstream f(t.chemin, std::ios::binary);
    f.write(reinterpret_cast<const char*>(fichier.data()),
            static_cast<std::streamsize>(fichier.size()));
  }
  int code = 0;
  const std::string sortie = exécuter("midicsv '" + t.chemin.string() + "' 2>&1", &code);
  EXPECT_EQ(code, 0) << sortie;
  std::vector<std::vector<std::string>> lignes;
  std::istringstream in(sortie);
  std::string ligne;
  while (std::getline(in, ligne)) {
    std::vector<std::string> champs;
    std::string champ;
    bool guillemets = false;
    for (char c : ligne) {
      if (c == '"') guillemets = !guillemets;
      if (c == ',' && !guillemets) {
        champs.push_back(rogner(champ));
        champ.clear();
      } else {
        champ += c;
      }
    }
    champs.push_back(rogner(champ));
    lignes.push_back(std::move(champs));
  }
  return lignes;
}

std::vector<std::uint8_t> lireOctets(const std::filesystem::path& p) {
  std::ifstream f(p, std::ios::binary);
  return std::vector<std::uint8_t>((std::istreambuf_iterator<char>(f)),
                                   std::istreambuf_iterator<char>());
}

}  // namespace vt::test
