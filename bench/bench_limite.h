// The biggest piece the file format allows: seven tracks of 32,767 bars.
// Track 1 is busy (a sixteenth on every string, a chord diagram on every
// beat's bar and a text every bar); the six others carry eighth notes on one
// string at a time; a tempo change every 64 bars and a text every 16 bars
// spread over the piece. Fewer bars give the same piece, shorter, for the
// curves of cost against length.
#pragma once

#include <string>

#include "document/tablature.h"
#include "document/types.h"

namespace vt::banc {

inline CVantoroTablature morceauLimite(int mesures = kMaxMesures) {
  CVantoroTablature doc;
  doc.titre = "At the limits";
  doc.tempo = 120;
  for (int p = 2; p <= 7; ++p)
    doc.addPiste(p - 1, tGuitare{});
  for (int m = 2; m <= mesures; ++m)
    doc.addMesure();
  OneBased<byt> accord(6);
  const int formes[6] = {0, 1, 0, 2, 3, 255};  // C, string 1 to 6
  for (int c = 1; c <= 6; ++c)
    accord[c] = static_cast<byt>(formes[c - 1]);
  for (int m = 1; m <= mesures; ++m) {
    if (m % 64 == 0) doc.setMesureTempo(m, 0, static_cast<byt>(90 + m % 60));
    for (int c = 1; c <= 6; ++c)
      for (int k = 0; k < 16; ++k)
        doc.setNoteVolume(1, m, c, doc.setNoteWhole(1, m, c, k * 12, (k + c + m) % 13, 12),
                          static_cast<byt>(80 + k % 4 * 10));
    const int n = doc.addandplaceMesureAccord(1, m, 0);
    doc.setMesureAccord(1, m, n, "C", accord);
    if (m % 16 == 1) doc.setMesureTexte(1, m, 0, "bar " + std::to_string(m), kVrai);
    for (int p = 2; p <= 7; ++p)
      for (int k = 0; k < 8; ++k) {
        const int c = 1 + (k + p + m) % 6;
        doc.setNoteVolume(p, m, c, doc.setNoteWhole(p, m, c, k * 24, (k * 3 + m + p) % 15, 24), 95);
      }
  }
  return doc;
}

}  // namespace vt::banc
