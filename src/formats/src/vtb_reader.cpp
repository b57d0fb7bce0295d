// Reading of the head and of versions 6 to 8, whose tracks hold one record per bar.
#include <algorithm>
#include <cstdint>

#include "document/validate.h"
#include "formats/vtb.h"
#include "vtb_reader_internal.h"

namespace vt {

using vtbdetail::Chargement;
using vtbdetail::Curseur;

namespace {

// A bar's content takes at least its three counts and one count per string:
// a file cannot make us build more bars than its bytes can describe.
constexpr std::uint64_t kMesureMin = 4;
constexpr std::uint64_t kTêteDePisteMin = 16;

// A bar's head: key, signature, then the left and right repeat marks.
void lireTêteMesure(Curseur& in, tMesure& h) {
  h.bytTonalité = in.u8();
  h.bytSignatureUp = in.u8();
  h.bytSignatureDn = in.u8();
  h.bytLoopGaucheType = in.u8();
  h.bytLoopGaucheData = in.u8();
  h.bytLoopDroiteType = in.u8();
  h.bytLoopDroiteData = in.u8();
}

// One bar of one track: chords, upper texts, lower texts, then the notes of
// each string, stored as they stand. Version 6 notes carry no nuance.
void lireContenuMesure(Chargement& c, int p, int m, int s) {
  Curseur& in = c.in;
  CVantoroTablature& doc = c.doc;

  const int accords = in.u8();
  for (int i = 0; i < accords && !in.échec(); ++i) {
    const int x = in.be16();
    std::string nom = in.str();
    const std::uint8_t* frettes = in.bloc(static_cast<std::size_t>(s));
    if (frettes == nullptr) return;
    const int n = doc.addandplaceMesureAccord(p, m, x);
    doc.setMesureAccordNom(p, m, n, nom);
    for (int corde = 1; corde <= s; ++corde)
      doc.setMesureAccordCorde(p, m, n, corde, frettes[corde - 1]);
  }
  for (const vbool duHaut : {kVrai, kFaux}) {
    const int textes = in.u8();
    for (int i = 0; i < textes && !in.échec(); ++i) {
      const int x = in.be16();
      const std::string texte = in.str();
      if (!in.échec()) doc.setMesureTexte(p, m, x, texte, duHaut);
    }
  }

  tPisteMesure* pm = doc.pisteMesure(p, m);
  if (in.échec() || pm == nullptr) return;
  pm->tabCordes.resize(s);
  const std::size_t taille = c.version == 6 ? 6 : 7;
  for (int corde = 1; corde <= s; ++corde) {
    const int k = in.u8();
    const std::uint8_t* b = in.bloc(static_cast<std::size_t>(k) * taille);
    if (b == nullptr) return;
    OneBased<tNote>& notes = pm->tabCordes[corde];
    notes.clear();
    notes.resize(k);
    for (tNote& n : notes) {
      n.bytCase = b[0];
      n.bytAttaque = b[1];
      n.bytEffet = b[2];
      if (taille == 7) {
        n.bytVolume = b[3];
        ++b;
      } else {
        n.bytVolume = nuance::kFFF;
      }
      n.intX = static_cast<u16>((b[3] << 8) | b[4]);
      n.bytDurée = b[5];
      b += 6;
    }
  }
}

// The instrument fields of a track head, common to versions 6 to 8.
void lireInstrument(Chargement& c, int p) {
  Curseur& in = c.in;
  tPiste& piste = c.doc.piste(p);
  piste.strGuitareNom = in.str();
  const int s = c.lireNbrCordes();
  if (s == 0) return;
  piste.bytNbrCordes = static_cast<byt>(s);
  piste.bytCordes.fill(0);
  for (int corde = 1; corde <= s; ++corde)
    piste.bytCordes[static_cast<std::size_t>(corde)] = in.u8();
  piste.bytCapodastre = in.u8();
  piste.bytNbrCases = in.u8();
}

void lireVersion6(Chargement& c) {
  Curseur& in = c.in;
  CVantoroTablature& doc = c.doc;
  in.saute(4);  // "TRK" and the number
  lireInstrument(c, 1);
  if (in.échec()) return;
  tPiste& piste = doc.piste(1);
  c.associerGuitare(piste);
  doc.tempo = in.u8();
  doc.setTripleFeel(toVbool(in.u8() != 0));
  piste.bytPan = in.u8();
  piste.bytReverb = in.u8();
  piste.bytTremolo = in.u8();
  piste.bytChorus = in.u8();
  piste.bytPhaser = in.u8();
  const int mesures = in.be16();
  if (in.échec()) return;
  const int s = piste.bytNbrCordes;
  if (mesures < 1 || mesures > kMaxMesures ||
      in.reste() < static_cast<std::uint64_t>(mesures) * (7 + 3 + static_cast<std::uint64_t>(s)))
    return in.échouer("bar count " + std::to_string(mesures));
  while (doc.getMesureLast() < mesures)
    doc.addMesure();

  for (int m = 1; m <= mesures && !in.échec(); ++m) {
    tMesure& h = doc.mesure(m);
    lireTêteMesure(in, h);
    lireContenuMesure(c, 1, m, s);
  }
}

void lireVersions7et8(Chargement& c, int pistes) {
  Curseur& in = c.in;
  CVantoroTablature& doc = c.doc;
  doc.tempo = in.u8();
  doc.setTripleFeel(toVbool(in.u8() != 0));
  in.saute(1);
  const int mesures = in.be16();
  in.saute(4);  // "TRK0"
  if (in.échec()) return;
  if (pistes < 1) return in.échouer("no track");
  const std::uint64_t besoin =
      static_cast<std::uint64_t>(mesures) * 8 +
      static_cast<std::uint64_t>(pistes) *
          (kTêteDePisteMin + static_cast<std::uint64_t>(mesures) * kMesureMin);
  if (mesures < 1 || mesures > kMaxMesures || in.reste() < besoin)
    return in.échouer("bar count " + std::to_string(mesures));

  while (doc.getPisteLast() < pistes)
    doc.addPiste(doc.getPisteLast(), c.ctx.guitare, c.ctx.bytPatch);
  while (doc.getMesureLast() < mesures)
    doc.addMesure();

  for (int m = 1; m <= mesures && !in.échec(); ++m) {
    tMesure& h = doc.mesure(m);
    lireTêteMesure(in, h);
    const int tempos = in.u8();
    for (int t = 0; t < tempos && !in.échec(); ++t) {
      const int x = in.be16();
      const byt valeur = in.u8();
      if (!in.échec()) doc.setMesureTempo(m, x, valeur);
    }
  }

  for (int p = 1; p <= pistes && !in.échec(); ++p) {
    in.saute(4);  // "TRK" and the number
    doc.piste(p).strNom = in.str();
    lireInstrument(c, p);
    if (in.échec()) return;
    tPiste& piste = doc.piste(p);
    c.associerGuitare(piste);
    if (c.version == 7) {
      in.saute(3);
    } else {
      in.saute(1);  // the number of the track less 1
      piste.lngBank = in.be32();
    }
    piste.bytPatch = in.u8();
    in.saute(1);  // always 127
    piste.bytPan = in.u8();
    piste.bytReverb = in.u8();
    piste.bytTremolo = in.u8();
    piste.bytChorus = in.u8();
    piste.bytPhaser = in.u8();
    piste.bytClef = in.u8();
    if (c.version == 8) piste.bytStaffType = in.u8();
    const byt drapeaux = in.u8();
    piste.boolPlaySolo = toVbool((drapeaux & 1) != 0);
    piste.boolPlayMute = toVbool((drapeaux & 2) != 0);
    in.saute(1);
    const int s = piste.bytNbrCordes;
    for (int m = 1; m <= mesures && !in.échec(); ++m)
      lireContenuMesure(c, p, m, s);
  }
}

}  // namespace

VtbLecture io_ouvrir_vtb(std::span<const std::uint8_t> octets, const VtbContexte& ctx) {
  VtbLecture r;
  r.guitare = ctx.guitare;
  if (octets.size() < 4)
    r.messages.push_back(msg::kTailleFichier);  // and go on: the magic says more
  if (octets.size() < 3 || octets[0] != 'V' || octets[1] != 'T' || octets[2] != 'B') {
    r.messages.push_back(msg::kPasUnFichierVtb);
    return r;
  }
  if (octets.size() < 4) return r;
  r.version = octets[3];
  if (r.version < 4) {
    r.messages.push_back(msg::kVtbTropAncien);
    return r;
  }
  if (r.version > kVtbVersion) {
    r.messages.push_back(msg::kVtbTropRécent);
    return r;
  }

  CVantoroTablature doc(ctx.guitare, ctx.bytPatch);
  Curseur in(octets);
  in.saute(4);
  Chargement c{in, doc, ctx, r, r.version};
  const int pistes = in.u8();
  doc.Auteur = in.str();
  doc.titre = in.str();
  doc.Copy = in.str();
  doc.SousTitre = in.str();
  doc.Comments = in.str();
  if (!in.échec()) {
    if (r.version >= 7)
      lireVersions7et8(c, pistes);
    else if (r.version == 6)
      lireVersion6(c);
    else
      vtbdetail::lireFluxÉvénements(c);
  }

  std::string faute = in.échec() ? in.raison() : validateDocument(doc);
  if (!faute.empty()) {
    r.messages.push_back(msg::kTailleFichier);
    r.détail = std::move(faute);
    r.guitare = ctx.guitare;
    r.setGuitare = 0;
    return r;
  }
  doc.modifi = kFaux;
  r.document.emplace(std::move(doc));
  return r;
}

VtbLecture io_ouvrir_vtb(const std::filesystem::path& fichier, const VtbContexte& ctx) {
  FileRead f = readWholeFile(fichier);
  if (!f.ok()) {
    VtbLecture r;
    r.guitare = ctx.guitare;
    r.messages.push_back(f.message);
    r.détail = std::move(f.détail);
    return r;
  }
  return io_ouvrir_vtb(f.octets, ctx);
}

}  // namespace vt
