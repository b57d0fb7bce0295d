#include "showcase.h"

namespace vt::test {

int note(CVantoroTablature& doc, int m, int c, int x, int fret, int durée, int attaque, int effet,
         int volume) {
  const int n = doc.setNoteWhole(1, m, c, x, fret, durée);
  doc.setNoteAttaque(1, m, c, n, static_cast<byt>(attaque));
  doc.setNoteVolume(1, m, c, n, static_cast<byt>(volume));
  doc.setNoteEffet(1, m, c, n, static_cast<byt>(effet));
  return n;
}

CVantoroTablature showcaseDocument() {
  CVantoroTablature doc;
  for (int i = 0; i < 8; ++i)
    doc.addMesure();
  doc.setPisteNom(1, "Guitar");

  // 1: G major, tempo, chord, texts, a start of repeat; quarter, eighths,
  // triplet eighths, sixteenths.
  for (int m = 1; m <= 5; ++m)
    doc.setMesureTonalitéDétails(m, 1, kVrai);
  doc.setMesureTempo(1, 0, 90);
  doc.setMesureLoopGaucheType(1, barre::kRepetition);
  OneBased<byt> sol(6);
  const byt frettes[] = {3, 0, 0, 0, 2, 3};
  for (int c = 1; c <= 6; ++c)
    sol[c] = frettes[c - 1];
  doc.setMesureAccord(1, 1, doc.addandplaceMesureAccord(1, 1, 0), "G", sol);
  doc.setMesureTexte(1, 1, 0, "Intro\\nclean", kVrai);
  doc.setMesureTexte(1, 1, 48, "let ring", kFaux);
  note(doc, 1, 6, 0, 3, 48);
  note(doc, 1, 4, 0, 0, 48);
  note(doc, 1, 3, 0, 0, 48);
  note(doc, 1, 5, 48, 2, 24);
  note(doc, 1, 4, 72, 0, 24);
  note(doc, 1, 3, 96, 0, 16);
  note(doc, 1, 2, 112, 0, 16);
  note(doc, 1, 1, 128, 3, 16);
  note(doc, 1, 1, 144, 5, 12);
  note(doc, 1, 1, 156, 3, 12);
  note(doc, 1, 2, 168, 3, 12);
  note(doc, 1, 2, 180, 1, 12);

  // 2: every attack, then a dead note and a ghost note.
  for (int a = 1; a <= 8; ++a)
    note(doc, 2, 3, (a - 1) * 24, 2 + a % 3, 24, a);
  note(doc, 2, 5, 0, 0, 48, 0, 0, nuance::kPP);
  // 3: brushes over a chord, the dead note, the palm mute's run.
  doc.setMesureTempo(3, 96, 120);
  for (int c = 1; c <= 6; ++c)
    note(doc, 3, c, 0, frettes[c - 1], 48, attaque::kBrushUp);
  for (int c = 1; c <= 6; ++c)
    note(doc, 3, c, 48, frettes[c - 1], 48, attaque::kBrushDown);
  note(doc, 3, 6, 96, 0, 24, attaque::kDeadNote);
  note(doc, 3, 6, 120, 0, 24, attaque::kDeadNote);
  note(doc, 3, 5, 144, 5, 48, attaque::kPalmMute, 0, nuance::kP);

  // 4-5: every effect, the linking ones with a next note.
  const struct {
    int effet, fret;
  } effets[] = {{effet::kSlideUp, 5},    {effet::kSlideDown, 7},  {effet::kHammerOn, 5},
                {effet::kPullOff, 7},    {effet::kVibrato, 5},    {effet::kBendUp, 7},
                {effet::kBendUpDown, 7}, {effet::kBendReturn, 7}, {effet::kBendDown, 7},
                {effet::kTremolo, 5},    {effet::kTrill, 5},      {effet::kLiaison, 5}};
  int i = 0;
  for (const auto& e : effets) {
    const int m = 4 + i / 8;
    note(doc, m, 2, (i % 8) * 24, e.fret, 24, 0, e.effet);
    ++i;
  }
  note(doc, 5, 2, 96, 5, 96);

  // 6: 6/8 in F major; B flat written as a sharp A, a natural B, dotted values,
  // a chord, a ledger line above, an end of repeat played three times.
  doc.setMesureSignature(6, 6, 8);
  doc.setMesureTonalitéDétails(6, -1, kVrai);
  doc.setMesureLoopDroiteType(6, barre::kRepetition);
  doc.setMesureLoopDroiteData(6, 3);
  note(doc, 6, 3, 0, 3, 36);
  note(doc, 6, 3, 36, 4, 12);
  note(doc, 6, 3, 48, 4, 24);
  note(doc, 6, 1, 72, 17, 72);
  note(doc, 6, 2, 72, 1, 72);
  note(doc, 6, 3, 72, 2, 72);

  // 7: 3/4, a dotted half on the low E (ledger lines below), double bar line.
  doc.setMesureSignature(7, 3, 4);
  doc.setMesureLoopDroiteType(7, barre::kDouble);
  doc.setMesureTempo(7, 0, 140);
  note(doc, 7, 6, 0, 0, 144);

  // 8: 5/8 without notes: rests only. 9: thirty-seconds and a whole, final bar line.
  doc.setMesureSignature(8, 5, 8);
  doc.setMesureLoopGaucheType(9, barre::kDouble);
  doc.setMesureLoopDroiteType(9, barre::kFinale);
  doc.setMesureTonalitéDétails(9, 0, kVrai);
  for (int k = 0; k < 8; ++k)
    note(doc, 9, 1, k * 6, 12 - k % 3, 6);
  note(doc, 9, 2, 48, 10, 18);
  note(doc, 9, 2, 66, 10, 6);
  note(doc, 9, 4, 96, 7, 96);
  return doc;
}

}  // namespace vt::test
