// Files of the older versions, built byte by byte from the tables of the
// format, since the program writes version 8 only.
#pragma once

#include "vtb_test_util.h"

namespace vt::test {

// The five texts of the head, author first.
inline Octets têteAncienne(int version, int pistes) {
  Octets o;
  o.raw("VTB").b(version).b(pistes);
  o.str("Auteur").str("Titre \xE9t\xE9").str("Copy").str("Sous").str("Notes");
  return o;
}

// Version 7: two tracks, two bars; no bank and no staff type in the track head.
inline std::vector<std::uint8_t> fichierVersion7() {
  Octets o = têteAncienne(7, 2);
  o.b(100).b(1).b(0).be16(2).raw("TRK0");
  // bar 1: D major, 4/4, repeat start, two tempos
  o.bs({10, 4, 4, 2, 0, 0, 0}).b(2).be16(0).b(100).be16(96).b(140);
  // bar 2: 3/4, end of repeat played 2 times
  o.bs({8, 3, 4, 0, 0, 2, 2}).b(0);

  // track 1: six strings, drop D
  o.raw("TRK").b(1).str("Rythmique").str("Drop D").b(6).bs({64, 59, 55, 50, 45, 38});
  o.b(0).b(24).bs({0, 0, 0}).b(29).b(127).bs({20, 30, 40, 50, 60}).b(1).b(1).b(0);
  // bar 1: one chord, one upper text, no lower text, notes on strings 1 and 6
  o.b(1).be16(0).str("D5").bs({255, 255, 255, 7, 5, 0});
  o.b(1).be16(0).str("riff").b(0);
  o.b(2).bs({3, 0, 0, 95, 0, 0, 48}).bs({5, 6, 1, 127, 0, 48, 48});
  o.b(0).b(0).b(0).b(0);
  o.b(1).bs({0, 0, 0, 63, 0, 0, 192});
  // bar 2: nothing
  o.b(0).b(0).b(0).bs({0, 0, 0, 0, 0, 0});

  // track 2: four-string bass, muted
  o.raw("TRK").b(2).str("Basse").str("Bass").b(4).bs({43, 38, 33, 28});
  o.b(0).b(20).bs({1, 0, 0}).b(33).b(127).bs({64, 0, 0, 0, 0}).b(2).b(2).b(0);
  o.b(0).b(0).b(0).bs({0, 0, 0, 0});
  o.b(0).b(0).b(1).be16(72).str("fin").b(1).bs({2, 0, 0, 111, 0, 0, 72}).bs({0, 0, 0});
  o.raw("END");
  return o.v;
}

// Version 6: one track in bar records, the bar headers inside the bars, no
// tempo changes, notes without nuance.
inline std::vector<std::uint8_t> fichierVersion6() {
  Octets o = têteAncienne(6, 1);
  o.raw("TRK").b(1).str("Drop D").b(6).bs({64, 59, 55, 50, 45, 38}).b(0).b(22);
  o.b(90).b(1).bs({30, 40, 5, 6, 7}).be16(2);
  // bar 1: header, one chord, one upper text, two notes on string 1, one on string 6
  o.bs({9, 6, 8, 1, 0, 2, 4});
  o.b(1).be16(0).str("Dm").bs({1, 3, 2, 0, 255, 255});
  o.b(1).be16(36).str("ici").b(0);
  o.b(2).bs({0, 0, 0, 0, 0, 36}).bs({2, 3, 3, 0, 36, 36});
  o.b(0).b(0).b(0).b(0);
  o.b(1).bs({0, 6, 0, 0, 0, 72});
  // bar 2
  o.bs({8, 4, 4, 0, 0, 3, 0}).b(0).b(0).b(0).bs({0, 0, 0, 0, 0, 0});
  o.raw("END");
  return o.v;
}

// Version 5 event records: code, payload, upper text, lower text, chord name
// and frets; version 4 records stop after the upper text.
struct Evénement {
  int code;
  std::vector<int> charge;
  std::string haut;
  std::string bas;
  std::string accord;
  std::vector<int> frettes;
};

inline void écrireÉvénement(Octets& o, int version, int cordes, const Evénement& e) {
  o.b(e.code).b(static_cast<int>(e.charge.size()));
  for (int x : e.charge)
    o.b(x);
  o.str(e.haut);
  if (version == 5) {
    o.str(e.bas).str(e.accord);
    for (int c = 0; c < cordes; ++c)
      o.b(c < static_cast<int>(e.frettes.size()) ? e.frettes[c] : 0);
  }
}

// The story of both event files: a 3/4 piece over three bars.
inline std::vector<Evénement> histoireÉvénements() {
  const int x = 255;
  return {
      {5, {3, 4}, "", "", "", {}},                                              // signature 3/4
      {1, {0, 1, x, x, x, 3, 3, 6}, "Intro", "doux", "C", {0, 1, 0, 2, 3, x}},  // quarter, palm
                                                                                // mute
      {3, {1, 5, 0, 0, 0, 16}, "", "", "", {}},                 // effects on the last notes
      {1, {x, x, 2, x, x, x, 3 | 16 | 64, 1}, "", "", "", {}},  // dotted quarter, tied
      {2, {4}, "B2", "", "G", {3, 0, 0, 0, 2, 3}},              // an eighth rest fills the bar
      {4, {2}, "", "", std::string(1, '\0'), {}},               // double line closing bar 1
      {4, {3}, "", "", "", {}},                                 // repeat start of bar 2
      {1, {5, x, x, x, x, x, 2, 3}, "", "", "", {}},            // half note, tap
      {4, {4, 3}, "", "", "", {}},                              // repeat end x3 in the bar
      {1, {x, x, x, x, x, 0, 1, 0}, "", "", "", {}},            // a whole note: cut, then bar 3
      {4, {4, 2}, "", "", "", {}},                              // repeat end x2 of bar 2
      {7, {1, 2, 3}, "", "", "", {}},                           // unknown: skipped
      {4, {1}, "", "", "", {}},                                 // plain line: nothing
  };
}

// Version 5: the track head has the strings; each event brings a lower text and a chord.
inline std::vector<std::uint8_t> fichierVersion5(std::initializer_list<int> cordes = {64, 59, 55,
                                                                                      50, 45, 40}) {
  Octets o = têteAncienne(5, 1);
  o.raw("TRK").b(1).b(static_cast<int>(cordes.size()));
  for (int c : cordes)
    o.b(c);
  o.b(132);
  for (const Evénement& e : histoireÉvénements())
    écrireÉvénement(o, 5, static_cast<int>(cordes.size()), e);
  o.raw("END");
  return o.v;
}

// Version 4: no tuning, upper texts only.
inline std::vector<std::uint8_t> fichierVersion4() {
  Octets o = têteAncienne(4, 1);
  o.raw("TRK").b(1).b(0).b(132);
  for (const Evénement& e : histoireÉvénements())
    écrireÉvénement(o, 4, 6, e);
  o.raw("END");
  return o.v;
}

}  // namespace vt::test
