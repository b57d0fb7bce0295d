// Versions 4 and 5: one track written as a stream of events, notes standing in
// vertical columns, with the texts (and in version 5 a chord) that go with each.
#include <string>

#include "vtb_reader_internal.h"

namespace vt::vtbdetail {

namespace {

constexpr byt kRythmePointé = 16;
constexpr byt kRythmeTriolet = 32;
constexpr byt kRythmeLié = 64;

// The length of a rhythm byte, 0 when its value selects no length.
int longueurRythme(byt rythme) {
  static constexpr int kLongueurs[] = {0, 192, 96, 48, 24, 12, 6};
  const int valeur = rythme & ~(kRythmePointé | kRythmeTriolet | kRythmeLié);
  if (valeur < 1 || valeur > 6) return 0;
  int l = kLongueurs[valeur];
  if (rythme & kRythmePointé) l += l / 2;
  if (rythme & kRythmeTriolet) l = l * 2 / 3;
  return l;
}

// Effects of the old codes, as the current codes say them; 0 leaves the note.
byt effetConverti(byt ancien) {
  switch (ancien) {
    case 1:
    case 2:
    case 3:
    case 4:
    case 9:
      return ancien;
    case 5:
    case 12:
    case 13:
    case 14:
      return effet::kBendUp;
    case 6:
      return effet::kBendReturn;
    case 16:
    case 17:
    case 18:
    case 19:
      return effet::kBendDown;
    default:
      return 0;
  }
}

class Flux {
 public:
  Flux(Chargement& c, int s) : c_(c), doc_(c.doc), s_(s) {}

  void lire() {
    Curseur& in = c_.in;
    // The last three bytes are the end marker.
    const std::size_t fin = in.taille() >= 3 ? in.taille() - 3 : 0;
    while (!in.échec() && in.pos() < fin) {
      const byt code = in.u8();
      const std::size_t longueur = in.u8();
      const std::uint8_t* charge = in.bloc(longueur);
      if (charge == nullptr) return;
      événement(code, std::span<const std::uint8_t>(charge, longueur));
      const std::string haut = in.str();
      if (!in.échec() && !haut.empty()) doc_.setMesureTexte(1, mesure_, tick_, haut, kVrai);
      if (c_.version == 5) {
        const std::string bas = in.str();
        const std::string accord = in.str();
        const std::uint8_t* frettes = in.bloc(static_cast<std::size_t>(s_));
        if (frettes == nullptr) return;
        if (!bas.empty()) doc_.setMesureTexte(1, mesure_, tick_, bas, kFaux);
        if (!accord.empty() && accord != std::string(1, '\0')) {
          if (const int n = doc_.addandplaceMesureAccord(1, mesure_, tick_)) {
            doc_.setMesureAccordNom(1, mesure_, n, accord);
            for (int corde = 1; corde <= s_; ++corde)
              doc_.setMesureAccordCorde(1, mesure_, n, corde, frettes[corde - 1]);
          }
        }
      }
    }
  }

 private:
  void événement(byt code, std::span<const std::uint8_t> charge) {
    const auto manque = [&](std::size_t n) {
      if (charge.size() >= n) return false;
      c_.in.échouer("event " + std::to_string(code) + " too short");
      return true;
    };
    switch (code) {
      case 1: {  // a column of notes
        if (manque(static_cast<std::size_t>(s_) + 2)) return;
        const byt rythme = charge[static_cast<std::size_t>(s_)];
        const byt attaque = charge[static_cast<std::size_t>(s_) + 1];
        const int l = longueur(rythme);
        if (l == 0) return;
        for (int corde = 1; corde <= s_; ++corde) {
          const byt frette = charge[static_cast<std::size_t>(corde - 1)];
          if (frette == kCaseVide) continue;
          const int n = doc_.setNoteWhole(1, mesure_, corde, tick_, frette, l);
          doc_.setNoteVolume(1, mesure_, corde, n, nuance::kFFF);
          if (rythme & kRythmeLié) doc_.setNoteEffet(1, mesure_, corde, n, effet::kLiaison);
          if (attaque >= attaque::kTap && attaque <= attaque::kPalmMute)
            doc_.setNoteAttaque(1, mesure_, corde, n, attaque);
        }
        avancer(l);
        return;
      }
      case 2: {  // a rest
        if (manque(1)) return;
        if (const int l = longueur(charge[0])) avancer(l);
        return;
      }
      case 3: {  // effects on the last note of each string
        if (manque(static_cast<std::size_t>(s_))) return;
        for (int corde = 1; corde <= s_; ++corde) {
          const int n = doc_.getNoteLast(1, mesure_, corde);
          const byt e = effetConverti(charge[static_cast<std::size_t>(corde - 1)]);
          if (n > 0 && e != 0) doc_.setNoteEffet(1, mesure_, corde, n, e);
        }
        return;
      }
      case 4:  // a bar line
        if (manque(1)) return;
        ligne(charge);
        return;
      case 5: {  // the signature of the running bar
        if (manque(2)) return;
        tMesure& h = doc_.mesure(mesure_);
        h.bytSignatureUp = charge[0];
        h.bytSignatureDn = charge[1];
        return;
      }
      default:  // unknown events are skipped by their length
        return;
    }
  }

  void ligne(std::span<const std::uint8_t> charge) {
    const bool premièreMesure = mesure_ == 1;
    switch (charge[0]) {
      case 2:  // a double line: at a bar's start it closes the previous bar
        if (premièreMesure) return;
        if (tick_ == 0)
          doc_.setMesureLoopDroiteType(mesure_ - 1, barre::kDouble);
        else
          doc_.setMesureLoopGaucheType(mesure_ - 1, barre::kDouble);
        return;
      case 3:
        doc_.setMesureLoopGaucheType(mesure_, barre::kRepetition);
        return;
      case 4: {
        if (charge.size() < 2) return c_.in.échouer("event 4 too short");
        const int m = tick_ == 0 && !premièreMesure ? mesure_ - 1 : mesure_;
        doc_.setMesureLoopDroiteType(m, barre::kRepetition);
        doc_.setMesureLoopDroiteData(m, charge[1]);
        return;
      }
      default:
        return;
    }
  }

  int longueur(byt rythme) {
    const int l = longueurRythme(rythme);
    if (l == 0) c_.in.échouer("rhythm byte " + std::to_string(rythme));
    return l;
  }

  // Moves the running tick; a full bar opens the next one.
  void avancer(int l) {
    tick_ += l;
    if (tick_ < doc_.getMesureLargeur(mesure_)) return;
    if (!doc_.addMesure()) return c_.in.échouer("more bars than a document holds");
    ++mesure_;
    tick_ = 0;
  }

  Chargement& c_;
  CVantoroTablature& doc_;
  const int s_;
  int mesure_ = 1;
  int tick_ = 0;
};

}  // namespace

void lireFluxÉvénements(Chargement& c) {
  Curseur& in = c.in;
  CVantoroTablature& doc = c.doc;
  in.saute(4);  // "TRK" and the number
  tPiste& piste = doc.piste(1);
  if (c.version == 4) {
    // No tuning in the file: the track is the catalogue's first instrument
    // (the current one when there is no catalogue).
    in.saute(1);
    const tGuitare g =
        c.ctx.catalogue != nullptr ? c.ctx.catalogue->loadGuitare(1, c.ctx.setLang) : c.ctx.guitare;
    c.r.guitare = g;
    piste.strGuitareNom = g.nom;
    piste.bytNbrCordes = g.nbrCordes;
    piste.bytCordes = g.corde;
    piste.bytCordes[0] = 0;
    piste.bytNbrCases = g.nbrCases;
    piste.bytCapodastre = g.capodastre;
  } else {
    const int s = c.lireNbrCordes();
    if (s == 0) return;
    piste.bytNbrCordes = static_cast<byt>(s);
    piste.bytCordes.fill(0);
    for (int corde = 1; corde <= s; ++corde)
      piste.bytCordes[static_cast<std::size_t>(corde)] = in.u8();
    if (in.échec()) return;
    // The file has only the strings: the matched instrument gives the rest.
    c.associerGuitare(piste);
    if (c.r.setGuitare != 0) {
      piste.strGuitareNom = c.r.guitare.nom;
      piste.bytNbrCases = c.r.guitare.nbrCases;
      piste.bytCapodastre = c.r.guitare.capodastre;
    }
  }
  piste.tabMesures[1] = tPisteMesure::vide(piste.bytNbrCordes);
  doc.tempo = in.u8();
  if (in.échec()) return;
  Flux(c, piste.bytNbrCordes).lire();
}

}  // namespace vt::vtbdetail
