// Helpers of the file tests: bytes built by hand, documents built through the
// document's own operations, and the comparison of what a file stores.
#pragma once

#include <cstdint>
#include <filesystem>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "document/tablature.h"
#include "formats/catalogue.h"
#include "formats/vtb.h"

namespace vt::test {

// The data files shipped with the program, copied beside the test binaries.
inline std::filesystem::path dossierDonnées() {
  return std::filesystem::read_symlink("/proc/self/exe").parent_path();
}

// Bytes written field by field, big-endian, as the tables of the format give them.
struct Octets {
  std::vector<std::uint8_t> v;
  Octets& b(int x) {
    v.push_back(static_cast<std::uint8_t>(x));
    return *this;
  }
  Octets& bs(std::initializer_list<int> xs) {
    for (int x : xs)
      b(x);
    return *this;
  }
  Octets& be16(int x) { return b(x >> 8).b(x); }
  Octets& be32(std::uint32_t x) {
    return b(static_cast<int>(x >> 24))
        .b(static_cast<int>(x >> 16))
        .b(static_cast<int>(x >> 8))
        .b(static_cast<int>(x));
  }
  Octets& raw(std::string_view s) {
    v.insert(v.end(), s.begin(), s.end());
    return *this;
  }
  Octets& str(std::string_view s) { return b(static_cast<int>(s.size())).raw(s); }
};

// A small catalogue: standard tuning, drop D, a four-string bass, a
// seven-string guitar, and the standard tuning again with 19 frets.
inline constexpr const char* kCatalogueTest =
    "[Accordeur]\nnbrGuitares=5\n"
    "[1]\nnom=Guitare standard\nnomEN=Standard guitar\nnbrCordes=6\nnbrCases=24\n"
    "corde1=64\ncorde2=59\ncorde3=55\ncorde4=50\ncorde5=45\ncorde6=40\ncapodastre=0\n"
    "[2]\nnom=Guitare drop D\nnomEN=Drop D guitar\nnbrCordes=6\nnbrCases=24\n"
    "corde1=64\ncorde2=59\ncorde3=55\ncorde4=50\ncorde5=45\ncorde6=38\ncapodastre=0\n"
    "[3]\nnom=Basse\nnomEN=Bass\nnbrCordes=4\nnbrCases=20\n"
    "corde1=43\ncorde2=38\ncorde3=33\ncorde4=28\ncapodastre=0\n"
    "[4]\nnom=Guitare 7 cordes\nnomEN=Seven-string\nnbrCordes=7\nnbrCases=24\n"
    "corde1=64\ncorde2=59\ncorde3=55\ncorde4=50\ncorde5=45\ncorde6=40\ncorde7=35\ncapodastre=0\n"
    "[5]\nnom=Guitare classique\nnomEN=Classical guitar\nnbrCordes=6\nnbrCases=19\n"
    "corde1=64\ncorde2=59\ncorde3=55\ncorde4=50\ncorde5=45\ncorde6=40\ncapodastre=0\n";

inline const CatalogueGuitares& catalogueTest() {
  static const CatalogueGuitares c = CatalogueGuitares::fromText(kCatalogueTest);
  return c;
}

// An instrument that no catalogue of the tests knows.
inline tGuitare guitareInconnue() {
  tGuitare g;
  g.nom = "Mystery";
  g.nbrCordes = 5;
  g.nbrCases = 17;
  g.corde = {0, 70, 65, 60, 55, 50, 0, 0};
  g.capodastre = 2;
  return g;
}

inline VtbContexte contexte(const tGuitare& guitare = guitareInconnue(), int setLang = 10000) {
  VtbContexte c;
  c.catalogue = &catalogueTest();
  c.guitare = guitare;
  c.bytPatch = 25;
  c.setLang = setLang;
  return c;
}

// What a file stores of a document: everything but the editing state
// (cursor, selection, markers, undo), the balance, the reserved byte of notes
// and the open strings past the string count.
inline CVantoroTablature contenuStocké(const CVantoroTablature& d) {
  CVantoroTablature n;
  n.tempo = d.tempo;
  n.titre = d.titre;
  n.Auteur = d.Auteur;
  n.Copy = d.Copy;
  n.SousTitre = d.SousTitre;
  n.Comments = d.Comments;
  n.setTripleFeel(d.TripleFeel() != kFaux ? kVrai : kFaux);
  while (n.getPisteLast() < d.getPisteLast())
    n.addPiste(n.getPisteLast(), tGuitare{});
  while (n.getMesureLast() < d.getMesureLast())
    n.addMesure();
  for (int m = 1; m <= d.getMesureLast(); ++m)
    n.mesure(m) = d.mesure(m);
  for (int p = 1; p <= d.getPisteLast(); ++p) {
    tPiste piste = d.piste(p);
    piste.bytBalance = 64;
    for (int c = piste.bytNbrCordes + 1; c <= kMaxCordes; ++c)
      piste.bytCordes[static_cast<std::size_t>(c)] = 0;
    piste.boolPlaySolo = piste.boolPlaySolo != kFaux ? kVrai : kFaux;
    piste.boolPlayMute = piste.boolPlayMute != kFaux ? kVrai : kFaux;
    for (tPisteMesure& pm : piste.tabMesures)
      for (auto& notes : pm.tabCordes)
        for (tNote& note : notes)
          note.bytReserve = 0;
    n.piste(p) = std::move(piste);
  }
  return n;
}

inline tGuitare guitare(std::initializer_list<int> cordes, int cases = 24, std::string nom = {}) {
  tGuitare g;
  g.nom = std::move(nom);
  g.nbrCordes = static_cast<byt>(cordes.size());
  g.nbrCases = static_cast<byt>(cases);
  g.corde.fill(0);
  int i = 1;
  for (int c : cordes)
    g.corde[static_cast<std::size_t>(i++)] = static_cast<byt>(c);
  g.capodastre = 0;
  return g;
}

// A document that uses every field the file stores, small enough to cut at
// every byte: two tracks (six and four strings), three bars of different
// signatures, tempos, bar lines, chords, texts in both lists, notes with
// attacks, nuances and effects, a blank note, texts with accents.
inline CVantoroTablature documentRiche() {
  CVantoroTablature d(guitare({64, 59, 55, 50, 45, 40}, 24, "Guitare"));
  d.titre = "Caf\xE9 \x80 blues";  // "Café € blues" in Windows-1252
  d.Auteur = "A. Auteur";
  d.Copy = "(c) 2024";
  d.SousTitre = "sous-titre";
  d.Comments = "line 1\r\nline 2";
  d.tempo = 96;
  d.setTripleFeel(kVrai);
  d.addPiste(1, guitare({43, 38, 33, 28}, 20, "Basse"), 33);
  d.addMesure();
  d.addMesure();
  d.setMesureSignature(2, 3, 4);
  d.setMesureSignature(3, 6, 8);
  d.setMesureTonalitéDétails(2, -3, kFaux);
  d.setMesureLoopGaucheType(2, barre::kRepetition);
  d.setMesureLoopDroiteType(2, barre::kRepetition);
  d.setMesureLoopDroiteData(2, 3);
  d.setMesureLoopDroiteType(3, barre::kFinale);
  d.setMesureTempo(1, 0, 96);
  d.setMesureTempo(1, 96, 120);
  d.setMesureTempo(3, 72, 255);

  d.setPisteNom(1, "Lead \xE9");
  d.setMIDIBank(1, 5);
  d.setMIDIPatch(1, 30);
  d.setMIDIPan(1, 10);
  d.setMIDIReverb(1, 20);
  d.setMIDITremolo(1, 30);
  d.setMIDIChorus(1, 40);
  d.setMIDIPhaser(1, 50);
  d.setPistePlaySolo(1, kVrai);
  d.setPisteNom(2, "Bass");
  d.setPortéeClef(2, 2);
  d.setStaffType(2, kStaffBatterie);
  d.setPistePlayMute(2, kVrai);
  d.setMIDIBank(2, -2);

  int n = d.setNoteWhole(1, 1, 1, 0, 12, 48);
  d.setNoteAttaque(1, 1, 1, n, attaque::kPalmMute);
  d.setNoteVolume(1, 1, 1, n, nuance::kMF);
  d.setNoteEffet(1, 1, 1, n, effet::kBendUp);
  n = d.setNoteWhole(1, 1, 1, 48, 14, 24);
  d.setNoteVolume(1, 1, 1, n, nuance::kFFF);
  n = d.setNoteWhole(1, 1, 3, 0, kCaseVide, 96);
  d.setNoteEffet(1, 1, 3, n, effet::kVibrato);
  n = d.setNoteWhole(1, 2, 6, 100, 3, 44);
  d.setNoteVolume(1, 2, 6, n, nuance::kP);
  n = d.setNoteWhole(2, 3, 4, 0, 0, 72);
  d.setNoteAttaque(2, 3, 4, n, attaque::kSlap);
  d.setNoteVolume(2, 3, 4, n, nuance::kFF);

  OneBased<byt> frettes(6, kCaseVide);
  frettes[2] = 1;
  frettes[4] = 2;
  frettes[5] = 3;
  const int a = d.addandplaceMesureAccord(1, 1, 0);
  d.setMesureAccord(1, 1, a, "C", frettes);
  const int a2 = d.addandplaceMesureAccord(1, 1, 96);
  d.setMesureAccordNom(1, 1, a2, "Am7\xB0");
  d.setMesureTexte(1, 1, 0, "intro", kVrai);
  d.setMesureTexte(1, 1, 48, "", kVrai);
  d.setMesureTexte(1, 2, 10, "doucement", kFaux);
  d.setMesureTexte(2, 3, 0, "\x81\x8D\x8F\x90\x9D", kVrai);
  return d;
}

// A document made by a random walk through the document's operations.
inline CVantoroTablature documentAléatoire(std::uint32_t graine) {
  std::mt19937 g(graine);
  const auto au = [&](int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(g); };
  const auto texte = [&](int max) {
    std::string s(static_cast<std::size_t>(au(0, max)), '\0');
    for (char& c : s)
      c = static_cast<char>(au(0, 255));
    return s;
  };
  const auto instrument = [&] {
    tGuitare t;
    t.nom = texte(20);
    t.nbrCordes = static_cast<byt>(au(1, 7));
    t.corde.fill(0);
    for (int c = 1; c <= t.nbrCordes; ++c)
      t.corde[static_cast<std::size_t>(c)] = static_cast<byt>(au(20, 80));
    t.nbrCases = static_cast<byt>(au(0, 255));
    t.capodastre = static_cast<byt>(au(0, 255));
    return t;
  };
  CVantoroTablature d(instrument(), static_cast<byt>(au(0, 127)));
  d.titre = texte(255);
  d.Auteur = texte(255);
  d.Copy = texte(40);
  d.SousTitre = texte(40);
  d.Comments = texte(255);
  d.tempo = static_cast<byt>(au(0, 255));
  d.setTripleFeel(toVbool(au(0, 1) != 0));
  const int pistes = au(1, 4);
  while (d.getPisteLast() < pistes)
    d.addPiste(au(0, d.getPisteLast()), instrument(), static_cast<byt>(au(0, 127)));
  const int mesures = au(1, 10);
  static constexpr int kSignatures[][2] = {{4, 4}, {3, 4},  {6, 8}, {7, 8},
                                           {5, 4}, {12, 8}, {2, 2}, {9, 16}};
  while (d.getMesureLast() < mesures)
    d.addMesure();
  for (int m = 1; m <= mesures; ++m) {
    const auto& sig = kSignatures[au(0, 7)];
    d.setMesureSignature(m, sig[0], sig[1]);
    d.setMesureTonalité(m, static_cast<byt>(au(0, 255)));
    d.setMesureLoopGaucheType(m, static_cast<byt>(au(0, 3)));
    d.setMesureLoopGaucheData(m, static_cast<byt>(au(0, 255)));
    d.setMesureLoopDroiteType(m, static_cast<byt>(au(0, 3)));
    d.setMesureLoopDroiteData(m, static_cast<byt>(au(0, 255)));
    for (int t = au(0, 4); t > 0; --t)
      d.setMesureTempo(m, au(0, d.getMesureLargeur(m) - 1), static_cast<byt>(au(0, 255)));
  }
  for (int p = 1; p <= pistes; ++p) {
    d.setPisteNom(p, texte(30));
    d.setMIDIBank(p, static_cast<lng>(g()));
    d.setMIDIPatch(p, static_cast<byt>(au(0, 255)));
    d.setMIDIPan(p, static_cast<byt>(au(0, 255)));
    d.setMIDIReverb(p, static_cast<byt>(au(0, 255)));
    d.setMIDITremolo(p, static_cast<byt>(au(0, 255)));
    d.setMIDIChorus(p, static_cast<byt>(au(0, 255)));
    d.setMIDIPhaser(p, static_cast<byt>(au(0, 255)));
    d.setPortéeClef(p, static_cast<byt>(au(0, 255)));
    d.setStaffType(p, static_cast<byt>(au(0, 1)));
    d.setPistePlaySolo(p, toVbool(au(0, 1) != 0));
    d.setPistePlayMute(p, toVbool(au(0, 1) != 0));
    const int s = d.getGuitareNbrCordes(p);
    for (int m = 1; m <= mesures; ++m) {
      const int largeur = d.getMesureLargeur(m);
      for (int k = au(0, 12); k > 0; --k) {
        const int c = au(1, s);
        const int n = d.setNoteWhole(p, m, c, au(0, largeur - 1),
                                     au(0, 3) == 0 ? kCaseVide : au(0, 24), au(1, 192));
        d.setNoteAttaque(p, m, c, n, static_cast<byt>(au(0, 11)));
        d.setNoteVolume(p, m, c, n, nuance::fromLevel(au(1, 8)));
        d.setNoteEffet(p, m, c, n, static_cast<byt>(au(0, 27)));
      }
      for (int k = au(0, 2); k > 0; --k) {
        const int a = d.addandplaceMesureAccord(p, m, au(0, largeur - 1));
        OneBased<byt> frettes(s);
        for (byt& f : frettes)
          f = au(0, 2) == 0 ? kCaseVide : static_cast<byt>(au(0, 24));
        d.setMesureAccord(p, m, a, texte(12), frettes);
      }
      for (int k = au(0, 3); k > 0; --k)
        d.setMesureTexte(p, m, au(0, largeur - 1), texte(255), toVbool(au(0, 1) != 0));
    }
  }
  return d;
}

}  // namespace vt::test
