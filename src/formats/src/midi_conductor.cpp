#include "midi_conductor.h"

#include "document/tablature.h"
#include "formats/midi_walk.h"
#include "formats/walk_input.h"

namespace vt::detail {

namespace {

void tempoMeta(ChunkMidi& k, int tempo) {
  const std::uint32_t us = microsecondesParNoire(tempo);
  k.octets({0xFF, 0x51, 0x03, static_cast<int>((us >> 16) & 0xFF), static_cast<int>((us >> 8) & 0xFF),
            static_cast<int>(us & 0xFF)});
}

int log2Entier(int n) {
  int e = 0;
  while (n > 1) {
    n >>= 1;
    ++e;
  }
  return e;
}

// The key byte as the sf and mode of a Key Signature event.
void tonalitéMeta(ChunkMidi& k, int octetTonalité) {
  const int mineur = (octetTonalité & 64) != 0 ? 1 : 0;
  int t = octetTonalité >= 64 ? octetTonalité - 64 : octetTonalité;
  t = t >= 8 ? t - 8 : t + 248;  // the byte of a negative count of flats
  k.octets({0xFF, 0x59, 0x02, t & 0xFF, mineur});
}

}  // namespace

std::uint32_t microsecondesParNoire(int tempo) {
  // Three bytes hold at most 0xFFFFFF: tempos under 4 are held there.
  if (tempo < 4) return 0xFFFFFF;
  return static_cast<std::uint32_t>(60000000 / tempo);
}

void écrireConducteur(const CVantoroTablature& doc, WalkInput& in, ChunkMidi& k) {
  const std::pair<int, const std::string*> têtes[] = {
      {0x03, &doc.titre}, {0x02, &doc.Copy}, {0x01, &doc.Comments}};
  for (const auto& [type, texte] : têtes) {
    if (texte->empty()) continue;
    k.delta(0);
    k.meta(type, *texte);
  }
  k.delta(0);
  tempoMeta(k, doc.tempo);

  BarWalk bw(in, true, 1);
  int sigUp = -1, sigDn = -1;          // the signature remembered by the walk
  int courantUp = -1, courantDn = -1;  // the signature last written
  int tonalité = -1;
  int sautsVus = 0;
  while (!bw.fini()) {
    const int m = bw.mesure();
    const std::int64_t t0 = bw.début();
    bool grandir = false;
    auto avant = [&](std::int64_t temps) {
      grandir = k.noterMesure(m, bw.sautEnCours(), bw.sauts(), in.getMesureLast()) || grandir;
      k.delta(temps);
    };

    if (bw.sauts() != sautsVus) {
      // Back at the repeat start: the signature is compared with the bar
      // before it, so that a change inside the repeat is written again.
      sautsVus = bw.sauts();
      if (m == 1) {
        sigUp = sigDn = -1;
      } else {
        sigUp = in.mesure(m - 1).bytSignatureUp;
        sigDn = in.mesure(m - 1).bytSignatureDn;
      }
    }
    const WalkMesure& h = in.mesure(m);
    // Also written when it differs from the signature in force, which the
    // comparison with the bar before the repeat alone would miss.
    if (h.bytSignatureUp != sigUp || h.bytSignatureDn != sigDn || h.bytSignatureUp != courantUp ||
        h.bytSignatureDn != courantDn) {
      avant(t0);
      k.octets({0xFF, 0x58, 0x04, h.bytSignatureUp, log2Entier(h.bytSignatureDn), 0x18, 0x08});
      sigUp = courantUp = h.bytSignatureUp;
      sigDn = courantDn = h.bytSignatureDn;
    }
    // A bar the export appended carries the key of the last one.
    const int tonBar = doc.getMesureTonalité(std::min(m, doc.getMesureLast()));
    if (tonBar != tonalité) {
      avant(t0);
      tonalitéMeta(k, tonBar);
      tonalité = tonBar;
    }

    const int largeur = h.largeur();
    for (int p = 1; p <= doc.getPisteLast(); ++p) {
      const tPisteMesure* pm = doc.pisteMesure(p, m);
      if (pm == nullptr) continue;
      // Upper then lower text at each X; one of each per X, the last entered.
      const auto& up = pm->tabTextesUp;
      const auto& dn = pm->tabTextesDn;
      int iu = 1, id = 1;
      while (iu <= up.last() || id <= dn.last()) {
        int x = 1 << 30;
        if (iu <= up.last()) x = up[iu].intX;
        if (id <= dn.last()) x = std::min<int>(x, dn[id].intX);
        if (x > largeur) break;
        for (const OneBased<tTexte>* liste : {&up, &dn}) {
          int& i = liste == &up ? iu : id;
          const tTexte* dernier = nullptr;
          while (i <= liste->last() && (*liste)[i].intX == x) dernier = &(*liste)[i++];
          if (dernier != nullptr && !dernier->strContenu.empty()) {
            avant(t0 + x);
            k.meta(0x06, dernier->strContenu);
          }
        }
      }
    }
    // The tempo list belongs to the bar, yet it is written once per track.
    for (int p = 1; p <= doc.getPisteLast(); ++p) {
      const auto& tempos = h.tabTempos;
      for (int i = 1; i <= tempos.last(); ++i) {
        if (tempos[i].intX > largeur) break;
        if (i < tempos.last() && tempos[i + 1].intX == tempos[i].intX) continue;
        avant(t0 + tempos[i].intX);
        tempoMeta(k, tempos[i].bytTempo);
      }
    }
    if (grandir) in.addMesure();
    bw.suivante();
  }
  k.octets({0x00, 0xFF, 0x2F, 0x00});
}

}  // namespace vt::detail
