// The keys of the strip. The modifiers are tested in a fixed order: Ctrl+Insert
// (which goes on), Alt+Enter, the Shift chords, the Ctrl chords, Space, and
// last the plain keys, most of which wait while the piece plays.
#include "editor/ftab.h"
#include "shell/vt.h"

namespace vt {

namespace {
bool estChiffre(int key) {
  return key >= Qt::Key_0 && key <= Qt::Key_9;
}
bool estEntrée(int key) {
  return key == Qt::Key_Return || key == Qt::Key_Enter;
}
// A key that only changes what the next one means.
bool estModificateur(int key) {
  return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt ||
         key == Qt::Key_AltGr || key == Qt::Key_Meta || key == Qt::Key_CapsLock ||
         key == Qt::Key_NumLock;
}

// The Edit menu's entry of Ctrl with this key: 3 cut, 4 copy, 5 paste; 0 for
// any other key.
int indexPressePapier(int key) {
  switch (key) {
    case Qt::Key_X:
      return 3;
    case Qt::Key_C:
      return 4;
    case Qt::Key_V:
      return 5;
    default:
      return 0;
  }
}

// The effect of each letter key.
byt effetDeLaTouche(int key) {
  switch (key) {
    case Qt::Key_L:
      return effet::kLiaison;
    case Qt::Key_K:
      return effet::kTremolo;
    case Qt::Key_T:
      return effet::kTrill;
    case Qt::Key_U:
      return effet::kSlideUp;
    case Qt::Key_D:
      return effet::kSlideDown;
    case Qt::Key_H:
      return effet::kHammerOn;
    case Qt::Key_P:
      return effet::kPullOff;
    case Qt::Key_B:
      return effet::kBendUp;
    case Qt::Key_W:
      return effet::kBendUpDown;
    case Qt::Key_C:
      return effet::kBendReturn;
    case Qt::Key_N:
      return effet::kBendDown;
    case Qt::Key_V:
      return effet::kVibrato;
    default:
      return effet::kAucun;
  }
}
}  // namespace

void FTab::picTab_KeyDown(int key) {
  picTab_KeyDown(key, Qt::NoModifier);
}

void FTab::picTab_KeyUp() {
  arrêteNotes();
}

void FTab::picTab_KeyUp(int, Qt::KeyboardModifiers) {
  // Any key that goes up silences what a key sounded.
  arrêteNotes();
}

void FTab::picTab_KeyDown(int key, Qt::KeyboardModifiers mods, bool répétition) {
  // A modifier on its own is no chord yet: it must not end the selection that
  // the chord to come (Ctrl+C) works on.
  if (estModificateur(key)) return;
  bool maj = mods.testFlag(Qt::ShiftModifier);
  const bool ctrl = mods.testFlag(Qt::ControlModifier);
  const bool alt = mods.testFlag(Qt::AltModifier);
  // Where the digits of the main row need Shift, Shift only makes the digit.
  if (estChiffre(key) && maj && !ctrl && !alt && !mods.testFlag(Qt::KeypadModifier)) maj = false;
  // Only a digit may follow a digit to make a two-digit fret.
  if (!estChiffre(key) || ctrl || alt) m_caseTapée.reset();

  // 1. Ctrl+Insert flips the entry mode, whatever the other modifiers.
  if (ctrl && key == Qt::Key_Insert) m_vt.toggleInsert();
  // 2. Alt+Enter: the properties of the piece.
  if (alt && !maj && !ctrl && estEntrée(key)) {
    mnuTabEdit(13);
    return;
  }
  // Cut, copy and paste of notes take the keys every program gives them, which
  // the Ctrl chords leave free; they work on the selection, so they come first.
  if (ctrl && !maj && !alt) {
    if (const int index = indexPressePapier(key); index != 0) {
      mnuTabEdit(index);
      return;
    }
  }
  // 3. and 4. The chords clear the selection first.
  if (maj && !ctrl && !alt) {
    selClear();
    toucheMaj(key);
    return;
  }
  if (ctrl && !alt) {
    selClear();
    toucheCtrl(key, mods);
    return;
  }
  // 5. Space plays or stops.
  if (key == Qt::Key_Space) {
    mnuTabPlay(0);
    return;
  }
  // Alt with any other key belongs to the menus.
  if (alt) return;
  toucheSimple(key, mods, répétition);
}

bool FTab::toucheMaj(int key) {
  static constexpr int kAttaques[kNbAttaques] = {Qt::Key_N, Qt::Key_T, Qt::Key_S, Qt::Key_P,
                                                 Qt::Key_U, Qt::Key_D, Qt::Key_H, Qt::Key_A,
                                                 Qt::Key_X, Qt::Key_M, Qt::Key_B, Qt::Key_V};
  for (int i = 0; i < kNbAttaques; ++i) {
    if (kAttaques[i] == key) {
      mnuTabToolAttaque(i);
      return true;
    }
  }
  if (m_joue) return false;
  if (key == Qt::Key_Right || key == Qt::Key_Left) {
    cacheCurseur();
    mesureVoisine(key == Qt::Key_Right ? 1 : -1);
    termine(false);
    return true;
  }
  return false;
}

bool FTab::toucheCtrl(int key, Qt::KeyboardModifiers mods) {
  const bool pavé = mods.testFlag(Qt::KeypadModifier);
  if (key >= Qt::Key_1 && key <= Qt::Key_6) {
    mnuTabToolRythme(key - Qt::Key_1);
    return true;
  }
  if (pavé && (key == Qt::Key_Period || key == Qt::Key_Comma || key == Qt::Key_Delete)) {
    mnuTabToolRythme(7);
    return true;
  }
  if (pavé && key == Qt::Key_9) {
    mnuTabToolRythme(8);
    return true;
  }
  switch (key) {
    case Qt::Key_Left:
      mnuTabPlay(1);
      return true;
    case Qt::Key_Right:
      mnuTabPlay(2);
      return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
      if (m_joue) return false;
      cacheCurseur();
      curseurCorde(key == Qt::Key_Up ? -1 : 1);
      termine(false);
      return true;
    case Qt::Key_R:
      mnuTabPlay(10);
      return true;
    case Qt::Key_Z:
      mnuTabEdit(0);
      return true;
    case Qt::Key_Y:
      mnuTabEdit(1);
      return true;
    // The file commands, with the keys every program gives them.
    case Qt::Key_N:
      MenuTabFile(0);
      return true;
    case Qt::Key_O:
      MenuTabFile(1);
      return true;
    case Qt::Key_S:
      MenuTabFile(mods.testFlag(Qt::ShiftModifier) ? 3 : 2);
      return true;
    default:
      return false;
  }
}

void FTab::toucheSimple(int key, Qt::KeyboardModifiers mods, bool répétition) {
  // While the piece plays only the frets and the keypad's + and - are taken,
  // and those only in insert mode.
  if (m_joue && !m_vt.booInsert()) return;
  if (estChiffre(key)) {
    if (!répétition) saisitCase(key - Qt::Key_0, true);
    return;
  }
  // The keypad's: the main row's "-" and "+" are characters, not commands.
  if ((key == Qt::Key_Plus || key == Qt::Key_Minus) && mods.testFlag(Qt::KeypadModifier)) {
    changeCase(key == Qt::Key_Plus ? 1 : -1);
    return;
  }
  if (m_joue) return;

  switch (key) {
    case Qt::Key_Left:
      cacheCurseur();
      curseurGauche();
      termine(false);
      return;
    case Qt::Key_Right: {
      cacheCurseur();
      const bool ajout = curseurDroite();
      termine(ajout);
      return;
    }
    case Qt::Key_Up:
    case Qt::Key_Down:
      cacheCurseur();
      curseurCorde(key == Qt::Key_Up ? -1 : 1);
      termine(false);
      return;
    case Qt::Key_Home:
      mnuTabPlay(1);
      return;
    case Qt::Key_End:
      mnuTabPlay(2);
      return;
    case Qt::Key_PageUp:
      déplaceVersCorde(-1);
      return;
    case Qt::Key_PageDown:
      déplaceVersCorde(1);
      return;
    case Qt::Key_Backspace:
      toucheRetour();
      return;
    case Qt::Key_Insert:
      toucheInser();
      return;
    case Qt::Key_Delete:
      toucheSuppr();
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (!répétition) sonneColonne();
      return;
    case Qt::Key_Escape:
      MenuTabFile(17);
      return;
    case Qt::Key_A:
      dialogue(DialogueTab::Accord);
      return;
    case Qt::Key_S:
      dialogue(DialogueTab::Signature);
      return;
    case Qt::Key_Q:
      dialogue(DialogueTab::Tonalite);
      return;
    default:
      break;
  }
  if (const byt e = effetDeLaTouche(key); e != effet::kAucun) key_generic_effect(e);
}

}  // namespace vt
