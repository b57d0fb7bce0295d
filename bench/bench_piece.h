// The piece several benchmarks play, export or convert: four tracks of eighth
// notes on every string in turn, a two-note chord on every beat of track 1, a
// slide, a bend and a vibrato in every bar.
#pragma once

#include "document/tablature.h"

namespace vt::banc {

struct OptionsMorceau {
  int mesures = 200;
  // A tempo change every 50 bars, and a tied note at the end of every bar of
  // every track.
  bool temposEtLiaisons = false;
};

inline CVantoroTablature morceau(const OptionsMorceau& o) {
  CVantoroTablature doc;
  doc.tempo = 120;
  for (int p = 2; p <= 4; ++p)
    doc.addPiste(p - 1, tGuitare{});
  for (int m = 2; m <= o.mesures; ++m)
    doc.addMesure();
  for (int m = 1; m <= o.mesures; ++m) {
    if (o.temposEtLiaisons && m % 50 == 0) doc.setMesureTempo(m, 0, static_cast<byt>(100 + m % 40));
    for (int p = 1; p <= 4; ++p) {
      for (int k = 0; k < 8; ++k) {
        const int c = 1 + (k + p + m) % 6;
        doc.setNoteVolume(p, m, c, doc.setNoteWhole(p, m, c, k * 24, (k * 3 + m + p) % 15, 24), 95);
        if (p == 1 && k % 2 == 0) {
          const int c2 = c == 6 ? 1 : c + 1;
          doc.setNoteVolume(p, m, c2, doc.setNoteWhole(p, m, c2, k * 24, 2, 24), 79);
        }
      }
      if (o.temposEtLiaisons) {
        doc.setNoteWhole(p, m, 6, 168, 5, 24);
        doc.setNoteEffet(p, m, 6, doc.searchNote(p, m, 6, 168), effet::kLiaison);
      }
    }
    doc.setNoteEffet(2, m, 1 + (2 + m) % 6, 1, effet::kSlideUp);
    doc.setNoteEffet(3, m, 1 + (3 + m) % 6, 1, effet::kBendUp);
    doc.setNoteEffet(4, m, 1 + (4 + m) % 6, 1, effet::kVibrato);
  }
  return doc;
}

}  // namespace vt::banc
