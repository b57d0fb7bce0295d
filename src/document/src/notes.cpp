// The note list of one string of one bar, and setNoteWhole, the entry point of
// every typed note.
#include "document/tablature.h"

namespace vt {

int CVantoroTablature::makeNoteDuréeExiste(int d) {
  if (d < 0 || d >= 192) return 192;
  if (d >= 144) return 144;
  if (d >= 128) return 128;
  if (d >= 96) return 96;
  if (d >= 72) return 72;
  if (d >= 64) return 64;
  if (d >= 48) return 48;
  if (d >= 36) return 36;
  if (d >= 32) return 32;
  if (d >= 24) return 24;
  if (d >= 18) return 18;
  if (d >= 16) return 16;
  if (d >= 12) return 12;
  if (d >= 9) return 9;
  if (d >= 8) return 8;
  if (d >= 6) return 6;
  return 4;  // 0 to 5: the shortest value, the triplet thirty-second
}

int CVantoroTablature::getNoteLast(int p, int m, int c) const {
  const OneBased<tNote>* l = notes(p, m, c);
  return l != nullptr ? l->last() : 0;
}

bool CVantoroTablature::addNote(int p, int m, int c) {
  OneBased<tNote>* l = cordeMut(p, m, c);
  if (l == nullptr || l->last() >= kMaxEntrees) return false;
  l->push_back(tNote{});
  return true;
}

bool CVantoroTablature::setCordeNbNotes(int p, int m, int c, int count) {
  OneBased<tNote>* l = cordeMut(p, m, c);
  if (l == nullptr || count < 0 || count > kMaxEntrees) return false;
  l->clear();
  l->resize(count);
  return true;
}

int CVantoroTablature::searchNote(int p, int m, int c, int intX) const {
  const OneBased<tNote>* l = notes(p, m, c);
  if (l == nullptr) return 0;
  int found = 0;
  for (int n = 1; n <= l->last(); ++n)
    if ((*l)[n].intX == intX) found = n;
  return found;
}

int CVantoroTablature::searchNoteBeforeX(int p, int m, int c, int intX) const {
  const OneBased<tNote>* l = notes(p, m, c);
  if (l == nullptr) return 0;
  int n = 0;
  while (n < l->last() && (*l)[n + 1].intX < intX)
    ++n;
  return n;
}

int CVantoroTablature::searchNoteAfterX(int p, int m, int c, int intX, int fromN) const {
  const OneBased<tNote>* l = notes(p, m, c);
  if (l == nullptr) return 0;
  for (int n = fromN < 1 ? 1 : fromN; n <= l->last(); ++n)
    if ((*l)[n].intX >= intX) return n;
  return 0;
}

int CVantoroTablature::searchNoteAfterXExcludeCurrent(int p, int m, int c, int intX,
                                                      int fromN) const {
  const OneBased<tNote>* l = notes(p, m, c);
  if (l == nullptr) return 0;
  for (int n = fromN < 1 ? 1 : fromN; n <= l->last(); ++n)
    if ((*l)[n].intX > intX) return n;
  return 0;
}

int CVantoroTablature::deleteNote(int p, int m, int c, int n) {
  OneBased<tNote>* l = cordeMut(p, m, c);
  if (l != nullptr && l->has(n)) l->erase(n);
  return 0;
}

int CVantoroTablature::setNoteWhole(int p, int m, int c, int intX, int bytCase, int intDur) {
  OneBased<tNote>* l = cordeMut(p, m, c);
  if (l == nullptr || intX < 0 || intX > 0xFFFF || bytCase < 0 || bytCase > 255 || intDur < 0)
    return 0;

  int n = searchNote(p, m, c, intX);
  if (n == 0) {
    if (l->last() >= kMaxEntrees) return 0;
    // The place: behind every note that starts no later than intX.
    n = 1;
    while (n <= l->last() && (*l)[n].intX <= intX)
      ++n;
    l->insert(n, tNote{});  // a new note has attack and nuance 0 until the caller sets them
  }
  const int count = l->last();
  tNote& note = (*l)[n];
  note.intX = static_cast<u16>(intX);
  note.bytCase = static_cast<byt>(bytCase);

  int dur = intDur;
  // Cut at the next note; this cut is deliberately not rounded.
  if (n < count && intX + dur > (*l)[n + 1].intX) dur = (*l)[n + 1].intX - intX;
  // Cut at the bar's end, rounded down onto a notated length.
  const int largeur = getMesureLargeur(m);
  if (intX + dur > largeur) dur = makeNoteDuréeExiste(largeur - intX);
  // Shorten the note before, if it reaches over this one.
  if (n > 1) {
    tNote& avant = (*l)[n - 1];
    if (avant.intX + avant.bytDurée > intX)
      avant.bytDurée = static_cast<byt>(makeNoteDuréeExiste(intX - avant.intX));
  }
  if (dur > 192) dur = 192;

  note.bytDurée = static_cast<byt>(dur);
  note.bytEffet = 0;
  note.bytReserve = 0;
  return n;
}

#define VT_NOTE_FIELD(Get, Set, field, Type)                        \
  int CVantoroTablature::Get(int p, int m, int c, int n) const {    \
    const tNote* note = getNote(p, m, c, n);                        \
    return note != nullptr ? note->field : 0;                       \
  }                                                                 \
  void CVantoroTablature::Set(int p, int m, int c, int n, Type v) { \
    if (tNote* note = noteMut(p, m, c, n)) note->field = v;         \
  }

VT_NOTE_FIELD(getNoteCase, setNoteCase, bytCase, byt)
VT_NOTE_FIELD(getNoteAttaque, setNoteAttaque, bytAttaque, byt)
VT_NOTE_FIELD(getNoteVolume, setNoteVolume, bytVolume, byt)
VT_NOTE_FIELD(getNoteDurée, setNoteDurée, bytDurée, byt)
VT_NOTE_FIELD(getNoteEffet, setNoteEffet, bytEffet, byt)
VT_NOTE_FIELD(getNoteX, setNoteX, intX, u16)

#undef VT_NOTE_FIELD

}  // namespace vt
