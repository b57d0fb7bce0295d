// Writing of version 8: the fields in the order of the file, big-endian.
#include <algorithm>
#include <cassert>
#include <string>

#include "document/validate.h"
#include "formats/vtb.h"

namespace vt {

namespace {

// Writes into a buffer sized beforehand to the exact length of the file.
class Sortie {
 public:
  explicit Sortie(std::uint8_t* p) : p_(p) {}
  std::uint8_t* position() const { return p_; }
  void b(int x) { *p_++ = static_cast<std::uint8_t>(x); }
  void be16(int x) {
    b(x >> 8);
    b(x);
  }
  void be32(lng x) {
    const auto u = static_cast<std::uint32_t>(x);
    b(static_cast<int>(u >> 24));
    b(static_cast<int>(u >> 16));
    b(static_cast<int>(u >> 8));
    b(static_cast<int>(u));
  }
  void raw(std::string_view s) {
    std::copy(s.begin(), s.end(), p_);
    p_ += s.size();
  }
  // A length byte and the bytes; the caller has checked the length.
  void str(const std::string& s) {
    b(static_cast<int>(s.size()));
    raw(s);
  }

 private:
  std::uint8_t* p_;
};

// The first text the file cannot hold, described; empty when all fit.
std::string texteTropLong(const CVantoroTablature& doc) {
  const auto long_ = [](const std::string& s) { return s.size() > kMaxTexte; };
  const std::pair<const char*, const std::string*> tête[] = {{"titre", &doc.titre},
                                                             {"Auteur", &doc.Auteur},
                                                             {"Copy", &doc.Copy},
                                                             {"SousTitre", &doc.SousTitre},
                                                             {"Comments", &doc.Comments}};
  for (const auto& [nom, s] : tête)
    if (long_(*s)) return nom;
  for (int p = 1; p <= doc.getPisteLast(); ++p) {
    const tPiste& piste = doc.piste(p);
    const std::string ici = "track " + std::to_string(p);
    if (long_(piste.strNom)) return ici + ": strNom";
    if (long_(piste.strGuitareNom)) return ici + ": strGuitareNom";
    for (int m = 1; m <= piste.tabMesures.last(); ++m) {
      const tPisteMesure& pm = piste.tabMesures[m];
      const std::string là = ici + ", bar " + std::to_string(m);
      for (const tAccord& a : pm.tabAccords)
        if (long_(a.strNom)) return là + ": chord at tick " + std::to_string(a.intX);
      for (const tTexte& t : pm.tabTextesUp)
        if (long_(t.strContenu)) return là + ": upper text at tick " + std::to_string(t.intX);
      for (const tTexte& t : pm.tabTextesDn)
        if (long_(t.strContenu)) return là + ": lower text at tick " + std::to_string(t.intX);
    }
  }
  return {};
}

// The length of the file, to the byte.
std::size_t taille(const CVantoroTablature& doc) {
  std::size_t n = 3 + 1 + 1 + 5 + doc.titre.size() + doc.Auteur.size() + doc.Copy.size() +
                  doc.SousTitre.size() + doc.Comments.size() + 3 + 2 + 4 + 3;
  for (const tMesure& h : doc.mesures())
    n += 8 + 3 * static_cast<std::size_t>(h.tabTempos.last());
  for (const tPiste& piste : doc.pistes()) {
    const std::size_t s = piste.bytNbrCordes;
    n += 4 + 1 + piste.strNom.size() + 1 + piste.strGuitareNom.size() + 1 + s + 2 + 1 + 4 + 11;
    for (const tPisteMesure& pm : piste.tabMesures) {
      n += 3 + s;
      for (const auto& notes : pm.tabCordes)
        n += 7 * static_cast<std::size_t>(notes.last());
      for (const tAccord& a : pm.tabAccords)
        n += 3 + a.strNom.size() + s;
      for (const tTexte& t : pm.tabTextesUp)
        n += 3 + t.strContenu.size();
      for (const tTexte& t : pm.tabTextesDn)
        n += 3 + t.strContenu.size();
    }
  }
  return n;
}

void écrireTexte(Sortie& o, const tTexte& t) {
  o.be16(t.intX);
  o.str(t.strContenu);
}

void écrirePiste(Sortie& o, const tPiste& piste, int p) {
  const int s = piste.bytNbrCordes;
  o.raw("TRK");
  o.b(p);
  o.str(piste.strNom);
  o.str(piste.strGuitareNom);
  o.b(s);
  for (int c = 1; c <= s; ++c)
    o.b(piste.bytCordes[static_cast<std::size_t>(c)]);
  o.b(piste.bytCapodastre);
  o.b(piste.bytNbrCases);
  o.b(p - 1);
  o.be32(piste.lngBank);
  o.b(piste.bytPatch);
  o.b(127);
  o.b(piste.bytPan);
  o.b(piste.bytReverb);
  o.b(piste.bytTremolo);
  o.b(piste.bytChorus);
  o.b(piste.bytPhaser);
  o.b(piste.bytClef);
  o.b(piste.bytStaffType);
  o.b((piste.boolPlaySolo != kFaux ? 1 : 0) | (piste.boolPlayMute != kFaux ? 2 : 0));
  o.b(0);

  for (const tPisteMesure& pm : piste.tabMesures) {
    o.b(pm.tabAccords.last());
    for (const tAccord& a : pm.tabAccords) {
      o.be16(a.intX);
      o.str(a.strNom);
      for (int c = 1; c <= s; ++c)
        o.b(a.tabCordes[c]);
    }
    o.b(pm.tabTextesUp.last());
    for (const tTexte& t : pm.tabTextesUp)
      écrireTexte(o, t);
    o.b(pm.tabTextesDn.last());
    for (const tTexte& t : pm.tabTextesDn)
      écrireTexte(o, t);
    for (const auto& notes : pm.tabCordes) {
      o.b(notes.last());
      for (const tNote& n : notes) {
        o.b(n.bytCase);
        o.b(n.bytAttaque);
        o.b(n.bytEffet);
        o.b(n.bytVolume);
        o.be16(n.intX);
        o.b(n.bytDurée);
      }
    }
  }
}

}  // namespace

VtbEcriture io_enregistrer_vtb(const CVantoroTablature& doc) {
  VtbEcriture r;
  if (std::string où = texteTropLong(doc); !où.empty()) {
    r.message = msg::kTexteTropLong;
    r.détail = std::move(où);
    return r;
  }
  // What the reader would refuse is not written: a save must read back.
  if (std::string faute = validateDocument(doc); !faute.empty()) {
    r.message = msg::kDocumentIncohérent;
    r.détail = std::move(faute);
    return r;
  }

  r.octets.resize(taille(doc));
  Sortie o(r.octets.data());
  o.raw("VTB");
  o.b(kVtbVersion);
  o.b(doc.getPisteLast());  // one byte: at most 255 tracks
  o.str(doc.Auteur);        // the author comes before the title
  o.str(doc.titre);
  o.str(doc.Copy);
  o.str(doc.SousTitre);
  o.str(doc.Comments);
  o.b(doc.tempo);
  o.b(doc.TripleFeel() != kFaux ? 255 : 0);
  o.b(0);
  o.be16(doc.getMesureLast());
  o.raw("TRK0");

  for (const tMesure& h : doc.mesures()) {
    o.b(h.bytTonalité);
    o.b(h.bytSignatureUp);
    o.b(h.bytSignatureDn);
    o.b(h.bytLoopGaucheType);
    o.b(h.bytLoopGaucheData);
    o.b(h.bytLoopDroiteType);
    o.b(h.bytLoopDroiteData);
    o.b(h.tabTempos.last());
    for (const tTempo& t : h.tabTempos) {
      o.be16(t.intX);
      o.b(t.bytTempo);
    }
  }
  for (int p = 1; p <= doc.getPisteLast(); ++p)
    écrirePiste(o, doc.piste(p), p);
  o.raw("END");
  assert(o.position() == r.octets.data() + r.octets.size());
  return r;
}

VtbSauvegarde io_enregistrer_vtb(CVantoroTablature& doc, const std::filesystem::path& fichier) {
  VtbSauvegarde r;
  const VtbEcriture e = io_enregistrer_vtb(static_cast<const CVantoroTablature&>(doc));
  if (!e.ok()) {
    r.message = e.message;
    r.détail = e.détail;
    return r;
  }
  if (std::string erreur = writeFileAtomically(fichier, e.octets); !erreur.empty()) {
    r.message = msg::kEcritureImpossible;
    r.détail = std::move(erreur);
    return r;
  }
  doc.modifi = kFaux;
  return r;
}

}  // namespace vt
